#include "host/argument_fields.h"

#include <map>

#include "src/context/data/statement.h"
#include "src/context/values/clock.h"

namespace tarvoni::host {
namespace {

using enum FieldKind;

SqlText Machines(const ChoiceScope&) {
  return "SELECT NUMMER, NUMMER AS NR, BEZEICHNUNG FROM MASCHINENBUCH ORDER BY NUMMER";
}

SqlText OrderGroups(const ChoiceScope& scope) {
  return Compose(
      "SELECT ID, BEZEICHNUNG, FWJ FROM PA_GRUPPE WHERE ID_PERSONAL = {} ORDER BY FWJ DESC, BEZEICHNUNG",
      Id(scope.client));
}

SqlText Journals(const ChoiceScope& scope) {
  return Compose(R"(
SELECT STUNDENBUCH_HEADER.ID,
  RIGHT('0' + CAST(MONAT AS NVARCHAR(2)), 2) + '.' + CAST(JAHR AS NVARCHAR(4)),
  PERSONAL.NUMMER, PERSONAL.NAME, PERSONAL.VORNAME
FROM STUNDENBUCH_HEADER
INNER JOIN PERSONAL ON PERSONAL.ID_PERSONAL = STUNDENBUCH_HEADER.ID_PERSONAL
WHERE PERSONAL.ID_MANDANTEN = {} AND STUNDENBUCH_HEADER.FWJ = '{}'
ORDER BY JAHR DESC, MONAT DESC, PERSONAL.NAME)",
                 Id(scope.client), Quoted(scope.forest_year));
}

// An order is of the year in its number; it has the other one only when its Screen has saved it.
SqlText OrdersOrPlans(const ChoiceScope& scope) {
  return Compose(R"(
SELECT ID, NAME, CAST(BESCHREIBUNG AS NVARCHAR(100))
FROM {}
WHERE PERSONAL_ID = {} AND {} = '{}'
ORDER BY NAME)",
                 Name(scope.plan ? "ARBEITSAUFTRAG_KOPF_PLANN" : "ARBEITSAUFTRAG_KOPF"), Id(scope.client),
                 Name(scope.plan ? "FWJ" : "NAME_FWJ"), Quoted(scope.forest_year));
}

// The journals of the current month come before those of months to come.
SqlText CurrentJournal(const ChoiceScope& scope) {
  const DateTime today = Clock::Today();
  return Compose(R"(
SELECT TOP 1 STUNDENBUCH_HEADER.ID
FROM STUNDENBUCH_HEADER
INNER JOIN PERSONAL ON PERSONAL.ID_PERSONAL = STUNDENBUCH_HEADER.ID_PERSONAL
WHERE PERSONAL.ID_MANDANTEN = {} AND STUNDENBUCH_HEADER.FWJ = '{}' AND JAHR * 100 + MONAT <= {}
ORDER BY JAHR DESC, MONAT DESC, PERSONAL.NAME)",
                 Id(scope.client), Quoted(scope.forest_year), Id(today.year * 100 + today.month));
}

// The list is in the order of the numbers, by which an order is looked for; work goes on where a cost was booked last.
// The hours of a journal are none.
SqlText OrderBookedLast(const ChoiceScope& scope) {
  if (scope.plan) return {};
  return Compose(R"(
SELECT TOP 1 ID
FROM (SELECT ARBEITSAUFTRAG_KOPF.ID,
        (SELECT MAX(ARBEITSAUFTRAG.ID)
         FROM ARBEITSAUFTRAG
         WHERE ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID = ARBEITSAUFTRAG_KOPF.ID
           AND ISNULL(ARBEITSAUFTRAG.QUELLE, '') <> 'B') AS BOOKED
      FROM ARBEITSAUFTRAG_KOPF
      WHERE PERSONAL_ID = {} AND NAME_FWJ = '{}') ORDERS
WHERE BOOKED IS NOT NULL
ORDER BY BOOKED DESC)",
                 Id(scope.client), Quoted(scope.forest_year));
}

}  // namespace

bool UsesForestYear(const ArgumentField& field) {
  if (!field.choices) return false;
  const SqlText one = field.choices({.client = 1, .forest_year = "1"});
  return one.Text() != field.choices({.client = 1, .forest_year = "2"}).Text();
}

const std::vector<ArgumentField>& FieldsOf(const std::string& method) {
  static const std::map<std::string, std::vector<ArgumentField>> fields = {
      {"ARA", {{"strPersonal_dll", "Mandant", kClient}}},
      {"Maschinenbuch",
       {{"bolNew", "&neue Maschine", kNew},
        {.parameter = "intNummer_dll",
         .label = "Mas&chine",
         .kind = kRow,
         .choices = Machines,
         .free_number = true}}},
      {"PA_Gruppe",
       {{"ID_Mandant", "Mandant", kClient},
        {"Id_PA_Gruppe", "PA-&Gruppe", kRow, "neue Gruppe", OrderGroups}}},
      {"BruttoLohn", {{"Id_StundenBuch", "St&undenbuch", kRow, "", Journals, CurrentJournal}}},
      {"Lager", {{"strPersonal_dll", "Mandant", kClient}}},
      {"Belege", {{"strPersonal_dll", "Mandant", kClient}}},
      {"Arbeitsauftrag",
       {{"idPersonal_dll", "Mandant", kClient},
        {"Plan_dll", "&Plan", kPlans},
        {"ID", "A&uftrag", kRow, "neu", OrdersOrPlans, OrderBookedLast}}},
      {"PA_Gruppe_Delete", {{"ID_Item_dll", "PA-&Gruppe", kRow, "", OrderGroups}}},
      {"NewRechnung", {{"intPersonal", "Mandant", kClient}, {"oldRechName", "Bisheriger &Name", kText}}},
  };
  static const std::vector<ArgumentField> none;
  const auto found = fields.find(method);
  return found == fields.end() ? none : found->second;
}

}  // namespace tarvoni::host
