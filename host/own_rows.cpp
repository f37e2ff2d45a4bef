#include "host/own_rows.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "host/demo/row_writer.h"
#include "host/demo/wage_scales.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni::host {
namespace {

using demo::CentreType;
using demo::RowWriter;

constexpr int kClient = 1;
constexpr std::string_view kCodeSet = "FORST";
constexpr int kFirstDistrict = 1100;  // cost centres of districts, in steps of ten
constexpr int kFirstPayee = 101;      // PERSONAL.ID_PERSONAL
constexpr int kFirstPayeeNumber = 70'001;
constexpr int kFirstWorker = 1001;       // PERSONAL.ID_PERSONAL
constexpr int kFirstPersonnel = 10'001;  // PERSONAL.NUMMER
constexpr int kLevelLength = 20;         // of a forest location

struct Centre {
  int number;
  CentreType type;
  bool overhead;
  std::string_view name;
};
constexpr auto kCentres =
    std::to_array<Centre>({{1000, CentreType::kAdministration, true, "Verwaltung"},
                           {1500, CentreType::kMachineYard, false, "Maschinenhof"},
                           {1600, CentreType::kNursery, false, "Forstgarten"},
                           {1700, CentreType::kHunting, false, "Jagdbetrieb"},
                           {1800, CentreType::kBuildings, true, "Gebäude und Liegenschaften"}});

void WriteClient(Connection& connection, const OwnEnterprise& enterprise) {
  RowWriter client(
      connection, "PERSONAL",
      "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, MANDANTEN, STANDART, KOSTENART, KOSTENSTELLE, "
      "LEISTUNGSART, LOHNARTEN, PRODUKT, VERFAHREN, OBJEKT, HH_KAPITEL, HH_TITEL, ZUHLUNGSART, "
      "ZUHLUNGSGRUND",
      RowWriter::Keys::kGiven);
  client.Add(kClient, enterprise.number, enterprise.name, enterprise.name, true, true, kCodeSet,
             "KST " + enterprise.number, kCodeSet, "LOHN", kCodeSet, kCodeSet, "OBJ " + enterprise.number,
             kCodeSet, kCodeSet, kCodeSet, kCodeSet);
  client.Finish();
}

// The districts get their ids, which their places name.
void WriteCentres(Connection& connection, const OwnEnterprise& enterprise, demo::Client& client) {
  RowWriter writer(connection, "KOSTENSTELLE",
                   "ID, NUMBER, NAME, TABLE_NAME, DISABLE, ID_KOSTENSTELLE_TYP, PERSONAL_ID, GK",
                   RowWriter::Keys::kGiven);
  int id = 0;
  const auto write = [&](int number, CentreType type, bool overhead, std::string_view name) {
    writer.Add(++id, number, name, "KST " + enterprise.number, false, static_cast<int>(type), kClient,
               overhead);
    return demo::CostCentre{id, number, type};
  };
  for (const Centre& centre : kCentres) write(centre.number, centre.type, centre.overhead, centre.name);
  int number = kFirstDistrict;
  for (const std::string& name : enterprise.districts) {
    client.districts.push_back({write(number, CentreType::kDistrict, false, name), name, 0, {}, {}});
    number += 10;
  }
  writer.Finish();
}

void WriteObjects(Connection& connection, const OwnEnterprise& enterprise) {
  RowWriter writer(connection, "OBJEKT", "NUMBER, NAME, TABLE_NAME, DISABLE");
  int number = 0;
  for (const std::string& name : enterprise.objects)
    writer.Add(number += 10, name, "OBJ " + enterprise.number, false);
  writer.Finish();
}

void WritePayees(Connection& connection, const std::vector<std::string>& names) {
  RowWriter writer(
      connection, "PERSONAL",
      "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, MANDANTEN, ID_MANDANTEN, PERSONENTYP, DISABLE",
      RowWriter::Keys::kGiven);
  int place = 0;
  for (const std::string& name : names) {
    writer.Add(kFirstPayee + place, kFirstPayeeNumber + place, name, name, false, kClient, "2PLIEF", false);
    ++place;
  }
  writer.Finish();
}

struct PersonName {
  std::string surname, first_name;
};

// The surname ends at a comma, which lets it have several words, or at the first blank.
PersonName Split(const std::string& name) {
  const std::size_t comma = name.find(',');
  const std::size_t end = std::min(comma == std::string::npos ? name.find(' ') : comma, name.size());
  const auto trimmed = [&](std::size_t from, std::size_t to) {
    return std::string(utf8::Trim(std::string_view(name).substr(from, to - from)));
  };
  return {trimmed(0, end), trimmed(std::min(end + 1, name.size()), name.size())};
}

// What pays a worker holds from the first wage agreement on.
class WorkerWriter {
 public:
  WorkerWriter(Connection& connection, int forest_year)
      : connection_(connection), forest_year_(forest_year) {}

