#include "host/own_enterprise.h"

#include <algorithm>
#include <array>
#include <cctype>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/wage_scales.h"
#include "host/new_database.h"
#include "src/context/data/handler_scope.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"

namespace tarvoni::host {
namespace {

using demo::RowWriter;

constexpr int kClient = 1;
constexpr int kFirstCentre = 1000;
constexpr int kFirstWorker = 1001;       // PERSONAL.ID_PERSONAL
constexpr int kFirstPersonnel = 10'001;  // PERSONAL.NUMMER
constexpr auto kCodes = std::to_array<void (*)(demo::Enterprise&)>(
    {demo::BuildUnits, demo::BuildNatureCodes, demo::BuildCodeSets, demo::BuildWorkTypes, demo::BuildPlaces,
     demo::BuildWageTypes, demo::BuildWageScales, demo::BuildTimberCodes, demo::BuildTariff});

void Check(const OwnEnterprise& enterprise) {
  const bool digits =
      std::ranges::all_of(enterprise.number, [](unsigned char c) { return std::isdigit(c) != 0; });
  if (enterprise.number.empty() || !digits)
    throw CallError("Die Nummer des Mandanten muss aus Ziffern bestehen.");
  if (enterprise.name.empty()) throw CallError("Der Name des Mandanten fehlt.");
  if (enterprise.forest_year < 1900 || enterprise.forest_year > 2099)
    throw CallError("Das Forstjahr muss zwischen 1900 und 2099 liegen.");
}

void WriteOptions(demo::Enterprise& to, const OwnEnterprise& enterprise) {
  demo::BuildSettings(to);
  to.connection.Execute(
      "DELETE FROM OPTIONEN WHERE PROPERTY_ID = 'STANDARD_FWJ'\n"
      "DELETE FROM LOHNABSCHLUSS\n"
      "DELETE FROM BB_T_MONAT");
  RowWriter year(to.connection, "OPTIONEN", "PROPERTY_ID, TEXT_VALUE");
  year.Add("STANDARD_FWJ", std::to_string(enterprise.forest_year));
  year.Finish();
  RowWriter months(to.connection, "LOHNABSCHLUSS", "JAHR, MONAT, ASCHLUSS_L");
  for (int month = 1; month <= 12; ++month) months.Add(enterprise.forest_year, month, false);
  months.Finish();
}

void WriteClient(Connection& connection, const OwnEnterprise& enterprise, std::string_view code_set) {
  const std::string centres = "KST " + enterprise.number;
  RowWriter client(
      connection, "PERSONAL",
      "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME, MANDANTEN, STANDART, KOSTENART, KOSTENSTELLE, "
      "LEISTUNGSART, LOHNARTEN, PRODUKT, VERFAHREN, OBJEKT, HH_KAPITEL, HH_TITEL, ZUHLUNGSART, "
      "ZUHLUNGSGRUND",
      RowWriter::Keys::kGiven);
  client.Add(kClient, enterprise.number, enterprise.name, enterprise.name, true, true, code_set, centres,
             code_set, "LOHN", code_set, code_set, "OBJ " + enterprise.number, code_set, code_set, code_set,
             code_set);
  client.Finish();
  RowWriter centre(connection, "KOSTENSTELLE",
                   "NUMBER, NAME, TABLE_NAME, DISABLE, ID_KOSTENSTELLE_TYP, PERSONAL_ID, GK");
  centre.Add(kFirstCentre, "Verwaltung", centres, false, static_cast<int>(demo::CentreType::kAdministration),
             kClient, true);
  centre.Finish();
}

// For whom the codes are: the forest office is one of them.
demo::Client AsClient(const OwnEnterprise& enterprise) {
  demo::Client client;
  client.id = kClient;
  client.number = ToInt32(enterprise.number, {});
  client.name = enterprise.name;
  return client;
}

// A name begins with the surname. What pays a worker holds from the first wage agreement on.
void WriteWorkers(Connection& connection, const std::vector<std::string>& names) {
  RowWriter persons(connection, "PERSONAL",
                    "ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, VORNAME, NAME, MANDANTEN, ID_MANDANTEN, "
                    "ANGEMELDET, DISABLE, LOHNGRUPPE, ENTGELDGRUPPE, ENTWSTUFFE, DLS",
                    RowWriter::Keys::kGiven);
  RowWriter rates(connection, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, RATE");
  RowWriter groups(connection, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, [TEXT]");
  const DateTime from = demo::kAgreements.front().from;
  const std::string group = demo::WageGroupName(0);
  const Decimal pay_group(demo::kFirstPayGroup, 0), stage(1, 0), factor(1, 0);
  int place = 0;
  for (const std::string& name : names) {
    const int id = kFirstWorker + place;
    const std::size_t surname = std::min(name.find(' '), name.size());
    const std::string first_name = name.substr(std::min(surname + 1, name.size()));
    persons.Add(id, kFirstPersonnel + place, name, first_name, name.substr(0, surname), false, kClient, true,
                false, group, pay_group, stage, factor);
    rates.Add("PERSONAL.ENTGELDGRUPPE", id, from, pay_group);
    rates.Add("PERSONAL.ENTWSTUFFE", id, from, stage);
    rates.Add("PERSONAL.DLS", id, from, factor);
    groups.Add("PERSONAL.LOHNGRUPPE", id, from, group);
    ++place;
  }
  for (RowWriter* writer : {&persons, &rates, &groups}) writer->Finish();
}

}  // namespace

void MakeOwnEnterprise(const std::string& database, const OwnEnterprise& enterprise) {
  Check(enterprise);
  MakeNewDatabase(database, [&](Connection& connection) {
    HandlerScope all_at_once(connection);
    MakeTables(connection);
    demo::Enterprise codes(connection, 1);
    codes.clients.push_back(AsClient(enterprise));
    WriteOptions(codes, enterprise);
    if (enterprise.with_codes) {
      for (const auto& build : kCodes) build(codes);
    }
    WriteClient(connection, enterprise, enterprise.with_codes ? codes.code_sets[0].name : "FORST");
    WriteWorkers(connection, enterprise.workers);
    all_at_once.Finish();
  });
}

}  // namespace tarvoni::host
