#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"
#include "src/vouchers/f_belege_new_sql.h"

namespace tarvoni::voucher_sql {
namespace {

// `condition` names the rows, `voucher` the one whose amounts are summed.
SqlText Rows(const SqlText& condition, std::int32_t voucher) {
  return Compose(R"(
SELECT (CASE WHEN ARBEITSAUFTRAG.STORNODATUM IS NULL THEN ' ' ELSE 'S' END) AS STATUS,
  (SELECT PRODUKT.NUMBER
   FROM ARBEITSAUFTRAG_KOPF
   INNER JOIN PRODUKT ON ARBEITSAUFTRAG_KOPF.PRODUKT_ID = PRODUKT.ID
   WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG_KOPF_ID) AS PRODUKT_NUMBER,
  (SELECT NAME FROM ARBEITSAUFTRAG_KOPF WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG_KOPF_ID) AS ARBEITSAUFTRAG_NAME,
  ORDERS,
  (SELECT NUMBER FROM LEISTUNGSART WHERE ID = LEISTUNGSART_ID) AS LEISTUNGSART_NUMBER,
  (SELECT NUMBER FROM KOSTENSTELLE WHERE ID = KOSTENSTELLE_ID) AS KOSTENSTELLE_NUMBER,
  (SELECT NUMBER FROM KOSTENART WHERE ID = KOSTENART_ID) AS KOSTENART_NUMBER,
  SONDERMERKMAL_ID,
  (SELECT NUMMER FROM SONDERMERKMAL WHERE ID = ARBEITSAUFTRAG.SONDERMERKMAL_ID) AS SONDERMERKMALNUMMER,
  (SELECT NAME FROM SONDERMERKMAL WHERE ID = ARBEITSAUFTRAG.SONDERMERKMAL_ID) AS SONDERMERKMALNAME,
  (SELECT PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG_KOPF_ID) AS PRODUKT_ID,
  ISNULL((SELECT ISNULL(LEISTUNGSART.ALLOW_HOLZ,0) FROM LEISTUNGSART WHERE ID = LEISTUNGSART_ID),0) AS ALLOW_HOLZ,
  (SELECT ISNULL(ARBEITSAUFTRAG_KOPF.ABGENSCHLOSEN,0)
   FROM ARBEITSAUFTRAG_KOPF
   WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG_KOPF_ID) AS ABGENSCHLOSEN,
  (SELECT SHORT FROM MWST WHERE ID = ID_MWST) AS MWSTSHORT,
  (SELECT SHORT FROM MWST WHERE ID = ID_MWST) AS MWSTLONG,
  (SELECT SUM(ISNULL(GESAMT,0)-ISNULL(ERLOS,0))
   FROM ARBEITSAUFTRAG
   WHERE ARBEITSAUFTRAG.STORNODATUM IS NULL AND ARBEITSAUFTRAG.BELEGE_ID = {}) AS KOSTENMINUSERLOS, *
FROM ARBEITSAUFTRAG
WHERE {}
ORDER BY 1,2,3)",
                 Id(voucher), condition);
}

// Those linked to the activity, or all where it has no link, whose revenue flag its own flags admit.
SqlText FitsActivity(std::int32_t activity) {
  return Compose(R"(
(KOSTENART.ID IN (SELECT ID_MASTER FROM ONETOMANY WHERE RELATION = 'KOSTENART.LEISTUNGSART' AND ID_SLAVE = {})
  OR NOT EXISTS(SELECT TOP 1 ID_MASTER FROM ONETOMANY WHERE RELATION = 'KOSTENART.LEISTUNGSART' AND ID_SLAVE = {}))
AND ISNULL(ERLOSE,0) =
  (CASE (SELECT (CASE WHEN ISNULL(ERLOSE,0)=0
                      THEN (CASE WHEN ISNULL(KOSTEN,0)=0 THEN -1 ELSE 0 END)
                      ELSE (CASE WHEN ISNULL(KOSTEN,0)=0 THEN 1 ELSE 11 END) END)
         FROM LEISTUNGSART
         WHERE ID = {})
   WHEN -1 THEN -1 WHEN  0 THEN 0 WHEN  1 THEN 1 WHEN 11 THEN ISNULL(ERLOSE,0) END))",
                 Id(activity), Id(activity), Id(activity));
}

// What is no number writes NULL.
SqlText NumberIfNumeric(std::string_view typed) {
  return IsNumeric(typed, CurrentLocale()) ? Number(typed) : SqlText("NULL");
}

// ",A,B" for columns of a table that the schema names.
SqlText Further(const std::vector<std::string>& columns) {
  SqlText all;
  for (const std::string& column : columns) all = Compose("{},{}", all, Name(column));
  return all;
}

}  // namespace

SqlText RowsOf(std::int32_t voucher) {
  return Rows(Compose("ARBEITSAUFTRAG.BELEGE_ID = {}", Id(voucher)), voucher);
}

SqlText NoRows() {
  return Rows("ARBEITSAUFTRAG.ID = 0", 0);
}

