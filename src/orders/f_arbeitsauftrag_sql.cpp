#include "src/orders/f_arbeitsauftrag_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::work_order_sql {
namespace {

// What an order's and a plan's list have in common: the numbers behind the ids, then the position's own columns.
SqlText Codes(const SqlText& table) {
  return Compose(R"(
(SELECT NUMBER FROM KOSTENSTELLE WHERE KOSTENSTELLE.ID = {}.KOSTENSTELLE_ID),
  (SELECT NUMBER FROM OBJEKT WHERE OBJEKT.ID = {}.OBJEKT_ID),
  (SELECT NUMBER FROM LEISTUNGSART WHERE LEISTUNGSART.ID = {}.LEISTUNGSART_ID) AS LEISTUNGSART,
  (SELECT NUMBER FROM VERFAHREN WHERE VERFAHREN.ID = {}.VERFAHREN_ID) AS VERFAHREN,
  (SELECT NUMBER FROM KOSTENART WHERE KOSTENART.ID = {}.KOSTENART_ID),
  FLAECHE, MENGE, KOSTEN, GESAMT, STUNDEN, MAS, HOLZART_ID, HSGR, ERLOS, WO_ID,
  (SELECT (CASE WHEN ISNULL(FLACHE,0)=0 THEN 1 ELSE 0 END) FROM LEISTUNGSART
   WHERE LEISTUNGSART.ID = {}.LEISTUNGSART_ID) AS PRO_MENGE,
  EINH_ID, EURO, T_FREI1, T_FREI2, T_FREI3, T_FREI4, T_FREI5,
  N_FREI1, N_FREI2, N_FREI3, N_FREI4, N_FREI5, ASTUNG, ZAUNSCHUTZ,
  KOSTENSTELLE_ID, OBJEKT_ID, LEISTUNGSART_ID, VERFAHREN_ID, KOSTENART_ID,
  LEISTUNG,(SELECT RELTABLE.KURZNAME FROM RELTABLE WHERE ID = {}.LEISTUNG) AS RELTABLEKURZNAME,
  (SELECT RELTABLE.LANGNAME FROM RELTABLE WHERE ID = {}.LEISTUNG) AS RELTABLELANGNAME,
  SONDERMERKMAL_ID)",
                 table, table, table, table, table, table, table, table);
}

}  // namespace

// --- head ---

SqlText OrderHeader(std::int32_t header) {
  return Compose(R"(
SELECT ARBEITSAUFTRAG_KOPF.NAME,DATUM,FWJ,FORSTAMT,ABGENSCHLOSEN,PRODUKT_ID,
  PRODUKT.NUMBER AS PRODUKTN,PRODUKT.NAME AS PRODUKTT, BESCHREIBUNG,ID_SONDERMERKMAL,
  SONDERMERKMAL.NUMMER AS SONDERMERKMALNUMMER
FROM ARBEITSAUFTRAG_KOPF
LEFT JOIN PRODUKT ON ARBEITSAUFTRAG_KOPF.PRODUKT_ID = PRODUKT.ID
LEFT JOIN SONDERMERKMAL ON ARBEITSAUFTRAG_KOPF.ID_SONDERMERKMAL = SONDERMERKMAL.ID
WHERE ARBEITSAUFTRAG_KOPF.ID = {})",
                 Id(header));
}

SqlText PlanHeader(std::int32_t header) {
  return Compose(R"(
SELECT ARBEITSAUFTRAG_KOPF_PLANN.NAME, DATUM, FWJ, FORSTAMT , PLANUNG_LANG, PRODUKT_ID,
  PRODUKT.NUMBER AS PRODUKTN, PRODUKT.NAME AS PRODUKTT, BESCHREIBUNG
FROM ARBEITSAUFTRAG_KOPF_PLANN
LEFT JOIN PRODUKT ON ARBEITSAUFTRAG_KOPF_PLANN.PRODUKT_ID = PRODUKT.ID
WHERE ARBEITSAUFTRAG_KOPF_PLANN.ID = {})",
                 Id(header));
}

