#include "src/stores/f_positionen_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"

namespace tarvoni::positionen_sql {
namespace {

// The stock of a row of LAGER_POS.
constexpr SqlText kRest = R"(
(ISNULL(MENGE,0)
 -ISNULL((SELECT SUM(LAGERMENGE)
          FROM ARBEITSAUFTRAG
          WHERE ARBEITSAUFTRAG.STORNODATUM IS NULL AND ID_LAGER_POS = LAGER_POS.ID),0)) AS REST)";

SqlText CostTypeOfClient(std::int32_t client) {
  return Compose(R"(
ISNULL(DISABLE,0)=0 AND ISNULL(ERLOSE,0) = 0
  AND TABLE_NAME IN (SELECT KOSTENART FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 Id(client));
}

SqlText MethodOfWorkType(std::int32_t client, std::string_view work_type_tag) {
  return Compose(R"(
ISNULL(DISABLE,0)=0
  AND TABLE_NAME IN (SELECT VERFAHREN FROM PERSONAL WHERE ID_PERSONAL = {})
  AND ID_LEISTUNGSART = 0{})",
                 Id(client), Digits(work_type_tag));
}

}  // namespace

SqlText PositionsOf(std::int32_t document, std::string_view local_currency) {
  return Compose(R"(
SELECT ID,KOSTENE,(CASE EURO WHEN 1 THEN 'EUR' ELSE '{}' END) AS EURO,MENGE,
  (SELECT EINHEIT FROM WARENEINHEIT WHERE EINH_ID = EINHEIT_ID) AS EINHEIT,
  BEZEICHNUNG,GESAMT,
  {}
FROM LAGER_POS
WHERE LAGER_ID = {})",
                 Quoted(local_currency), kRest, Id(document));
}

SqlText InsertPosition(std::int32_t document) {
  return Compose("INSERT INTO LAGER_POS (LAGER_ID) VALUES ({})", Id(document));
}

SqlText LastPosition() {
  return "SELECT MAX(ID) FROM LAGER_POS";
}

SqlText DeletePosition(std::int32_t position) {
  return Compose("DELETE FROM LAGER_POS WHERE ID = {}", Id(position));
}

SqlText StockOf(std::int32_t position) {
  return Compose("SELECT {} FROM LAGER_POS WHERE ID = {}", kRest, Id(position));
}

SqlText WithdrawalsOf(std::int32_t position) {
  return Compose(R"(
SELECT ARBEITSAUFTRAG.ID,
  (CASE WHEN ARBEITSAUFTRAG.STORNODATUM IS NULL THEN ' ' ELSE 'S' END) AS STATUS,
  ARBEITSAUFTRAG.BELEGNUNMMER,
  KOSTENSTELLE.ID AS KOSTENSTELLEID,KOSTENSTELLE.NUMBER AS KOSTENSTELLENUMBER,
  KOSTENSTELLE.NAME AS KOSTENSTELLENAME,
  ARBEITSAUFTRAG_KOPF.ID AS ARBEITSAUFTRAG_KOPFID,ARBEITSAUFTRAG_KOPF.NAME AS ARBEITSAUFTRAG_KOPFNAME,
  LEISTUNGSART.ID AS LEISTUNGSARTID,LEISTUNGSART.NUMBER AS LEISTUNGSARTNUMBER,
  LEISTUNGSART.NAME AS LEISTUNGSARTNAME,
  VERFAHREN.ID AS VERFAHRENID,VERFAHREN.NUMBER AS VERFAHRENNUMBER,VERFAHREN.NAME AS VERFAHRENNAME,
  KOSTENART.ID AS KOSTENARTID,KOSTENART.NUMBER AS KOSTENARTNUMBER,KOSTENART.NAME AS KOSTENARTNAME,
  OBJEKT.ID AS OBJEKTID,OBJEKT.NUMBER AS OBJEKTNUMBER,OBJEKT.NAME AS OBJEKTNAME,
  WALDORT.ID_WALDORT,
  {} AS WALDORT,
  ARBEITSAUFTRAG.MENGE,
  WARENEINHEIT.EINHEIT_ID AS WARENEINHEITEINHEIT_ID,WARENEINHEIT.EINHEIT AS WARENEINHEITEINHEIT,
  ARBEITSAUFTRAG.LAGERMENGE,
  GESAMT AS GESAMTKOSTEN
FROM ARBEITSAUFTRAG
LEFT JOIN KOSTENSTELLE ON KOSTENSTELLE.ID = ARBEITSAUFTRAG.KOSTENSTELLE_ID
LEFT JOIN ARBEITSAUFTRAG_KOPF ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID
LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
LEFT JOIN VERFAHREN ON VERFAHREN.ID = ARBEITSAUFTRAG.VERFAHREN_ID
LEFT JOIN KOSTENART ON KOSTENART.ID = ARBEITSAUFTRAG.KOSTENART_ID
LEFT JOIN OBJEKT ON OBJEKT.ID = ARBEITSAUFTRAG.OBJEKT_ID
LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID
WHERE ARBEITSAUFTRAG.ID_LAGER_POS = {})",
                 kLocationPath, Id(position));
}

