#include "src/wage/f_ara_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::ara_sql {
namespace {

SqlText Year(const Client& client) {
  return Typed(client.forest_year);
}

// " AND COLUMN = tag", nothing for an empty Tag.
std::string AndIs(const char* column, std::string_view tag) {
  return tag.empty() ? std::string() : Compose(" AND {} = {}", Fragment(column), Id(tag));
}

std::string DirectWageType(int group, const char* option) {
  return Compose(
      "SELECT ID,{} AS TYP FROM LOHNARTEN WHERE ISNULL(DISABLE,0) = 0 AND NUMBER IN (SELECT (CASE WHEN "
      "ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 THEN OPTIONEN.TEXT_VALUE ELSE NULL END) FROM OPTIONEN WHERE "
      "OPTIONEN.PROPERTY_ID IN ('{}'))",
      Number(std::int64_t{group}), Fragment(option));
}

// The column of the positions of the client's orders, for an IN.
std::string PositionsOfClient(const char* column, const Client& client) {
  return Compose(
      "(SELECT ARBEITSAUFTRAG.{}\n"
      " FROM (SELECT '{}' AS FWJ,{} AS PERSONAL_ID) KOPF\n"
      " LEFT JOIN (SELECT * FROM ARA_KOPF) ARA_KOPF ON ARA_KOPF.NAME_FWJ = KOPF.FWJ AND ARA_KOPF.PERSONAL_ID "
      "= "
      "KOPF.PERSONAL_ID\n"
      " LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF",
      Fragment(column), Year(client), Id(client.id));
}

// The services of the orders' groups, from RELTABLE.
const char* const kActiveServices =
    " WHERE ISNULL(DISABLE,0) = 0 AND RELTABLE_ID IN (SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = "
    "'STANDARD_LEISTUNG')";
const char* const kOfOrderGroups = "\n AND GRUPPE IN (SELECT ID FROM BBF_GRUPPE WHERE NUMBER IN (1,2,3))";

std::string IsTimberService(std::string_view service) {
  return Compose(
      "EXISTS(SELECT ID FROM RELTABLE{} AND GRUPPE IN (SELECT ID FROM BBF_GRUPPE WHERE NUMBER=2) AND "
      "KURZNAME = "
      "'{}')",
      Fragment(kActiveServices), Typed(service));
}

std::string HasTimberList(std::int32_t order) {
  return Compose("EXISTS(SELECT LISTE FROM LISTENKOPF WHERE ID_ARA_KOPF = {})", Id(order));
}

}  // namespace

std::string DirectWageTypes() {
  return DirectWageType(1, "ZL_AZ") + "\nUNION ALL\n" + DirectWageType(2, "EST_AZ") + "\nUNION ALL\n" +
         DirectWageType(3, "STUCK_AZ");
}

