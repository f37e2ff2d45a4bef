#include "src/wage/f_ara_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"
#include "src/context/rules/wage_rules.h"

namespace tarvoni::ara_sql {
namespace {

Quoted Year(const Client& client) {
  return Quoted(client.forest_year);
}

// "AND column = tag", nothing for an empty Tag.
SqlText AndIs(const SqlText& column, std::string_view tag) {
  return tag.empty() ? SqlText() : Compose("AND {} = {}", column, Id(tag));
}

// The values of a column in the positions of the client's orders. `condition` begins with AND.
SqlText InPositionsOfClient(const SqlText& column, const Client& client, const SqlText& condition) {
  return Compose(R"(
IN (SELECT ARBEITSAUFTRAG.{}
    FROM (SELECT '{}' AS FWJ,{} AS PERSONAL_ID) KOPF
    LEFT JOIN (SELECT * FROM ARA_KOPF) ARA_KOPF
      ON ARA_KOPF.NAME_FWJ = KOPF.FWJ AND ARA_KOPF.PERSONAL_ID = KOPF.PERSONAL_ID
    LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF
    WHERE 1 = 1 {}))",
                 column, Year(client), Id(client.id), condition);
}

SqlText OfWorkType(std::string_view tag) {
  return AndIs("ARBEITSAUFTRAG.LEISTUNGSART_ID", tag);
}

SqlText OfCostCentre(std::string_view tag) {
  return AndIs("ARBEITSAUFTRAG.KOSTENSTELLE_ID", tag);
}

// The services of the orders' groups, from RELTABLE.
constexpr SqlText kActiveServices = R"(
WHERE ISNULL(DISABLE,0) = 0
  AND RELTABLE_ID IN (SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'STANDARD_LEISTUNG'))";
constexpr SqlText kOfOrderGroups = "AND GRUPPE IN (SELECT ID FROM BBF_GRUPPE WHERE NUMBER IN (1,2,3))";

SqlText IsTimberService(std::string_view service) {
  return Compose(R"(
EXISTS(SELECT ID
       FROM RELTABLE
       {}
         AND GRUPPE IN (SELECT ID FROM BBF_GRUPPE WHERE NUMBER=2)
         AND KURZNAME = '{}'))",
                 kActiveServices, Quoted(service));
}

SqlText HasTimberList(std::int32_t order) {
  return Compose("EXISTS(SELECT LISTE FROM LISTENKOPF WHERE ID_ARA_KOPF = {})", Id(order));
}

}  // namespace

