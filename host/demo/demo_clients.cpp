#include <fmt/format.h>

#include <array>
#include <string_view>

#include "host/demo/names.h"
#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

struct ClientRow {
  int number;
  int code_set;
  std::array<int, 2> orders_a_year;
  std::string_view short_name, name;
};
constexpr auto kClients = std::to_array<ClientRow>({
    {2010, 0, {130, 200}, "FB Kaltenwald", "Forstbetrieb Kaltenwald"},
    {2020, 0, {45, 60}, "FB Auenfels", "Forstbetrieb Auenfels"},
    {2030, 1, {35, 40}, "Stift Marienwald", "Stiftsforste Marienwald"},
});

// The districts of each client in turn.
struct DistrictRow {
  int client;
  std::string_view name;
};
constexpr auto kDistricts = std::to_array<DistrictRow>({
    {0, "Revier Ahornboden"},
    {0, "Revier Brentenriegel"},
    {0, "Revier Dürrental"},
    {0, "Revier Finstergraben"},
    {0, "Revier Hirschlacke"},
    {0, "Revier Kohlstatt"},
    {0, "Revier Oberleiten"},
    {0, "Revier Schöntal"},
    {1, "Revier Auwinkel"},
    {1, "Revier Felsenegg"},
    {1, "Revier Mühlgraben"},
    {1, "Revier Rauhenberg"},
    {1, "Revier Sonnleiten"},
    {2, "Revier Klosterwald"},
    {2, "Revier Nonnenschlag"},
    {2, "Revier Priorholz"},
    {2, "Revier Wallfahrtsleiten"},
});

struct CentreRow {
  int offset;
  CentreType type;
  bool overhead, disabled;
  std::string_view name;
};
constexpr int kDistrictOffset =
    100;  // the first district's number behind the client's thousand, then steps of ten
constexpr auto kCentres = std::to_array<CentreRow>({
    {10, CentreType::kAdministration, true, false, "Betriebsleitung und Verwaltung"},
    {20, CentreType::kAdministration, true, false, "Forsteinrichtung und Vermessung"},
    {500, CentreType::kMachineYard, false, false, "Maschinenhof"},
    {510, CentreType::kMachineYard, false, false, "Werkstätte"},
    {600, CentreType::kNursery, false, false, "Forstgarten"},
    {700, CentreType::kHunting, false, false, "Jagdbetrieb"},
    {800, CentreType::kBuildings, true, false, "Gebäude und Liegenschaften"},
    {900, CentreType::kDistrict, false, true, "Revier Altenreith (aufgelassen)"},
});
constexpr std::array<std::string_view, 5> kBuildings = {
    "Forsthaus", "Verwaltungsgebäude", "Werkstättengebäude", "Jagdhütte Hochleiten", "Holzlagerplatz"};

constexpr std::array<std::string_view, 8> kTrades = {"Holzschlägerung", "Baumschule", "Landmaschinen",
                                                     "Schotterwerk",    "Mineralöle", "Seilbringung",
                                                     "Zaunbau",         "Fuhrwerk"};

void WriteCentre(RowWriter& writer, const Client& client, int id, const CentreRow& row) {
  const int number = client.id * 1000 + row.offset;
  writer.Add(id, number, row.name, fmt::format("KST {}", client.number), row.disabled,
             static_cast<int>(row.type), client.id, row.overhead);
}

// Districts and the other cost centres; their numbers begin with the client's thousand.
void WriteCentres(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "KOSTENSTELLE",
                   "ID, NUMBER, NAME, TABLE_NAME, DISABLE, ID_KOSTENSTELLE_TYP, PERSONAL_ID, GK",
                   RowWriter::Keys::kGiven);
  int id = 0;
  const auto write = [&](Client& client, const CentreRow& row) {
    WriteCentre(writer, client, ++id, row);
    return CostCentre{id, client.id * 1000 + row.offset, row.type};
  };
  for (const DistrictRow& row : kDistricts) {
    Client& client = enterprise.clients[static_cast<std::size_t>(row.client)];
    const int offset = kDistrictOffset + 10 * static_cast<int>(client.districts.size());
    const CostCentre centre = write(client, {offset, CentreType::kDistrict, false, false, row.name});
    client.districts.push_back({centre, row.name, 0, {}, {}});
  }
  for (Client& client : enterprise.clients) {
    for (const CentreRow& row : kCentres) {
      const CostCentre centre = write(client, row);
      if (!row.disabled) client.centres.push_back(centre);
    }
  }
  writer.Finish();
}

void WriteBuildings(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "OBJEKT", "ID, NUMBER, NAME, TABLE_NAME, DISABLE",
                   RowWriter::Keys::kGiven);
  for (Client& client : enterprise.clients) {
    for (const auto name : kBuildings) {
      const int place = static_cast<int>(client.buildings.size()) + 1;
      client.buildings.push_back(client.id * 100 + place);
      writer.Add(client.buildings.back(), place * 10, name, fmt::format("OBJ {}", client.number), false);
    }
  }
  writer.Finish();
}

void WriteClients(Enterprise& enterprise) {
  RowWriter writer(
      enterprise.connection, "PERSONAL",
      "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, MANDANTEN, STANDART, KOSTENART, KOSTENSTELLE, "
      "LEISTUNGSART, LOHNARTEN, PRODUKT, VERFAHREN, OBJEKT, HH_KAPITEL, HH_TITEL, ZUHLUNGSART, "
      "ZUHLUNGSGRUND",
      RowWriter::Keys::kGiven);
  for (const ClientRow& row : kClients) {
    Client client;
    client.id = static_cast<int>(enterprise.clients.size()) + 1;
    client.number = row.number;
    client.code_set = row.code_set;
    client.orders_a_year = row.orders_a_year;
    client.name = row.name;
    const auto set = enterprise.CodesOf(client).name;
    writer.Add(client.id, row.number, row.short_name, row.name, true, client.id == 1, set,
               fmt::format("KST {}", row.number), set, "LOHN", set, set, fmt::format("OBJ {}", row.number),
               set, set, set, set);
    enterprise.clients.push_back(std::move(client));
  }
  writer.Finish();
}

// Payees; the kind of person is what the choice of a payee asks for.
void WriteSuppliers(Enterprise& enterprise) {
  constexpr int kFirstId = 101;
  constexpr int kFirstNumber = 70001;
  RowWriter writer(
      enterprise.connection, "PERSONAL",
      "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, MANDANTEN, ID_MANDANTEN, PERSONENTYP, DISABLE",
      RowWriter::Keys::kGiven);
  Random& random = enterprise.random;
  const int count = 16 + enterprise.scale / 5;
  for (int i = 0; i < count; ++i) {
    const auto surname = random.Pick(kSurnames);
    const auto trade = kTrades[static_cast<std::size_t>(i) % kTrades.size()];
    enterprise.suppliers.push_back(kFirstId + i);
    writer.Add(kFirstId + i, kFirstNumber + i, fmt::format("{} {}", surname, trade),
               fmt::format("{} {} GmbH", trade, surname), false, i % 3 + 1, "2PLIEF", i % 15 == 14);
  }
  writer.Finish();
}

}  // namespace

void BuildClients(Enterprise& enterprise) {
  WriteClients(enterprise);
  WriteCentres(enterprise);
  WriteBuildings(enterprise);
  WriteSuppliers(enterprise);
}

}  // namespace tarvoni::demo
