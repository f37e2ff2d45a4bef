#include <array>

#include "src/context/rules/location_path.h"
#include "suite/code_list.h"

// The lists of codes that Screens offer and check.
namespace tarvoni::suite {
namespace {

// The active rows of the set that a column of the client's row names.
SqlText ClientSet(const SqlText& table, const StatementValues& values) {
  return Compose(R"(
{} WHERE ISNULL({}.DISABLE,0) = 0
  AND {}.TABLE_NAME IN (SELECT {} FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 table, table, table, table, values.Key(0));
}

SqlText CostCentres(const StatementValues& values) {
  return ClientSet("KOSTENSTELLE", values);
}

SqlText CostObjects(const StatementValues& values) {
  return ClientSet("OBJEKT", values);
}

SqlText Products(const StatementValues& values) {
  return ClientSet("PRODUKT", values);
}

SqlText Methods(const StatementValues& values) {
  return Compose("{} AND ID_LEISTUNGSART = {}", ClientSet("VERFAHREN", values), values.Key(1));
}

// Of one client, or of all where the condition names a product, which belongs to one anyway.
SqlText WorkTypes(const StatementValues& values) {
  if (values.Has(0)) return ClientSet("LEISTUNGSART", values);
  return "LEISTUNGSART WHERE ISNULL(LEISTUNGSART.DISABLE,0) = 0";
}

SqlText WorkTypesOfCentre(const StatementValues& values) {
  return Compose(R"(
{} AND LEISTUNGSART.PRODUKT_ID = {}
  AND LEISTUNGSART.ID IN (
    SELECT ID_MASTER FROM ONETOMANY
    WHERE RELATION = 'LEISTUNGSART.KOSTENSTELLE_TYP'
      AND ID_SLAVE IN (SELECT ID_KOSTENSTELLE_TYP FROM KOSTENSTELLE WHERE ID = {})))",
                 ClientSet("LEISTUNGSART", values), values.Key(1), values.Key(2));
}

// Closed orders take no more bookings.
SqlText WorkOrders(const StatementValues& values) {
  return Compose(R"(
ARBEITSAUFTRAG_KOPF WHERE ISNULL(ARBEITSAUFTRAG_KOPF.ABGENSCHLOSEN,0) = 0
  AND ARBEITSAUFTRAG_KOPF.PERSONAL_ID = {}
  AND ARBEITSAUFTRAG_KOPF.NAME_FWJ = '{}'
  AND ARBEITSAUFTRAG_KOPF.NAME_REVIER = '{}')",
                 values.Key(0), values.Text(1), values.Text(2));
}

SqlText OrderGroups(const StatementValues& values) {
  return Compose("PA_GRUPPE WHERE ID_PERSONAL = {}", values.Key(0));
}

// A category without a client is everyone's.
SqlText OrderCategories(const StatementValues& values) {
  if (!values.Has(0)) return "T_PA_KATEGORIE WHERE ISNULL(DISABLE,0) = 0";
  return Compose("T_PA_KATEGORIE WHERE ISNULL(DISABLE,0) = 0 AND (ID_PERSONAL IS NULL OR ID_PERSONAL = {})",
                 values.Key(0));
}

SqlText Gangs(const StatementValues& values) {
  return Compose("RELTABLE WHERE ISNULL(DISABLE,0) = 0 AND RELTABLE_ID = {}", values.Key(0));
}

// A work type without links allows every species.
SqlText SpeciesOfWorkType(const StatementValues& values) {
  const SqlText link =
      Compose("SELECT ID_SLAVE FROM ONETOMANY WHERE RELATION = 'LEISTUNGSART.HOLZART' AND ID_MASTER = {}",
              values.Key(0));
  return Compose("HOLZART WHERE (HOLZART.ID IN ({}) OR NOT EXISTS({}))", link, link);
}

SqlText MarksOfWorkType(const StatementValues& values) {
  return Compose(R"(
NUTZUNGSART WHERE ISNULL(DISABLE,0) = 0
  AND ID IN (SELECT ID_SLAVE FROM ONETOMANY WHERE RELATION = 'LEISTUNGSART.NUTZUNGSART' AND ID_MASTER = {}))",
                 values.Key(0));
}

SqlText Locations(const StatementValues& values) {
  return Compose("WALDORT WHERE ({} = 0 OR MANDANTEN_ID IS NULL OR MANDANTEN_ID = {})", values.Key(0),
                 values.Key(0));
}