SqlText IsClosed(std::int32_t header) {
  return Compose("SELECT ISNULL(ABGENSCHLOSEN,0) FROM ARBEITSAUFTRAG_KOPF WHERE ID = {}", Id(header));
}

SqlText PlanExists(std::int32_t header) {
  return Compose("SELECT ID FROM ARBEITSAUFTRAG_KOPF_PLANN WHERE ID = {}", Id(header));
}

SqlText OfficeList(std::int32_t standard_office) {
  return Compose("SELECT RELTABLE_ID FROM RELTABLE WHERE ID = {}", Id(standard_office));
}

SqlText Offices(std::int32_t list) {
  return Compose("SELECT ID, KURZNAME FROM RELTABLE WHERE RELTABLE_ID = {}", Id(list));
}

SqlText EuroFactor() {
  return "SELECT DOUBLE_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'UFAKTNAT_EURO'";
}

SqlText AllColumns(const std::string& table) {
  return Compose("SELECT * FROM {}", Name(table));
}

// --- plans ---

SqlText PlanOfName(std::int32_t client, std::string_view name) {
  return Compose("SELECT NAME FROM ARBEITSAUFTRAG_KOPF_PLANN WHERE NAME = '{}' AND PERSONAL_ID = {}",
                 Quoted(name), Id(client));
}

SqlText InsertPlan(std::int32_t client, std::string_view name) {
  return Compose("INSERT INTO ARBEITSAUFTRAG_KOPF_PLANN (NAME, PERSONAL_ID) VALUES ('{}', {})", Quoted(name),
                 Id(client));
}

SqlText NewestPlan() {
  return "SELECT MAX(ID) FROM ARBEITSAUFTRAG_KOPF_PLANN";
}

SqlText PlansOfProduct(std::int32_t client, std::int32_t product) {
  return Compose(R"(
SELECT DISTINCT NAME,ID
FROM ARBEITSAUFTRAG_KOPF_PLANN
WHERE PERSONAL_ID = {} AND PRODUKT_ID = {} AND NAME IS NOT NULL
ORDER BY NAME)",
                 Id(client), Id(product));
}

SqlText PlannedHeader(std::int32_t client, std::int32_t plan) {
  return Compose(R"(
SELECT FWJ, FORSTAMT , PRODUKT_ID, PRODUKT.NUMBER AS PRODUKTN, PRODUKT.NAME AS PRODUKTT, BESCHREIBUNG
FROM ARBEITSAUFTRAG_KOPF_PLANN
LEFT JOIN PRODUKT ON ARBEITSAUFTRAG_KOPF_PLANN.PRODUKT_ID = PRODUKT.ID
WHERE ARBEITSAUFTRAG_KOPF_PLANN.ID = '{}' AND PERSONAL_ID = {})",
                 Quoted(std::to_string(plan)), Id(client));
}

SqlText PlannedPosition(std::int32_t plan) {
  return Compose(R"(
SELECT (SELECT NUMBER FROM KOSTENSTELLE WHERE KOSTENSTELLE.ID = KOSTENSTELLE_ID),
  (SELECT NUMBER FROM OBJEKT WHERE OBJEKT.ID = OBJEKT_ID),
  (SELECT NUMBER FROM LEISTUNGSART WHERE LEISTUNGSART.ID = LEISTUNGSART_ID) AS LEISTUNGSART,
  (SELECT NUMBER FROM VERFAHREN WHERE VERFAHREN.ID = VERFAHREN_ID) AS VERFAHREN,
  (SELECT NUMBER FROM KOSTENART WHERE KOSTENART.ID = KOSTENART_ID),
  FLAECHE,MENGE,KOSTEN,GESAMT,STUNDEN,MAS,HOLZART_ID,HSGR,ERLOS,WO_ID,PRO_MENGE,EINH_ID, EURO,
  T_FREI1, T_FREI2, T_FREI3, T_FREI4, T_FREI5, N_FREI1, N_FREI2, N_FREI3, N_FREI4, N_FREI5,
  ASTUNG, ZAUNSCHUTZ, KOSTENSTELLE_ID, OBJEKT_ID, LEISTUNGSART_ID, VERFAHREN_ID, KOSTENART_ID,
  LEISTUNG,(SELECT RELTABLE.KURZNAME FROM RELTABLE
            WHERE ID = ARBEITSAUFTRAG_PLANN.LEISTUNG) AS RELTABLEKURZNAME,
  (SELECT RELTABLE.LANGNAME FROM RELTABLE WHERE ID = ARBEITSAUFTRAG_PLANN.LEISTUNG) AS RELTABLELANGNAME,
  ID,DATUM_NR
FROM ARBEITSAUFTRAG_PLANN
WHERE AA_PLANN_ID = '{}')",
                 Quoted(std::to_string(plan)));
}