SqlText ProductsOf(std::int32_t client) {
  return Compose(R"(
SELECT NUMBER, NAME
FROM PRODUKT
WHERE ISNULL(DISABLE,0)=0 AND TABLE_NAME IN (SELECT PRODUKT FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 Id(client));
}

SqlText FindProduct(std::string_view number, std::int32_t client) {
  return Compose(R"(
SELECT ID,NAME
FROM PRODUKT
WHERE NUMBER = {} AND TABLE_NAME IN (SELECT PRODUKT FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 Number(number), Id(client));
}

SqlText NumberOfOrder(std::int32_t header) {
  return Compose(
      "SELECT RIGHT('0000' + RTRIM(CAST(NAME_NUMMER AS CHAR(4))),4) FROM ARBEITSAUFTRAG_KOPF WHERE ID = {}",
      Id(header));
}

SqlText FeatureOfOrder(std::string_view header) {
  return Compose(R"(
SELECT SONDERMERKMAL.NUMMER AS SM
FROM ARBEITSAUFTRAG_KOPF
LEFT JOIN SONDERMERKMAL ON SONDERMERKMAL.ID = ARBEITSAUFTRAG_KOPF.ID_SONDERMERKMAL
WHERE ARBEITSAUFTRAG_KOPF.ID = {})",
                 Id(header));
}

SqlText CostTypes(std::int32_t client, std::int32_t activity) {
  return Compose(R"(
SELECT NUMBER,NAME
FROM KOSTENART
WHERE TABLE_NAME IN (SELECT KOSTENART FROM PERSONAL WHERE ID_PERSONAL = {}) AND {})",
                 Id(client), FitsActivity(activity));
}

SqlText FindCostType(std::string_view number, std::int32_t client, std::int32_t activity) {
  return Compose(R"(
SELECT ID,NAME,ISNULL(ERLOSE,0) AS ERLOSE
FROM KOSTENART
WHERE ISNULL(DISABLE,0) = 0 AND NUMBER = '{}'
  AND TABLE_NAME IN (SELECT KOSTENART FROM PERSONAL WHERE ID_PERSONAL = {}) AND {})",
                 Quoted(number), Id(client), FitsActivity(activity));
}

SqlText CostType(std::int32_t id) {
  return Compose("SELECT NAME,ISNULL(ERLOSE,0) AS ERLOSE FROM KOSTENART WHERE ID = {}", Id(id));
}

SqlText HighestOrders(std::string_view header) {
  return Compose("SELECT ISNULL(MAX(ORDERS),0) FROM ARBEITSAUFTRAG WHERE ARBEITSAUFTRAG_KOPF_ID = {}",
                 Id(header));
}

SqlText InsertRow(const Row& row, std::string_view sql_date_format) {
  return Compose(R"(
INSERT INTO ARBEITSAUFTRAG (ARBEITSAUFTRAG_KOPF_ID,BELEGE_ID,ORDERS,LEISTUNGSART_ID,KOSTENSTELLE_ID,KOSTENART_ID,
  SONDERMERKMAL_ID,KOSTEN,WO_ID,FLAECHE,MENGE,PRO_MENGE,EINH_ID,EURO,GESAMT,ASTUNG,ERLOS,DATUM_NR,STUNDEN,MAS,ID_MWST)
VALUES ({},{},{},{},{},{},{},{},{},{},{},{},{},{},{},NULL,{},{},{},{},{}))",
                 Id(row.header), Id(row.voucher), Id(row.orders), IdOrNull(row.activity),
                 IdOrNull(row.cost_centre), IdOrNull(row.cost_type), IdOrNull(row.feature),
                 NumberIfNumeric(row.unit_cost), IdOrNull(row.location), NumberIfNumeric(row.area),
                 NumberIfNumeric(row.quantity), Flag(row.by_quantity),
                 row.unit ? Id(*row.unit) : SqlText("NULL"), Flag(row.euro), NumberIfNumeric(row.cost),
                 NumberIfNumeric(row.revenue), DateOrNull(row.day, sql_date_format),
                 NumberIfNumeric(row.hours), NumberIfNumeric(row.machine_hours), IdOrNull(row.vat));
}

SqlText LastRow() {
  return "SELECT ISNULL(IDENT_CURRENT('ARBEITSAUFTRAG'),0)";
}

SqlText DrawnAndStocked(std::int32_t client, std::int32_t stores_position) {
  return Compose(R"(
SELECT ISNULL(SUM(ARBEITSAUFTRAG.MENGE),0),
  (SELECT ISNULL(LAGER_POS.MENGE,0) FROM LAGER_POS WHERE LAGER_POS.ID = {})
FROM ARBEITSAUFTRAG_KOPF
INNER JOIN ARBEITSAUFTRAG ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
INNER JOIN BELEGE ON ARBEITSAUFTRAG.BELEGE_ID = BELEGE.ID
WHERE ARBEITSAUFTRAG_KOPF.PERSONAL_ID = {} AND BELEGE.POS_ID = {} AND ISNULL(BELEGE.STORNO,0) = 0)",
                 Id(stores_position), Id(client), Id(stores_position));
}