SqlText InsertWithdrawal(const Withdrawal& withdrawal, std::string_view sql_date_format) {
  return Compose(
      R"(
INSERT INTO ARBEITSAUFTRAG (QUELLE,EURO,ORDERS,DATUM_NR,ID_LAGER_POS,BELEGNUNMMER,KOSTENSTELLE_ID,
  ARBEITSAUFTRAG_KOPF_ID,LEISTUNGSART_ID,VERFAHREN_ID,OBJEKT_ID,KOSTENART_ID,WO_ID,MENGE,PRO_MENGE,KOSTEN,
  EINH_ID,LAGERMENGE,GESAMT)
SELECT 'L',1,0,{},{},'{}',{},{},{},{},{},{},{},{},1,{},
  (SELECT WARENEINHEIT.EINHEIT_ID
   FROM LEISTUNGSART
   LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
   WHERE ID = 0{}),
  {},{})",
      DateOrNull(withdrawal.day, sql_date_format), Id(withdrawal.position), Quoted(withdrawal.slip),
      IdOrNull(withdrawal.cost_centre), IdOrNull(withdrawal.order), IdOrNull(withdrawal.work_type),
      IdOrNull(withdrawal.method), IdOrNull(withdrawal.object), IdOrNull(withdrawal.cost_type),
      IdOrNull(withdrawal.location), NumberOrNull(withdrawal.quantity), NumberOrNull(withdrawal.unit_cost),
      Digits(withdrawal.work_type), NumberOrNull(withdrawal.drawn), NumberOrNull(withdrawal.amount));
}

SqlText LastWithdrawal(std::int32_t position) {
  return Compose("SELECT MAX(ID) FROM ARBEITSAUFTRAG WHERE ID_LAGER_POS = {}", Id(position));
}

SqlText DeleteWithdrawal(std::int32_t withdrawal) {
  return Compose("DELETE FROM ARBEITSAUFTRAG WHERE ID = {}", Id(withdrawal));
}

SqlText CancelWithdrawal(std::int32_t withdrawal, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE ID = {}", DateOrNull(day, sql_date_format),
                 Id(withdrawal));
}

SqlText ProductOfOrder(std::string_view order_tag) {
  return Compose("SELECT PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF WHERE ID = 0{}", Digits(order_tag));
}

SqlText FitsProduct(std::int32_t product) {
  return Compose("LEISTUNGSART.PRODUKT_ID = {}", Id(product));
}

SqlText CostTypes(std::int32_t client) {
  return Compose("SELECT NUMBER , NAME FROM KOSTENART WHERE {}", CostTypeOfClient(client));
}

SqlText FindCostType(std::int32_t client, std::string_view typed) {
  return Compose("SELECT ID,NUMBER,NAME FROM KOSTENART WHERE NUMBER = 0{} AND {}", Digits(typed),
                 CostTypeOfClient(client));
}

SqlText Methods(std::int32_t client, std::string_view work_type_tag) {
  return Compose("SELECT NUMBER,NAME FROM VERFAHREN WHERE {}", MethodOfWorkType(client, work_type_tag));
}

SqlText FindMethod(std::int32_t client, std::string_view work_type_tag, std::string_view typed) {
  return Compose("SELECT ID,NUMBER,NAME FROM VERFAHREN WHERE NUMBER = 0{} AND {}", Digits(typed),
                 MethodOfWorkType(client, work_type_tag));
}

SqlText SingleMethod(std::int32_t client, std::string_view work_type_tag) {
  return Compose("SELECT MIN(NUMBER) FROM VERFAHREN WHERE {} HAVING COUNT(*) = 1",
                 MethodOfWorkType(client, work_type_tag));
}

SqlText UnitOfWorkType(std::string_view work_type_tag) {
  return Compose(R"(
SELECT WARENEINHEIT.EINHEIT,WARENEINHEIT.EINHEIT_ID
FROM LEISTUNGSART
LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
WHERE ID = 0{})",
                 Digits(work_type_tag));
}

}  // namespace tarvoni::positionen_sql
