#pragma once

#include <array>
#include <string_view>

#include "host/demo/enterprise.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {

struct ProductRow {
  int number;
  std::string_view name;
};
inline constexpr auto kProducts = std::to_array<ProductRow>({{kHarvest, "Holzernte"},
                                                             {kSilviculture, "Waldbau"},
                                                             {30, "Forstschutz"},
                                                             {40, "Wegebau und Wegeerhaltung"},
                                                             {50, "Jagd und Fischerei"},
                                                             {60, "Forstgarten"},
                                                             {70, "Nebennutzung und Erholung"},
                                                             {kMachineOperation, "Maschinenbetrieb"},
                                                             {kAdministrationProduct, "Verwaltung"}});

constexpr unsigned CentreBit(CentreType type) {
  return 1U << static_cast<int>(type);
}
inline constexpr unsigned kInForest = CentreBit(CentreType::kDistrict);
inline constexpr unsigned kInYard = CentreBit(CentreType::kMachineYard);
inline constexpr unsigned kInHunting = CentreBit(CentreType::kHunting) | kInForest;
inline constexpr unsigned kInNursery = CentreBit(CentreType::kNursery);
inline constexpr unsigned kInOffice =
    CentreBit(CentreType::kAdministration) | CentreBit(CentreType::kBuildings);
inline constexpr unsigned kAnywhere = kInForest | kInYard | kInHunting | kInNursery | kInOffice;