SqlText StoresPosition(std::int32_t stores_position) {
  return Compose("SELECT EINH_ID,GESAMT,ISNULL(EURO,0) AS EURO FROM LAGER_POS WHERE LAGER_POS.ID = {}",
                 Id(stores_position));
}

SqlText FreeTimberLists(std::int32_t client, std::int32_t cost_centre) {
  return Compose(R"(
SELECT DISTINCT LOGS.LISTE
FROM LISTENKOPF
INNER JOIN LOGS ON LOGS.LISTE = LISTENKOPF.LISTE
INNER JOIN RELTABLE ON RELTABLE.ID = LOGS.RELTABLE2 AND RELTABLE.ID_KOSTENSTELLE = {}
INNER JOIN RELTABLE RELTABLE3 ON RELTABLE3.ID = LOGS.RELTABLE3 AND RELTABLE3.GRUPPE IS NULL
WHERE LISTENKOPF.LISTE IN (SELECT LISTE FROM LOGS GROUP BY LISTE HAVING MAX(LOGS.AA_ID) IS NULL)
  AND ISNULL(LISTENKOPF.GESPERRT,0) = 0 AND ISNULL(LISTENKOPF.ID_ARA_KOPF,0) = 0
  AND LOGS.MANDANTEN_ID = {} AND ISNULL(LISTENKOPF.ID_ARBEITSAUFTRAG_KOPF,0) = 0 AND LOGS.ZUGANG = 'HE')",
                 Id(cost_centre), Id(client));
}

SqlText NaturalExecutionMoves(std::int32_t from, std::int32_t to) {
  return Compose(R"(
SELECT
  (SELECT TOP 1 ARBEITSAUFTRAG.ID
   FROM ARBEITSAUFTRAG
   INNER JOIN NATURALVOLLZUG_KLR ON NATURALVOLLZUG_KLR.ID_ARBEITSAUFTRAG = ARBEITSAUFTRAG.ID AND ARBEITSAUFTRAG.ID = {}
     AND (ISNULL(ARBEITSAUFTRAG.FLAECHE,0)<>0 OR ISNULL(ARBEITSAUFTRAG.MENGE,0) <> 0)
   INNER JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID AND LEISTUNGSART.NV_KLR = 1),
  (SELECT (CASE WHEN ISNULL(B.HOLZART_ID,0) <> ISNULL(ARBEITSAUFTRAG.HOLZART_ID,0) THEN NULL ELSE ARBEITSAUFTRAG.ID END)
   FROM ARBEITSAUFTRAG
   INNER JOIN (SELECT ID_VM FROM NATURALVOLLZUG_KLR WHERE ID_ARBEITSAUFTRAG = {}) A ON 1=1
   INNER JOIN (SELECT HOLZART_ID FROM ARBEITSAUFTRAG WHERE ID = {}) B ON 1=1
   INNER JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID AND ARBEITSAUFTRAG.ID = {}
     AND LEISTUNGSART.NV_KLR = 1
     AND (ISNULL(ARBEITSAUFTRAG.FLAECHE,0) <> 0 OR ISNULL(ARBEITSAUFTRAG.MENGE,0) <> 0)
   INNER JOIN ONETOMANY ON ONETOMANY.ID_MASTER = ARBEITSAUFTRAG.LEISTUNGSART_ID
     AND ONETOMANY.RELATION = 'LEISTUNGSART.NUTZUNGSART' AND ONETOMANY.ID_SLAVE = A.ID_VM))",
                 Id(from), Id(from), Id(from), Id(to));
}

SqlText ColumnsOf(std::string_view table) {
  return Compose("SELECT TOP 0 * FROM {}", Name(table));
}

SqlText CopyNaturalExecution(std::int32_t from, std::int32_t to, const std::vector<std::string>& columns) {
  const SqlText further = Further(columns);
  return Compose(R"(
INSERT INTO NATURALVOLLZUG_KLR (ID_ARBEITSAUFTRAG{})
SELECT {}{}
FROM NATURALVOLLZUG_KLR
WHERE ID_ARBEITSAUFTRAG = {})",
                 further, Id(to), further, Id(from));
}

SqlText CopyLocations(std::int32_t from, std::int32_t to, const std::vector<std::string>& columns) {
  const SqlText further = Further(columns);
  return Compose(R"(
INSERT INTO NATURALVOLLZUG_KLR_WALDORT (ID_NATURALVOLLZUG_KLR{})
SELECT KOPF.ID{}
FROM NATURALVOLLZUG_KLR_WALDORT
LEFT JOIN (SELECT MAX(ID) AS ID FROM NATURALVOLLZUG_KLR WHERE ID_ARBEITSAUFTRAG = {}) KOPF ON 1=1
WHERE ID_NATURALVOLLZUG_KLR IN (SELECT ID FROM NATURALVOLLZUG_KLR WHERE ID_ARBEITSAUFTRAG = {}))",
                 further, further, Id(to), Id(from));
}

}  // namespace tarvoni::voucher_sql