SqlText PositionsOfPlan(std::int32_t header) {
  return Compose("SELECT ID  FROM ARBEITSAUFTRAG_PLANN WHERE AA_PLANN_ID = {}", Id(header));
}

SqlText DeletePlan(std::int32_t header) {
  return Compose("DELETE FROM ARBEITSAUFTRAG_KOPF_PLANN WHERE ID = {}", Id(header));
}

// --- positions ---

SqlText OrderPositions(std::int32_t header) {
  return Compose(R"(
SELECT (CASE WHEN ARBEITSAUFTRAG.STORNODATUM IS NULL THEN ' ' ELSE 'S' END) AS STATUS, ORDERS, DATUM_NR,
  {},
  (SELECT NUMMER FROM SONDERMERKMAL WHERE ID = ARBEITSAUFTRAG.SONDERMERKMAL_ID) AS SONDERMERKMALNUMMER,
  (SELECT NAME FROM SONDERMERKMAL WHERE ID = ARBEITSAUFTRAG.SONDERMERKMAL_ID) AS SONDERMERKMALNAME,
  PLANUNG_ID, ID, BELEGE_ID,QUELLE
FROM ARBEITSAUFTRAG
WHERE ARBEITSAUFTRAG_KOPF_ID = {})",
                 Codes("ARBEITSAUFTRAG"), Id(header));
}

SqlText PlanPositions(std::int32_t header) {
  return Compose(R"(
SELECT ID, DATUM_NR,
  {},NULL AS SONDERMERKMALNUMMER,NULL AS SONDERMERKMALNAME, ID,'' AS STATUS,'' AS QUELLE
FROM ARBEITSAUFTRAG_PLANN
WHERE AA_PLANN_ID = {})",
                 Codes("ARBEITSAUFTRAG_PLANN"), Id(header));
}

SqlText NextOrders(std::int32_t header) {
  return Compose("SELECT MAX(ORDERS)+1 FROM ARBEITSAUFTRAG WHERE ARBEITSAUFTRAG_KOPF_ID = {}", Id(header));
}

SqlText InsertPosition(std::int32_t header, std::int32_t orders) {
  return Compose("INSERT INTO ARBEITSAUFTRAG (ORDERS,ARBEITSAUFTRAG_KOPF_ID) VALUES ({},{})", Id(orders),
                 Id(header));
}

SqlText InsertPlanPosition(std::int32_t header) {
  return Compose("INSERT INTO ARBEITSAUFTRAG_PLANN (AA_PLANN_ID) VALUES ('{}')",
                 Quoted(std::to_string(header)));
}

SqlText NewestPosition(const std::string& table) {
  return Compose("SELECT IDENT_CURRENT('{}')", Quoted(table));
}

SqlText DeletePosition(const std::string& table, std::int32_t position) {
  return Compose("DELETE FROM {} WHERE ID = {}", Name(table), Id(position));
}

SqlText CancelPosition(std::int32_t position, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE ID = {}", DateOrNull(day, sql_date_format),
                 Id(position));
}