// Above each: the values that it takes.
const auto kLists = std::to_array<CodeList>({
    // The client.
    {.stem = "KOSTENSTELLE",
     .rows = CostCentres,
     .code = "NUMBER",
     .name = "NAME",
     .checked_name = "NAME",
     .kind = CodeKind::kNumber,
     .values = {1, 1}},
    {.stem = "PRODUKT",
     .rows = Products,
     .code = "NUMBER",
     .name = "NAME",
     .checked_name = "NAME",
     .kind = CodeKind::kNumber,
     .values = {1, 1}},
    {.stem = "PA_GRUPPE",
     .rows = OrderGroups,
     .code = "BEZEICHNUNG",
     .code_heading = "BEZEICHNUNG",
     .name = "BESCHREIBUNG",
     .checked_name = "BESCHREIBUNG",
     .further = ",PA_NUMMER AS NUMMER,FWJ",
     .values = {1, 1}},
    // The client, and an empty value that may be left out.
    {.stem = "OBJEKT",
     .rows = CostObjects,
     .code = "NUMBER",
     .name = "NAME",
     .kind = CodeKind::kNumber,
     .values = {1, 2}},
    // The client and the work type.
    {.stem = "VERFAHREN_LEISTUNGSART",
     .rows = Methods,
     .code = "NUMBER",
     .name = "NAME",
     .kind = CodeKind::kNumber,
     .values = {2, 2}},
    // The client, which may be left out, and a condition on LEISTUNGSART.
    {.stem = "LEISTUNGSART_PRODUKT",
     .rows = WorkTypes,
     .id = "LEISTUNGSART.ID",
     .code = "LEISTUNGSART.NUMBER",
     .name = "LEISTUNGSART.NAME",
     .kind = CodeKind::kNumber,
     .values = {0, 1},
     .takes_condition = true},
    // The client, the product and the cost centre, both by id.
    {.stem = "LEISTUNGSART_PRODUKT_KOSTENSTELLE",
     .check_suffix = {},
     .rows = WorkTypesOfCentre,
     .code = "LEISTUNGSART.NUMBER",
     .name = "LEISTUNGSART.NAME",
     .values = {3, 3}},
    // The client, the forest year, the number of the cost centre, and a condition on ARBEITSAUFTRAG_KOPF. The code is
    // the end of the name.
    {.stem = "PA_KOPF",
     .rows = WorkOrders,
     .code = "RIGHT(ARBEITSAUFTRAG_KOPF.NAME,4)",
     .name = "ARBEITSAUFTRAG_KOPF.NAME",
     .checked_name = "NAME",
     .further = R"(
  ,(SELECT PRODUKT.NAME FROM PRODUKT WHERE PRODUKT.ID = ARBEITSAUFTRAG_KOPF.PRODUKT_ID) AS PRODUKT,BESCHREIBUNG)",
     .width = 4,
     .values = {3, 3},
     .takes_condition = true},
    // The client, which may be left out.
    {.stem = "T_PA_KATEGORIE",
     .rows = OrderCategories,
     .code = "NUMMER",
     .name = "[LONG]",
     .further = ",PA_NUMMER_VON AS VON,PA_NUMMER_BIS AS BIS",
     .values = {0, 1}},
    {.stem = "T_KATEGORIE",
     .fixed_rows = "T_KATEGORIE WHERE ISNULL(DISABLE,0) = 0",
     .code = "NUMMER",
     .name = "[LONG]",
     .values = {0, 1}},
    // RELTABLE_ID of the gangs.
    {.stem = "RELTABLES",
     .rows = Gangs,
     .code = "KURZNAME",
     .name = "LANGNAME",
     .width = 3,
     .values = {1, 1}},
    // A condition on PERSONAL.
    {.stem = "PERSONAL",
     .offer_suffix = "_GRID_ARBEITER",
     .check_suffix = "_VALID_ARBEITER",
     .fixed_rows = "PERSONAL WHERE ISNULL(PERSONAL.DISABLE,0) = 0 AND ISNULL(PERSONAL.MANDANTEN,0) = 0",
     .id = "PERSONAL.ID_PERSONAL",
     .code = "PERSONAL.NUMMER",
     .name = "PERSONAL.KURZBEZEICHNUNG",
     .checked_name = "KURZBEZEICHNUNG",
     .kind = CodeKind::kNumber,
     .takes_condition = true},
    // The work type.
    {.stem = "HOLZART_LEISTUNGSART",
     .rows = SpeciesOfWorkType,
     .code = "HA",
     .code_heading = "HA",
     .name = "HA_LANG",
     .checked_name = "HA_LANG",
     .values = {1, 1}},
    {.stem = "NUTZUNGSART_LEISTUNGSART",
     .rows = MarksOfWorkType,
     .code = "NA",
     .code_heading = "NA",
     .name = "NA_LANG",
     .checked_name = "NA_LANG",
     .values = {1, 1}},
    // The client, 0 for all of them.
    {.stem = "WALDORT",
     .offer_suffix = {},
     .rows = Locations,
     .id = "ID_WALDORT",
     .code = kLocationPath,
     .code_heading = "WALDORT",
     .name = "LANGNAME",
     .checked_name = "LANGNAME",
     .kind = CodeKind::kPath,
     .values = {1, 1}},
    // No values.
    {.stem = "LEISTUNG",
     .fixed_rows = R"(
RELTABLE WHERE ISNULL(DISABLE,0) = 0
  AND RELTABLE_ID IN (SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'STANDARD_LEISTUNG'))",
     .code = "KURZNAME",
     .code_heading = "KURZ",
     .name = "LANGNAME",
     .checked_name = "LANGNAME"},
    {.stem = "SONDERMERKMAL",
     .fixed_rows = "SONDERMERKMAL WHERE ISNULL(DISABLE,0) = 0",
     .code = "NUMMER",
     .name = "NAME"},
    {.stem = "BZT",
     .fixed_rows = "BZT WHERE 1 = 1",
     .code = "NUMBER",
     .name = "BZT_LANG",
     .further = ",BZT_SHORT AS KURZ"},
    {.stem = "BUNDESLAND",
     .fixed_rows = "T_BUNDESLAND WHERE 1 = 1",
     .code = "SHORT",
     .code_heading = "KURZ",
     .name = "[LONG]"},
    {.stem = "BAUM_HERK_GEB",
     .fixed_rows = "T_BAUM_HERK_GEB WHERE 1 = 1",
     .code = "SHORT",
     .code_heading = "KURZ",
     .name = "[LONG]"},
    {.stem = "HERK_KATEGORIE",
     .fixed_rows = "T_HERK_KATEGORIE WHERE 1 = 1",
     .code = "SHORT",
     .code_heading = "KURZ",
     .name = "[LONG]"},
    {.stem = "MWST",
     .fixed_rows = "MWST WHERE 1 = 1",
     .code = "SHORT",
     .code_heading = "KURZ",
     .name = "[LONG]"},
    {.stem = "WARENEINHEIT",
     .fixed_rows = "WARENEINHEIT WHERE 1 = 1",
     .id = "EINHEIT_ID",
     .code = "EINHEIT",
     .code_heading = "EINHEIT",
     .name = "BESCHREIBUNG"},
    // What a wage order keeps of its wage reason is ID_STRING, what a log keeps of a mark is its short name.
    {.stem = "LOHNGRUND",
     .fixed_rows = "STAMM_TABELLEN WHERE ISNULL(DISABLE,0) = 0 AND LABEL_GROUP = 'LOHNGRUND'",
     .id = "ID_STRING",
     .code = "SHORTNAME",
     .code_heading = "KURZ",
     .name = "LONGNAME"},
    {.stem = "EST",
     .check_suffix = "_LOGS_VALID",
     .fixed_rows = "STAMM_TABELLEN WHERE ISNULL(DISABLE,0) = 0 AND LABEL_GROUP = 'EST'",
     .id = "SHORTNAME",
     .code = "SHORTNAME",
     .code_heading = "KURZ",
     .name = "LONGNAME"},
    {.stem = "MEFVERF",
     .check_suffix = "_LOGS_VALID",
     .fixed_rows = "STAMM_TABELLEN WHERE ISNULL(DISABLE,0) = 0 AND LABEL_GROUP = 'MEFVERF'",
     .id = "SHORTNAME",
     .code = "SHORTNAME",
     .code_heading = "KURZ",
     .name = "LONGNAME"},
    {.stem = "RUCKE",
     .check_suffix = "_LOGS_VALID",
     .fixed_rows = "STAMM_TABELLEN WHERE ISNULL(DISABLE,0) = 0 AND LABEL_GROUP = 'RUCKE'",
     .id = "SHORTNAME",
     .code = "SHORTNAME",
     .code_heading = "KURZ",
     .name = "LONGNAME"},
});

}  // namespace

std::span<const CodeList> CodeLists() {
  return kLists;
}

}  // namespace tarvoni::suite