  void Write(const std::string& name) {
    const int id = kFirstWorker + place_;
    const PersonName person = Split(name);
    const std::string both = person.surname + (person.first_name.empty() ? "" : " ") + person.first_name;
    persons_.Add(id, kFirstPersonnel + place_++, both, "", person.first_name, person.surname, false, kClient,
                 true, false, wage_group_, pay_group_, stage_, factor_);
    rates_.Add("PERSONAL.ENTGELDGRUPPE", id, from_, pay_group_);
    rates_.Add("PERSONAL.ENTWSTUFFE", id, from_, stage_);
    rates_.Add("PERSONAL.DLS", id, from_, factor_);
    groups_.Add("PERSONAL.LOHNGRUPPE", id, from_, wage_group_);
    for (int month = 1; month <= 12; ++month)
      journals_.Add(id, forest_year_, month, std::to_string(forest_year_));
  }

  void Finish() {
    for (RowWriter* const writer : {&persons_, &rates_, &groups_, &journals_}) writer->Finish();
  }

 private:
  const DateTime from_ = demo::kAgreements.front().from;
  const std::string wage_group_ = demo::WageGroupName(0);
  const Decimal pay_group_{demo::kFirstPayGroup, 0}, stage_{1, 0}, factor_{1, 0};

  Connection& connection_;
  int forest_year_;
  int place_ = 0;
  RowWriter persons_{connection_, "PERSONAL",
                     "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, ANREDE, VORNAME, NAME, MANDANTEN, ID_MANDANTEN, "
                     "ANGEMELDET, DISABLE, LOHNGRUPPE, ENTGELDGRUPPE, ENTWSTUFFE, DLS",
                     RowWriter::Keys::kGiven};
  RowWriter rates_{connection_, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, RATE"};
  RowWriter groups_{connection_, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, [TEXT]"};
  RowWriter journals_{connection_, "STUNDENBUCH_HEADER", "ID_PERSONAL, JAHR, MONAT, FWJ"};
};

}  // namespace

demo::Client WriteOwnClient(Connection& connection, const OwnEnterprise& enterprise) {
  demo::Client client;
  client.id = kClient;
  client.number = ToInt32(enterprise.number, {});
  client.name = enterprise.name;
  WriteClient(connection, enterprise);
  WriteCentres(connection, enterprise, client);
  WriteObjects(connection, enterprise);
  return client;
}

void WriteOwnForest(Connection& connection, const OwnEnterprise& enterprise) {
  const std::size_t digits = std::to_string(enterprise.compartments).size();  // so that they sort by number
  RowWriter writer(connection, "WALDORT", "WO1, WO2, LANGNAME, MANDANTEN_ID");
  for (const std::string& district : enterprise.districts) {
    const std::string level(utf8::Substring(district, 0, kLevelLength));
    writer.Add(level, Null{}, district, kClient);
    for (int number = 1; number <= enterprise.compartments; ++number) {
      const std::string compartment = fmt::format("Abt. {:0{}}", number, digits);
      writer.Add(level, compartment, district + ", " + compartment, kClient);
    }
  }
  writer.Finish();
}

void WriteOwnPersons(Connection& connection, const OwnEnterprise& enterprise) {
  WritePayees(connection, enterprise.payees);
  WorkerWriter workers(connection, enterprise.forest_year);
  for (const std::string& name : enterprise.workers) workers.Write(name);
  workers.Finish();
}

}  // namespace tarvoni::host