SqlText OrdersOfYear(const Client& client, const SqlText& wage_type_case, std::string_view cost_centre,
                     std::string_view work_type) {
  return Compose(R"(
SET NOCOUNT ON
CREATE TABLE #tmp (ID int)
INSERT INTO #tmp (ID)
SELECT ID FROM ARA_KOPF WHERE ARA_KOPF.NAME_FWJ = '{}' AND ARA_KOPF.PERSONAL_ID = {}
SELECT (CASE WHEN ARBEITSAUFTRAG.STORNODATUM IS NULL THEN ' ' ELSE 'S' END) STATUSKOPF,
  ARA_KOPF.ID AS ID_ARA_KOPF,
  ARA_KOPF.NAME,PERSONAL.NUMMER AS PERSONALNUMMER,KOPF.FWJ,ARA_KOPF.NAME_NUMMER,
  ARBEITSAUFTRAG.DATUM_NR,
  LEISTUNG.ID AS LEISTUNGID,LEISTUNG.KURZNAME AS LEISTUNGKURZNAME,LEISTUNG.LANGNAME AS LEISTUNGLANGNAME,
  ISNULL(BBF_GRUPPE.NUMBER,0) AS BBF_GRUPPENUMBER,
  KOSTENSTELLE.ID AS KOSTENSTELLEID,
  KOSTENSTELLE.NUMBER AS KOSTENSTELLENUMBER,
  KOSTENSTELLE.NAME AS KOSTENSTELLENAME,
  LEISTUNGSART.ID AS LEISTUNGSARTID,
  LEISTUNGSART.NUMBER AS LEISTUNGSARTNUMBER,
  LEISTUNGSART.NAME AS LEISTUNGSARTNAME,
  ARBEITSAUFTRAG_KOPF.ID AS ARBEITSAUFTRAG_KOPFID,
  ARBEITSAUFTRAG_KOPF.NAME AS ARBEITSAUFTRAG_KOPFNAME,
  ARBEITSAUFTRAG_KOPF.PRODUKT_ID,
  WALDORT.ID_WALDORT,
  {} AS WALDORT,
  ARA_KOPF.BESCHREIBUNG,
  ROTTE.ID AS ROTTEID,ROTTE.KURZNAME AS ROTTESHORT,ROTTE.LANGNAME AS ROTTELONG,
  ARA_LOHN.FLACHE,
  (CASE WHEN BBF_GRUPPE.NUMBER = 2 THEN LISTENKOPF.MENGE ELSE ARA_LOHN.MENGE END) AS MENGE,
  WARENEINHEIT.EINHEIT AS WARENEINHEITEINHEIT,
  ARA_STUNDEN.STUNDEN,
  ARA_KOPF.GESAMNT,
  (CASE WHEN ARA_LOHN.ID_ARA_KOPF IS NOT NULL
          OR LISTENKOPF.ID_ARA_KOPF IS NOT NULL
          OR ARA_STUNDEN.ID_ARA_KOPF IS NOT NULL
        THEN 1 ELSE 0 END) AS LE,
  {} AS MAXLOHNABSCHLUSS
FROM (SELECT '{}' AS FWJ,{} AS PERSONAL_ID) KOPF
LEFT JOIN #tmp ON 1=1
LEFT JOIN ARA_KOPF ON ARA_KOPF.ID = #tmp.ID
LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = KOPF.PERSONAL_ID
LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF
LEFT JOIN ARBEITSAUFTRAG_KOPF ON ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID
LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG
LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE
LEFT JOIN KOSTENSTELLE ON KOSTENSTELLE.ID = ARBEITSAUFTRAG.KOSTENSTELLE_ID
LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID
LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID
LEFT JOIN RELTABLE ROTTE ON ROTTE.ID = ARA_KOPF.ID_RELTABLE_ROTTE
LEFT JOIN (SELECT ID_ARA_KOPF,SUM(FLACHE) AS FLACHE,SUM(MENGEKLR) AS MENGE
           FROM ARA_LOHN
           WHERE ID_ARA_KOPF IN (SELECT ID FROM #tmp)
           GROUP BY ID_ARA_KOPF) ARA_LOHN
  ON ARA_LOHN.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN (SELECT LISTENKOPF.ID_ARA_KOPF,SUM(LOGS.KUBATUR) AS MENGE
           FROM LISTENKOPF
           LEFT JOIN LOGS ON LOGS.LISTE = LISTENKOPF.LISTE
           WHERE LISTENKOPF.ID_ARA_KOPF IN (SELECT ID FROM #tmp)
           GROUP BY LISTENKOPF.ID_ARA_KOPF) LISTENKOPF
  ON LISTENKOPF.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN (SELECT ID_ARA_KOPF,ID_LOHNARTEN,SUM(STUNDEN) AS STUNDEN
           FROM ARA_STUNDEN
           WHERE ID_ARA_KOPF IN (SELECT ID FROM #tmp)
           GROUP BY ID_ARA_KOPF,ID_LOHNARTEN) ARA_STUNDEN
  ON ARA_STUNDEN.ID_ARA_KOPF = ARA_KOPF.ID AND ARA_STUNDEN.ID_LOHNARTEN = ({})
WHERE 1 = 1 {} {}
ORDER BY ARA_KOPF.NAME_NUMMER)",
                 Year(client), Id(client.id), kLocationPath, kHighestClosedMonth, Year(client), Id(client.id),
                 wage_type_case, OfCostCentre(cost_centre), OfWorkType(work_type));
}

SqlText CostCentresInUse(const Client& client, std::string_view work_type) {
  return Compose(R"(
SELECT NUMBER AS NUMMER,NAME AS LONG
FROM KOSTENSTELLE
WHERE ID {}
ORDER BY 1)",
                 InPositionsOfClient("KOSTENSTELLE_ID", client, OfWorkType(work_type)));
}

SqlText FindCostCentreInUse(const Client& client, std::string_view typed, std::string_view work_type) {
  return Compose(R"(
SELECT ID,NUMBER,NAME
FROM KOSTENSTELLE
WHERE ID {})",
                 InPositionsOfClient("KOSTENSTELLE_ID", client,
                                     Compose("AND NUMBER = '{}' {}", Quoted(typed), OfWorkType(work_type))));
}

SqlText WorkTypesInUse(const Client& client, std::string_view cost_centre) {
  return Compose(R"(
SELECT NUMBER AS NUMMER,NAME AS LONG
FROM LEISTUNGSART
WHERE ID {}
ORDER BY NUMMER)",
                 InPositionsOfClient("LEISTUNGSART_ID", client, OfCostCentre(cost_centre)));
}

SqlText FindWorkTypeInUse(const Client& client, std::string_view typed, std::string_view cost_centre) {
  return Compose(
      R"(
SELECT ID,NUMBER AS NUMMER,NAME AS LONG
FROM LEISTUNGSART
WHERE ID {})",
      InPositionsOfClient("LEISTUNGSART_ID", client,
                          Compose("AND NUMBER = '{}' {}", Quoted(typed), OfCostCentre(cost_centre))));
}

SqlText Services() {
  return Compose(R"(
SELECT KURZNAME AS SHORT,LANGNAME AS LONG
FROM RELTABLE
{}
  {})",
                 kActiveServices, kOfOrderGroups);
}

SqlText FindService(std::string_view typed) {
  return Compose(R"(
SELECT ID,KURZNAME,LANGNAME
FROM RELTABLE
{}
  {}
  AND KURZNAME = '{}')",
                 kActiveServices, kOfOrderGroups, Quoted(typed));
}