std::string OrdersOfYear(const Client& client, const std::string& wage_type_case,
                         std::string_view cost_centre, std::string_view work_type) {
  return Compose(
      "SET NOCOUNT ON\n"
      "CREATE TABLE #tmp (ID int)\n"
      "INSERT INTO #tmp (ID) SELECT ID FROM ARA_KOPF WHERE ARA_KOPF.NAME_FWJ = '{}' AND ARA_KOPF.PERSONAL_ID "
      "= "
      "{}\n"
      "SELECT (CASE WHEN ARBEITSAUFTRAG.STORNODATUM IS NULL THEN ' ' ELSE 'S' END) STATUSKOPF,\n"
      "ARA_KOPF.ID AS ID_ARA_KOPF,\n"
      "ARA_KOPF.NAME,PERSONAL.NUMMER AS PERSONALNUMMER,KOPF.FWJ,ARA_KOPF.NAME_NUMMER,\n"
      "ARBEITSAUFTRAG.DATUM_NR,\n"
      "LEISTUNG.ID AS LEISTUNGID,LEISTUNG.KURZNAME AS LEISTUNGKURZNAME,LEISTUNG.LANGNAME AS "
      "LEISTUNGLANGNAME,\n"
      "ISNULL(BBF_GRUPPE.NUMBER,0) AS BBF_GRUPPENUMBER,\n"
      "KOSTENSTELLE.ID AS KOSTENSTELLEID,KOSTENSTELLE.NUMBER AS KOSTENSTELLENUMBER,KOSTENSTELLE.NAME AS "
      "KOSTENSTELLENAME,\n"
      "LEISTUNGSART.ID AS LEISTUNGSARTID,LEISTUNGSART.NUMBER AS LEISTUNGSARTNUMBER,LEISTUNGSART.NAME AS "
      "LEISTUNGSARTNAME,\n"
      "ARBEITSAUFTRAG_KOPF.ID AS ARBEITSAUFTRAG_KOPFID,ARBEITSAUFTRAG_KOPF.NAME AS "
      "ARBEITSAUFTRAG_KOPFNAME,ARBEITSAUFTRAG_KOPF.PRODUKT_ID,\n"
      "WALDORT.ID_WALDORT,ISNULL(WO1,'')+(CASE WHEN WO2 IS NULL THEN '' ELSE '/ '+WO2 END)+(CASE WHEN WO3 IS "
      "NULL THEN '' ELSE '/ '+WO3 END)+(CASE WHEN WO4 IS NULL THEN '' ELSE '/ '+WO4 END)+(CASE WHEN WO5 IS "
      "NULL THEN '' ELSE '/ '+WO5 END)+(CASE WHEN WO6 IS NULL THEN '' ELSE '/ '+WO6 END) AS WALDORT,\n"
      "ARA_KOPF.BESCHREIBUNG,\n"
      "ROTTE.ID AS ROTTEID,ROTTE.KURZNAME AS ROTTESHORT,ROTTE.LANGNAME AS ROTTELONG,\n"
      "ARA_LOHN.FLACHE,\n"
      "(CASE WHEN BBF_GRUPPE.NUMBER = 2 THEN LISTENKOPF.MENGE ELSE ARA_LOHN.MENGE END) AS MENGE,\n"
      "WARENEINHEIT.EINHEIT AS WARENEINHEITEINHEIT,\n"
      "ARA_STUNDEN.STUNDEN,\n"
      "ARA_KOPF.GESAMNT,\n"
      "(CASE WHEN ARA_LOHN.ID_ARA_KOPF IS NOT NULL OR LISTENKOPF.ID_ARA_KOPF IS NOT NULL OR "
      "ARA_STUNDEN.ID_ARA_KOPF IS NOT NULL THEN 1 ELSE 0 END) AS LE,\n"
      "ISNULL((SELECT MAX(JAHR*100+MONAT) FROM LOHNABSCHLUSS WHERE ASCHLUSS_L = 1),0) AS MAXLOHNABSCHLUSS\n"
      " FROM (SELECT '{}' AS FWJ,{} AS PERSONAL_ID) KOPF\n"
      " LEFT JOIN #tmp ON 1=1\n"
      " LEFT JOIN ARA_KOPF ON ARA_KOPF.ID = #tmp.ID\n"
      " LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = KOPF.PERSONAL_ID\n"
      " LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF\n"
      " LEFT JOIN ARBEITSAUFTRAG_KOPF ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID\n"
      " LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG\n"
      " LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE\n"
      " LEFT JOIN KOSTENSTELLE ON KOSTENSTELLE.ID = ARBEITSAUFTRAG.KOSTENSTELLE_ID\n"
      " LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID\n"
      " LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT\n"
      " LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID\n"
      " LEFT JOIN RELTABLE ROTTE ON ROTTE.ID = ARA_KOPF.ID_RELTABLE_ROTTE\n"
      " LEFT JOIN (SELECT ID_ARA_KOPF,SUM(FLACHE) AS FLACHE,SUM(MENGEKLR) AS MENGE FROM ARA_LOHN WHERE "
      "ID_ARA_KOPF IN (SELECT ID FROM #tmp) GROUP BY ID_ARA_KOPF) ARA_LOHN ON ARA_LOHN.ID_ARA_KOPF = "
      "ARA_KOPF.ID\n"
      " LEFT JOIN (SELECT LISTENKOPF.ID_ARA_KOPF,SUM(LOGS.KUBATUR) AS MENGE FROM LISTENKOPF LEFT JOIN LOGS "
      "ON LOGS.LISTE = LISTENKOPF.LISTE WHERE LISTENKOPF.ID_ARA_KOPF IN (SELECT ID FROM #tmp) GROUP BY "
      "LISTENKOPF.ID_ARA_KOPF) LISTENKOPF ON LISTENKOPF.ID_ARA_KOPF = ARA_KOPF.ID\n"
      " LEFT JOIN (SELECT ID_ARA_KOPF,ID_LOHNARTEN,SUM(STUNDEN) AS STUNDEN FROM ARA_STUNDEN WHERE "
      "ID_ARA_KOPF IN (SELECT ID FROM #tmp) GROUP BY ID_ARA_KOPF,ID_LOHNARTEN) ARA_STUNDEN ON "
      "ARA_STUNDEN.ID_ARA_KOPF = ARA_KOPF.ID AND ARA_STUNDEN.ID_LOHNARTEN = ({})\n"
      " WHERE 1 = 1{}{} ORDER BY ARA_KOPF.NAME_NUMMER",
      Year(client), Id(client.id), Year(client), Id(client.id), Fragment(wage_type_case),
      Fragment(AndIs("ARBEITSAUFTRAG.KOSTENSTELLE_ID", cost_centre)),
      Fragment(AndIs("ARBEITSAUFTRAG.LEISTUNGSART_ID", work_type)));
}

