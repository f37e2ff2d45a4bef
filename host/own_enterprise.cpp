#include "host/own_enterprise.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/settings_rows.h"
#include "host/demo/wage_scales.h"
#include "host/demo/well_known.h"
#include "host/new_database.h"
#include "host/own_rows.h"
#include "src/context/data/handler_scope.h"
#include "src/context/values/call_error.h"

namespace tarvoni::host {
namespace {

constexpr int kNoneClosed = 0;
constexpr std::size_t kMostDistricts = 40;  // their cost centres have the numbers from 1100 to 1490
constexpr auto kCodes = std::to_array<void (*)(demo::Enterprise&)>(
    {demo::BuildUnits, demo::BuildNatureCodes, demo::BuildCodeSets, demo::BuildWorkTypes, demo::BuildPlaces,
     demo::BuildWageTypes, demo::BuildWageScales, demo::BuildTimberCodes, demo::BuildTariff});

void Check(const OwnEnterprise& enterprise) {
  const bool digits =
      std::ranges::all_of(enterprise.number, [](unsigned char c) { return std::isdigit(c) != 0; });
  if (enterprise.number.empty() || !digits)
    throw CallError("Die Nummer des Mandanten muss aus Ziffern bestehen.");
  if (enterprise.name.empty()) throw CallError("Der Name des Mandanten fehlt.");
  if (enterprise.forest_year < FirstForestYear() || enterprise.forest_year > kLastForestYear)
    throw CallError("Das Forstjahr muss zwischen " + std::to_string(FirstForestYear()) + " und " +
                    std::to_string(kLastForestYear) + " liegen.");
  if (enterprise.districts.size() > kMostDistricts)
    throw CallError("Es können höchstens " + std::to_string(kMostDistricts) + " Reviere angelegt werden.");
}

// What nobody named and the Screens ask for.
OwnEnterprise Completed(OwnEnterprise enterprise) {
  const auto complete = [](std::vector<std::string>& names, std::vector<std::string> usual) {
    if (names.empty()) names = std::move(usual);
  };
  complete(enterprise.districts, {"Revier 1"});
  complete(enterprise.objects, {"Betriebsgebäude", "Schlepper", "Geländewagen"});
  complete(enterprise.payees, {"Diverse Lieferanten"});
  return enterprise;
}

// The amounts are in euros: one of them is one of the local currency.
void WriteSettings(Connection& connection, int forest_year) {
  demo::WriteOptions(connection, forest_year);
  connection.Execute(R"(
UPDATE OPTIONEN SET DOUBLE_VALUE = 1 WHERE PROPERTY_ID = 'UFAKTNAT_EURO'
INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('LANDESWAEHRUNG', 'EUR'))");
  const demo::Month first{forest_year, 1}, last{forest_year, 12};
  demo::WriteMonths(connection, first, last, kNoneClosed);
  demo::WriteTargetHours(connection, first, last);
  demo::WriteLayouts(connection);
}

void WriteCodes(demo::Enterprise& codes) {
  for (const auto& build : kCodes) build(codes);
  demo::RowWriter gang(codes.connection, "RELTABLE", "RELTABLE_ID, NUMBER, KURZNAME, LANGNAME, DISABLE");
  gang.Add(demo::kGangList, 1, "001", "Rotte 1", false);
  gang.Finish();
}

}  // namespace

int FirstForestYear() {
  return demo::kAgreements.front().from.year;
}

void MakeOwnEnterprise(const std::string& database, const OwnEnterprise& given) {
  Check(given);
  const OwnEnterprise enterprise = Completed(given);
  MakeNewDatabase(database, [&](Connection& connection) {
    HandlerScope all_at_once(connection);
    MakeTables(connection);
    WriteSettings(connection, enterprise.forest_year);
    demo::Enterprise codes(connection, 1, 1);
    codes.clients.push_back(WriteOwnClient(connection, enterprise));
    if (enterprise.with_codes) WriteCodes(codes);
    WriteOwnForest(connection, enterprise);
    WriteOwnPersons(connection, enterprise);
    all_at_once.Finish();
  });
}

}  // namespace tarvoni::host