// Methods and marks are separated by '|'. The product's number is the work type's first two digits.
struct WorkTypeRow {
  int number;
  std::string_view name;
  Unit unit;
  unsigned flags;
  unsigned centre_types;
  std::string_view methods;
  std::string_view marks;
};
inline constexpr unsigned kWork = kCost | kHours;
inline constexpr auto kWorkTypes = std::to_array<WorkTypeRow>({
    {1010, "Schlägerung Endnutzung", kCubicMetres, kWork | kEst | kTimber | kNoLines | kChainsaw, kInForest,
     "Motorsäge, Sortiment|Motorsäge, Stammlänge|Motorsäge und Prozessor", "EN"},
    {1020, "Schlägerung Durchforstung", kCubicMetres,
     kWork | kEst | kTimber | kNoLines | kNatural | kChainsaw, kInForest, "Motorsäge, Sortiment|Harvester",
     "JD"},
    {1030, "Schadholzaufarbeitung", kCubicMetres, kWork | kEst | kTimber | kNoLines | kChainsaw, kInForest,
     "Motorsäge, Einzelwurf|Motorsäge, Flächenwurf", "SH"},
    {1040, "Rückung mit Schlepper", kCubicMetres, kWork | kTimber | kMachine, kInForest,
     "Seilschlepper|Tragschlepper", ""},
    {1050, "Seilkranbringung", kCubicMetres, kWork | kTimber | kMachine, kInForest, "Bergauf|Bergab", ""},
    {1060, "Entrindung von Hand", kCubicMetres, kWork, kInForest, "Schäleisen", ""},
    {1070, "Brennholzaufarbeitung", kStackedMetres, kWork | kTimber | kChainsaw, kInForest,
     "Motorsäge und Spalter", ""},
    {1080, "Holzverkauf", kCubicMetres, kRevenue | kTimber, kInForest, "ab Straße|frei Werk", ""},
    {1090, "Schlagräumung", kHectares, kWork | kArea | kNatural, kInForest, "Von Hand|Schlepper mit Rechen",
     "SR"},
    {2010, "Aufforstung", kPieces, kWork | kArea | kNatural, kInForest,
     "Winkelpflanzung|Lochpflanzung|Container", "AF"},
    {2020, "Nachbesserung", kPieces, kWork | kArea | kNatural, kInForest, "Winkelpflanzung|Lochpflanzung",
     "NB"},
    {2030, "Kulturpflege", kHectares, kWork | kArea | kNatural, kInForest, "Sichel|Freischneider", "KP"},
    {2040, "Dickungspflege", kHectares, kWork | kArea | kNatural | kChainsaw, kInForest,
     "Motorsäge|Freischneider", "DP|JD"},
    {2050, "Wertastung", kPieces, kWork | kNatural, kInForest, "Stangensäge|Leiter", "WA"},
    {2060, "Bodenvorbereitung", kHectares, kWork | kArea | kMachine, kInForest, "Bagger|Streifenpflug", ""},
    {3010, "Verbissschutz", kPieces, kWork | kArea | kNatural, kInForest,
     "Streichmittel|Schafwolle|Einzelschutz", "VS"},
    {3020, "Zaunbau", kMetres, kWork | kNatural, kInForest, "Hordengatter|Drahtzaun", "ZN|ZI"},
    {3030, "Borkenkäferbekämpfung", kPieces, kWork, kInForest, "Fangbäume|Fallen", ""},
    {3040, "Schälschutz", kPieces, kWork | kNatural, kInForest, "Netz|Streichmittel", "VS"},
    {4010, "Neubau von Forststraßen", kMetres, kWork | kMachine, kInForest, "Bagger", ""},
    {4020, "Instandhaltung von Forststraßen", kMetres, kWork | kMachine, kInForest, "Grader|Von Hand", ""},
    {4030, "Wasserableitung und Durchlässe", kPieces, kWork, kInForest, "Holzspule|Betonrohr", ""},
    {4040, "Böschungspflege", kHectares, kWork | kArea | kMachine, kInForest, "Mulcher", ""},
    {4050, "Schneeräumung", kKilometres, kWork | kMachine, kInForest | kInYard, "Schlepper mit Pflug", ""},
    {5010, "Reviereinrichtungen", kPieces, kWork, kInHunting, "Hochstand|Fütterung|Steig", ""},
    {5020, "Wildfütterung", kKilograms, kWork, kInHunting, "Raufutter|Kraftfutter", ""},
    {5030, "Abschuss und Wildbret", kKilograms, kCost | kRevenue, kInHunting, "Eigenregie", ""},
    {5040, "Jagdverpachtung", kFlatRate, kRevenue, kInHunting, "Pachtvertrag", ""},
    {6010, "Aussaat", kSquareMetres, kWork | kArea, kInNursery, "Freiland|Glashaus", ""},
    {6020, "Verschulen", kPieces, kWork, kInNursery, "Maschine|Von Hand", ""},
    {6030, "Pflanzenverkauf", kPieces, kCost | kRevenue, kInNursery, "Abholung", ""},
    {7010, "Christbäume und Reisig", kPieces, kWork | kRevenue, kInForest, "Abverkauf", ""},
    {7020, "Erholungseinrichtungen", kPieces, kWork, kInForest, "Wanderweg|Rastplatz", ""},
    {kWorkshopWork, "Werkstättenarbeit", kWorkHours, kWork | kMachine, kInYard, "Wartung|Instandsetzung", ""},
    {kMachineRunning, "Betrieb von Maschinen", kWorkHours, kCost | kMachine, kInYard | kInForest,
     "Laufender Betrieb", ""},
    {9010, "Verwaltungsarbeit", kWorkHours, kWork, kInOffice, "Büro", ""},
    {9020, "Schulung und Arbeitssicherheit", kWorkHours, kWork, kAnywhere, "Kurs|Unterweisung", ""},
    {kAbsence, "Bezahlte Abwesenheit", kWorkHours, kWork, kAnywhere, "Urlaub und Feiertag|Krankheit", ""},
    {9050, "Statistische Buchung", kNoUnit, 0, kInOffice, "ohne", ""},
});

// Only these cost types go with the work type; one that is not named here allows all.
struct CostTypeLink {
  int work_type, cost_type;
};
inline constexpr auto kCostTypeLinks = std::to_array<CostTypeLink>({
    {2010, kWages},
    {2010, kPlants},
    {2010, kContractors},
    {2020, kWages},
    {2020, kPlants},
    {3020, kWages},
    {3020, kFenceMaterial},
    {3020, kContractors},
    {1040, kWages},
    {1040, kContractors},
    {1040, kFuel},
    {1080, kTimberRevenue},
    {1080, kPulpwoodRevenue},
    {1080, kFirewoodRevenue},
    {4020, kWages},
    {4020, kRoadMaterial},
    {4020, kContractors},
    {3010, kWages},
    {3010, kBrowsingProtection},
    {4030, kWages},
    {4030, kRoadMaterial},
    {4030, kContractors},
    {5030, kHuntingRevenue},
    {5030, kSmallMaterial},
    {5040, kHuntingLease},
    {6030, kPlantRevenue},
    {6030, kSmallMaterial},
    {7010, kWages},
    {7010, kSideRevenue},
});

}  // namespace tarvoni::demo