std::string CostCentresInUse(const Client& client, std::string_view work_type) {
  return Compose(
      "SELECT NUMBER AS NUMMER,NAME AS LONG FROM KOSTENSTELLE\n"
      " WHERE ID IN {}\n"
      "{})\n"
      " ORDER BY 1",
      Fragment(PositionsOfClient("KOSTENSTELLE_ID", client)),
      Fragment(work_type.empty() ? std::string()
                                 : Compose(" WHERE ARBEITSAUFTRAG.LEISTUNGSART_ID = {}", Id(work_type))));
}

std::string FindCostCentreInUse(const Client& client, std::string_view typed, std::string_view work_type) {
  return Compose(
      "SELECT ID,NUMBER,NAME FROM KOSTENSTELLE\n"
      " WHERE ID IN {}\n"
      " WHERE NUMBER = '{}'{})",
      Fragment(PositionsOfClient("KOSTENSTELLE_ID", client)), Typed(typed),
      Fragment(AndIs("ARBEITSAUFTRAG.LEISTUNGSART_ID", work_type)));
}

std::string WorkTypesInUse(const Client& client, std::string_view cost_centre) {
  return Compose(
      "SELECT NUMBER AS NUMMER,NAME AS LONG\n"
      " FROM LEISTUNGSART\n"
      " WHERE ID IN {}\n"
      "{})\n"
      " ORDER BY NUMMER",
      Fragment(PositionsOfClient("LEISTUNGSART_ID", client)),
      Fragment(cost_centre.empty() ? std::string()
                                   : Compose(" WHERE ARBEITSAUFTRAG.KOSTENSTELLE_ID = {}", Id(cost_centre))));
}

std::string FindWorkTypeInUse(const Client& client, std::string_view typed, std::string_view cost_centre) {
  return Compose(
      "SELECT ID,NUMBER AS NUMMER,NAME AS LONG\n"
      " FROM LEISTUNGSART\n"
      " WHERE ID IN {}\n"
      " WHERE NUMBER = '{}'{})",
      Fragment(PositionsOfClient("LEISTUNGSART_ID", client)), Typed(typed),
      Fragment(AndIs("ARBEITSAUFTRAG.KOSTENSTELLE_ID", cost_centre)));
}

std::string Services() {
  return std::string("SELECT KURZNAME AS SHORT,LANGNAME AS LONG\n FROM RELTABLE\n") + kActiveServices +
         kOfOrderGroups;
}

std::string FindService(std::string_view typed) {
  return Compose("SELECT ID,KURZNAME,LANGNAME FROM RELTABLE\n{}{} AND KURZNAME = '{}'",
                 Fragment(kActiveServices), Fragment(kOfOrderGroups), Typed(typed));
}

std::string FitsService(std::string_view service, std::int32_t order) {
  return Compose(
      " AND PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART WHERE 1=(CASE WHEN {} THEN EST ELSE 1 END)) "
      "AND "
      "PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART WHERE 1=(CASE WHEN {} THEN LEISTUNGSART.ALLOW_HOLZ "
      "ELSE 1 END))",
      Fragment(IsTimberService(service)), Fragment(HasTimberList(order)));
}

std::string WorkTypeFits(std::int32_t product, std::string_view service, std::int32_t order) {
  const std::string fits_service = service.empty()
                                       ? std::string()
                                       : Compose(" AND 1=(CASE WHEN {} THEN LEISTUNGSART.EST ELSE 1 END)",
                                                 Fragment(IsTimberService(service)));
  return Compose(
      " AND LEISTUNGSART.PRODUKT_ID = {}{} AND 1=(CASE WHEN {} THEN LEISTUNGSART.ALLOW_HOLZ ELSE 1 END)",
      Id(product), Fragment(fits_service), Fragment(HasTimberList(order)));
}

