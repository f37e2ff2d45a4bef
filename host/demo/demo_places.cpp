#include <fmt/format.h>

#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

// BBF_GRUPPE.ID is not its NUMBER.
constexpr int kFirstGroup = 11;
constexpr std::array<std::string_view, 3> kGroups = {"Zeitlohn", "EST-Stücklohn", "Sonstiger Stücklohn"};

struct ServiceRow {
  std::string_view code, name;
  int group;  // number, 0 for none
  bool disabled;
};
constexpr int kFirstService = 11;
constexpr auto kServices =
    std::to_array<ServiceRow>({{"ZL", "Zeitlohn", 1, false},
                               {"EST", "Stücklohn nach erweitertem Sortentarif", 2, false},
                               {"SST", "Sonstiger Stücklohn", 3, false},
                               {"UNT", "Unternehmer", 0, false},
                               {"SWB", "Selbstwerber", 0, false},
                               {"ZLM", "Zeitlohn mit eigener Maschine", 1, false},
                               {"PAK", "Pflanzakkord", 3, false},
                               {"REG", "Regiearbeit (alter Schlüssel)", 1, true}});
constexpr std::array<std::string_view, 4> kListNames = {"Leistungen", "Rotten", "Reviere", "Forstämter"};

void WriteGroups(Connection& connection) {
  RowWriter writer(connection, "BBF_GRUPPE", "ID, NUMBER, NAME", RowWriter::Keys::kGiven);
  int number = 0;
  for (const auto name : kGroups) {
    writer.Add(kFirstGroup + number, number + 1, name);
    ++number;
  }
  writer.Finish();
}

void WriteServices(RowWriter& writer) {
  int place = 0;
  for (const ServiceRow& service : kServices) {
    writer.Add(kFirstService + place, kServiceList, place + 1, service.code, service.name,
               OrNull(service.group == 0 ? 0 : kFirstGroup + service.group - 1), Null{}, service.disabled);
    ++place;
  }
}

void WriteOffices(RowWriter& writer, std::vector<Client>& clients) {
  for (Client& client : clients) {
    client.forest_office = kFirstOffice + client.id - 1;
    writer.Add(client.forest_office, kOfficeList, client.id, fmt::format("FA {}", client.number), client.name,
               Null{}, Null{}, false);
  }
}

void WriteDistricts(RowWriter& writer, std::vector<Client>& clients) {
  int id = 100;
  for (Client& client : clients) {
    for (District& district : client.districts) {
      district.place = ++id;
      writer.Add(id, kDistrictList, district.centre.number, fmt::format("R{}", district.centre.number),
                 district.name, Null{}, district.centre.id, false);
    }
  }
}

}  // namespace

void BuildPlaces(Enterprise& enterprise) {
  WriteGroups(enterprise.connection);
  enterprise.services = {kFirstService, kFirstService + 1, kFirstService + 2, kFirstService + 3};
  RowWriter writer(enterprise.connection, "RELTABLE",
                   "ID, RELTABLE_ID, NUMBER, KURZNAME, LANGNAME, GRUPPE, ID_KOSTENSTELLE, DISABLE",
                   RowWriter::Keys::kGiven);
  int list = 0;
  for (const auto name : kListNames) {
    ++list;
    writer.Add(list, Null{}, list, name, name, Null{}, Null{}, false);
  }
  WriteServices(writer);
  WriteOffices(writer, enterprise.clients);
  WriteDistricts(writer, enterprise.clients);
  writer.Finish();
}

}  // namespace tarvoni::demo
