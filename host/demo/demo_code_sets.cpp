#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr std::array<std::string_view, 2> kSetNames = {"FORST", "STIFT"};

struct CostTypeRow {
  int number;
  std::string_view name;
};
constexpr int kFirstRevenue = 8000;
constexpr int kDisabledCostType = 4999;
constexpr auto kCostTypes = std::to_array<CostTypeRow>({
    {kWages, "Löhne der Forstarbeiter"},
    {4010, "Lohnnebenkosten"},
    {kMachinePurchase, "Anschaffung von Maschinen"},
    {4100, "Gehälter"},
    {kPlants, "Forstpflanzen und Saatgut"},
    {kFenceMaterial, "Zaunmaterial"},
    {kBrowsingProtection, "Verbiss- und Schälschutzmittel"},
    {kRoadMaterial, "Schotter und Baumaterial für Wege"},
    {kFuel, "Treibstoffe"},
    {kLubricants, "Schmierstoffe und Kettenöl"},
    {kSpareParts, "Ersatzteile und Reifen"},
    {kOwnWorkshop, "Leistungen der eigenen Werkstätte"},
    {kContractors, "Unternehmer Holzernte und Bringung"},
    {4410, "Frachten"},
    {kForeignRepairs, "Fremdreparaturen"},
    {kInsurance, "Versicherungen"},
    {kVehicleTax, "Kraftfahrzeugsteuer"},
    {kMachineDepreciation, "Abschreibung Maschinen"},
    {4610, "Abschreibung Gebäude"},
    {4700, "Büro und Kommunikation"},
    {kSmallMaterial, "Werkzeug und Kleinmaterial"},
    {kOtherCosts, "Sonstiger Aufwand"},
    {kDisabledCostType, "Diverses (nicht mehr verwenden)"},
    {kTimberRevenue, "Erlöse Sägerundholz"},
    {kPulpwoodRevenue, "Erlöse Industrieholz"},
    {kFirewoodRevenue, "Erlöse Brennholz"},
    {kHuntingRevenue, "Erlöse Wildbret"},
    {kHuntingLease, "Jagdpacht"},
    {kSideRevenue, "Erlöse Nebennutzungen"},
    {kPlantRevenue, "Erlöse Forstpflanzen"},
    {8400, "Förderungen"},
});

struct CodeRow {
  std::string_view number, name;
};
constexpr auto kChapters = std::to_array<CodeRow>({{"100", "Personalaufwand"},
                                                   {"200", "Betriebsaufwand"},
                                                   {"300", "Investitionen"},
                                                   {"400", "Betriebserträge"}});
constexpr auto kTitles = std::to_array<CodeRow>({{"1001", "Löhne Holzernte"},
                                                 {"1002", "Löhne Waldbau"},
                                                 {"2001", "Holzernte"},
                                                 {"2002", "Waldbau und Forstschutz"},
                                                 {"2003", "Forststraßen"},
                                                 {"2004", "Fuhrpark und Maschinen"},
                                                 {"3001", "Maschinenankauf"},
                                                 {"4001", "Holzerlöse"},
                                                 {"4002", "Jagderlöse"}});
constexpr auto kPaymentKinds = std::to_array<CodeRow>(
    {{"1", "Überweisung"}, {"2", "Bar"}, {"3", "Lastschrift"}, {"4", "Gegenverrechnung"}});
constexpr auto kPaymentReasons = std::to_array<CodeRow>(
    {{"10", "Lieferung"}, {"20", "Dienstleistung"}, {"30", "Miete und Pacht"}, {"40", "Abgabe und Gebühr"}});

// Codes with a text as number, the ids behind those of the sets before.
template <std::size_t kCount>
std::vector<int> WriteCodes(Connection& connection, std::string_view table, std::string_view set_name,
                            int set, const std::array<CodeRow, kCount>& rows) {
  RowWriter writer(connection, table, "ID, NUMBER, NAME, TABLE_NAME, DISABLE", RowWriter::Keys::kGiven);
  std::vector<int> ids;
  for (const CodeRow& row : rows) {
    ids.push_back(set * static_cast<int>(kCount) + static_cast<int>(ids.size()) + 1);
    writer.Add(ids.back(), row.number, row.name, set_name, false);
  }
  writer.Finish();
  return ids;
}

void WriteCostTypes(Connection& connection, CodeSet& codes, int set) {
  RowWriter writer(connection, "KOSTENART", "ID, NUMBER, NAME, TABLE_NAME, DISABLE, ERLOSE",
                   RowWriter::Keys::kGiven);
  int id = set * static_cast<int>(kCostTypes.size());
  for (const CostTypeRow& row : kCostTypes) {
    const bool revenue = row.number >= kFirstRevenue;
    const bool disabled = row.number == kDisabledCostType;
    writer.Add(++id, row.number, row.name, codes.name, disabled, revenue);
    if (!disabled) codes.cost_types.push_back({id, row.number, revenue});
  }
  writer.Finish();
}

}  // namespace

void BuildCodeSets(Enterprise& enterprise) {
  Connection& connection = enterprise.connection;
  connection.Execute(R"(
SET IDENTITY_INSERT KOSTENART ON
INSERT INTO KOSTENART (ID, NUMBER, NAME) VALUES (0, NULL, NULL)
SET IDENTITY_INSERT KOSTENART OFF)");
  int set = 0;
  for (CodeSet& codes : enterprise.code_sets) {
    codes.name = kSetNames[static_cast<std::size_t>(set)];
    WriteCostTypes(connection, codes, set);
    codes.chapters = WriteCodes(connection, "HH_KAPITEL", codes.name, set, kChapters);
    codes.titles = WriteCodes(connection, "HH_TITEL", codes.name, set, kTitles);
    codes.payment_kinds = WriteCodes(connection, "ZUHLUNGSART", codes.name, set, kPaymentKinds);
    codes.payment_reasons = WriteCodes(connection, "ZUHLUNGSGRUND", codes.name, set, kPaymentReasons);
    ++set;
  }
}

}  // namespace tarvoni::demo