SqlText CancelPlanPosition(std::int32_t position) {
  return Compose("UPDATE ARBEITSAUFTRAG_PLANN SET STORNO = 1 WHERE ID = {}", Id(position));
}

SqlText LogsOfPosition(std::int32_t position, std::int32_t client) {
  return Compose("SELECT * FROM LOGS WHERE AA_ID={} AND MANDANTEN_ID = {}", Id(position), Id(client));
}

// --- codes ---

SqlText FindProduct(std::int32_t client, std::string_view number) {
  return Compose(R"(
SELECT PRODUKT.ID,PRODUKT.NAME
FROM PERSONAL,PRODUKT
WHERE PERSONAL.MANDANTEN = 1 AND PERSONAL.ID_PERSONAL = {}
  AND PERSONAL.PRODUKT = PRODUKT.TABLE_NAME
  AND PRODUKT.NUMBER = {})",
                 Id(client), Number(number));
}

SqlText WorkTypesOf(std::int32_t product) {
  return Compose("LEISTUNGSART.PRODUKT_ID = {}", Id(product));
}

SqlText OnlyMethod(std::int32_t client, std::int32_t activity) {
  return Compose(R"(
SELECT MIN(NUMBER)
FROM VERFAHREN
WHERE ISNULL(DISABLE,0) = 0
  AND TABLE_NAME IN (SELECT VERFAHREN FROM PERSONAL WHERE ID_PERSONAL = {})
  AND ID_LEISTUNGSART = {}
HAVING COUNT(*) = 1)",
                 Id(client), Id(activity));
}

SqlText Species() {
  return "SELECT DISTINCT HA , HA_LANG FROM HOLZART ";
}

SqlText FindSpecies(std::string_view code) {
  return Compose("SELECT ID, HA_LANG FROM HOLZART WHERE HA = '{}'", Quoted(code));
}

SqlText SpeciesCode(std::int32_t id) {
  return Compose("SELECT HA FROM HOLZART WHERE ID = {}", Id(id));
}

SqlText GradeGroups(std::int32_t grouping) {
  const SqlText column = Name("HSGR" + std::to_string(grouping));
  return Compose("SELECT DISTINCT {} FROM HOLZSORTE WHERE {} IS NOT NULL ORDER BY 1", column, column);
}

SqlText CountGradeGroup(std::int32_t grouping, std::string_view code) {
  return Compose("SELECT COUNT(*) FROM HOLZSORTE WHERE {} = '{}'", Name("HSGR" + std::to_string(grouping)),
                 Quoted(code));
}

// --- timber lists and column widths ---

SqlText FreeLists(std::int32_t client) {
  return Compose(R"(
SELECT DISTINCT LOGS.LISTE
FROM LOGS
LEFT JOIN LISTENKOPF ON LOGS.LISTE = LISTENKOPF.LISTE
WHERE LOGS.AA_ID IS NULL AND ISNULL(LISTENKOPF.GESPERRT,0) = 0 AND LOGS.MANDANTEN_ID = {})",
                 Id(client));
}

SqlText StoredWidths() {
  return "SELECT MODEL FROM MODELS WHERE NAME = 'STANDARD' AND RELATION = 'GRID_ARBEITSAUFTRAG'";
}

SqlText UpdateWidths(std::string_view widths) {
  return Compose(R"(
UPDATE MODELS SET MODEL = '{}', STANDARD = 1
WHERE NAME = 'STANDARD' AND RELATION = 'GRID_ARBEITSAUFTRAG')",
                 Quoted(widths));
}

SqlText InsertWidths(std::string_view widths) {
  return Compose(R"(
INSERT INTO MODELS (MODEL,STANDARD,NAME,RELATION) VALUES ('{}',1,'STANDARD','GRID_ARBEITSAUFTRAG'))",
                 Quoted(widths));
}

}  // namespace tarvoni::work_order_sql