std::string ProductOfOrderHead(std::string_view id) {
  return Compose("SELECT PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF WHERE ID = 0{}", Digits(id));
}

std::string ClientNumber(std::int32_t client) {
  return Compose("SELECT NUMMER FROM PERSONAL WHERE ID_PERSONAL = {}", Id(client));
}

std::string InsertOrder(const Client& client) {
  return Compose(
      "SET NOCOUNT ON\n"
      "INSERT INTO ARA_KOPF (NAME_NUMMER,PERSONAL_ID,NAME_FWJ,PROZENTSATZ_MZ)\n"
      "SELECT ISNULL((SELECT MAX(NAME_NUMMER) FROM ARA_KOPF WHERE PERSONAL_ID = {} AND NAME_FWJ = "
      "'{}'),0)+1,{},'{}',0\n"
      "SELECT IDENT_CURRENT('ARA_KOPF')",
      Id(client.id), Year(client), Id(client.id), Year(client));
}

std::string InsertPosition(std::int32_t order, std::string_view provisional_name) {
  return Compose(
      "SET NOCOUNT ON\n"
      "INSERT INTO ARBEITSAUFTRAG (ID_ARA_KOPF,QUELLE) VALUES ({},'A')\n"
      "UPDATE ARA_KOPF SET NAME = '{}' WHERE ID = {}\n"
      "SELECT NAME_NUMMER FROM ARA_KOPF WHERE ID = {}",
      Id(order), Typed(provisional_name), Id(order), Id(order));
}

std::string DeleteOrder(std::int32_t order) {
  return Compose("DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = {}\nDELETE FROM ARA_KOPF WHERE ID = {}",
                 Id(order), Id(order));
}

std::string TakeNumber(std::int32_t order, std::string_view name, std::string_view number) {
  return Compose(
      "SET NOCOUNT ON\n"
      "IF EXISTS(SELECT ID FROM ARA_KOPF WHERE ID <> {} AND NAME = '{}')\n"
      "SELECT 1\n"
      "ELSE\n"
      "BEGIN\n"
      "UPDATE ARA_KOPF SET NAME_NUMMER = {} WHERE ID = {}\n"
      "SELECT 0\n"
      "END",
      Id(order), Typed(name), Number(number), Id(order));
}

std::string IsOverhead(std::string_view cost_centre) {
  return Compose("SELECT GK FROM KOSTENSTELLE WHERE ID = {}", Id(cost_centre));
}

std::string UpdateHeader(std::int32_t order, const Header& header) {
  return Compose(
      "UPDATE ARA_KOPF SET NAME = '{}',BESCHREIBUNG = {},GESAMNT = {},ID_RELTABLE_ROTTE = {} WHERE ID = {}",
      Typed(header.name), TextOrNull(header.description), NumberOrNull(header.total), IdOrNull(header.team),
      Id(order));
}

std::string UpdatePosition(std::int32_t order, const Position& position, std::string_view sql_date_format) {
  return Compose(
      "UPDATE ARBEITSAUFTRAG SET ARBEITSAUFTRAG_KOPF_ID = {},LEISTUNG = {},DATUM_NR = {},KOSTENSTELLE_ID = "
      "{},LEISTUNGSART_ID = {},WO_ID = {}  WHERE ID_ARA_KOPF = {}",
      IdOrNull(position.product_order), IdOrNull(position.service),
      DateOrNull(position.date, sql_date_format), IdOrNull(position.cost_centre),
      IdOrNull(position.work_type), IdOrNull(position.location), Id(order));
}

std::string CancelOrder(std::int32_t order, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE ID_ARA_KOPF = {}",
                 DateOrNull(day, sql_date_format), Id(order));
}

std::string MonthsWithHours(std::int32_t order) {
  return Compose(
      "SELECT ID_PERSONAL,MONTH(BEARBEITUNG) AS MONTHBEARBEITUNG,YEAR(BEARBEITUNG) AS YEARBEARBEITUNG FROM "
      "ARA_STUNDEN WHERE ID_ARA_KOPF = {} GROUP BY ID_PERSONAL,MONTH(BEARBEITUNG),YEAR(BEARBEITUNG)",
      Id(order));
}

std::string StoreTotal(std::int32_t order, const Decimal& total) {
  return Compose("UPDATE ARA_KOPF SET GESAMNT = {} WHERE ID = {}",
                 total == Decimal() ? NumberOrNull("") : Number(total), Id(order));
}

}  // namespace tarvoni::ara_sql