SqlText FitsService(std::string_view service, std::int32_t order) {
  return Compose(R"(
PRODUKT_ID IN (SELECT PRODUKT_ID FROM LEISTUNGSART WHERE 1=(CASE WHEN {} THEN EST ELSE 1 END))
AND PRODUKT_ID IN (SELECT PRODUKT_ID
                   FROM LEISTUNGSART
                   WHERE 1=(CASE WHEN {} THEN LEISTUNGSART.ALLOW_HOLZ ELSE 1 END)))",
                 IsTimberService(service), HasTimberList(order));
}

SqlText WorkTypeFits(std::int32_t product, std::string_view service, std::int32_t order) {
  const SqlText fits_service =
      service.empty()
          ? SqlText()
          : Compose(" AND 1=(CASE WHEN {} THEN LEISTUNGSART.EST ELSE 1 END)", IsTimberService(service));
  return Compose(R"(
LEISTUNGSART.PRODUKT_ID = {}{}
AND 1=(CASE WHEN {} THEN LEISTUNGSART.ALLOW_HOLZ ELSE 1 END))",
                 Id(product), fits_service, HasTimberList(order));
}

SqlText InsertOrder(const Client& client) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO ARA_KOPF (NAME_NUMMER,PERSONAL_ID,NAME_FWJ,PROZENTSATZ_MZ)
SELECT ISNULL((SELECT MAX(NAME_NUMMER) FROM ARA_KOPF WHERE PERSONAL_ID = {} AND NAME_FWJ = '{}'),0)+1,
  {},'{}',0
SELECT IDENT_CURRENT('ARA_KOPF'))",
                 Id(client.id), Year(client), Id(client.id), Year(client));
}

SqlText InsertPosition(std::int32_t order, std::string_view provisional_name) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO ARBEITSAUFTRAG (ID_ARA_KOPF,QUELLE) VALUES ({},'A')
UPDATE ARA_KOPF SET NAME = '{}' WHERE ID = {}
SELECT NAME_NUMMER FROM ARA_KOPF WHERE ID = {})",
                 Id(order), Quoted(provisional_name), Id(order), Id(order));
}

SqlText DeleteOrder(std::int32_t order) {
  return Compose(R"(
DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = {}
DELETE FROM ARA_KOPF WHERE ID = {})",
                 Id(order), Id(order));
}

SqlText TakeNumber(std::int32_t order, std::string_view name, std::string_view number) {
  return Compose(R"(
SET NOCOUNT ON
IF EXISTS(SELECT ID FROM ARA_KOPF WHERE ID <> {} AND NAME = '{}')
  SELECT 1
ELSE
BEGIN
  UPDATE ARA_KOPF SET NAME_NUMMER = {} WHERE ID = {}
  SELECT 0
END)",
                 Id(order), Quoted(name), Number(number), Id(order));
}

SqlText IsOverhead(std::string_view cost_centre) {
  return Compose("SELECT GK FROM KOSTENSTELLE WHERE ID = {}", Id(cost_centre));
}

SqlText UpdateHeader(std::int32_t order, const Header& header) {
  return Compose(R"(
UPDATE ARA_KOPF
SET NAME = '{}',BESCHREIBUNG = {},GESAMNT = {},ID_RELTABLE_ROTTE = {}
WHERE ID = {})",
                 Quoted(header.name), TextOrNull(header.description), NumberOrNull(header.total),
                 IdOrNull(header.team), Id(order));
}

SqlText UpdatePosition(std::int32_t order, const Position& position, std::string_view sql_date_format) {
  return Compose(R"(
UPDATE ARBEITSAUFTRAG
SET ARBEITSAUFTRAG_KOPF_ID = {},LEISTUNG = {},DATUM_NR = {},
  KOSTENSTELLE_ID = {},LEISTUNGSART_ID = {},WO_ID = {}
WHERE ID_ARA_KOPF = {})",
                 IdOrNull(position.product_order), IdOrNull(position.service),
                 DateOrNull(position.date, sql_date_format), IdOrNull(position.cost_centre),
                 IdOrNull(position.work_type), IdOrNull(position.location), Id(order));
}

SqlText CancelOrder(std::int32_t order, const DateTime& day, std::string_view sql_date_format) {
  return Compose("UPDATE ARBEITSAUFTRAG SET STORNODATUM = {} WHERE ID_ARA_KOPF = {}",
                 DateOrNull(day, sql_date_format), Id(order));
}

SqlText MonthsWithHours(std::int32_t order) {
  return Compose(R"(
SELECT ID_PERSONAL,MONTH(BEARBEITUNG) AS MONTHBEARBEITUNG,YEAR(BEARBEITUNG) AS YEARBEARBEITUNG
FROM ARA_STUNDEN
WHERE ID_ARA_KOPF = {}
GROUP BY ID_PERSONAL,MONTH(BEARBEITUNG),YEAR(BEARBEITUNG))",
                 Id(order));
}

SqlText StoreTotal(std::int32_t order, const Decimal& total) {
  return Compose("UPDATE ARA_KOPF SET GESAMNT = {} WHERE ID = {}",
                 total == Decimal() ? NumberOrNull("") : Number(total), Id(order));
}

}  // namespace tarvoni::ara_sql
