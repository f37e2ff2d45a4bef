#include "src/wage/f_arbeitnehmer_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/hour_amount.h"
#include "src/context/rules/wage_rules.h"
#include "src/wage/wage_type_lists.h"

namespace tarvoni::arbeitnehmer_sql {
namespace {

SqlText Allowed(std::int32_t order) {
  return Compose(R"(
FROM LOHNARTEN
WHERE ISNULL(LOHNARTEN.DISABLE,0) = 0
  AND ((LOHNARTEN.SLA = 1 AND LOHNARTEN.CHK7 = 1)
       OR LOHNARTEN.NUMBER IN ({})))",
                 WageTypesOfGroup(order));
}

// Whether the month of two columns is closed, as 1 or 0.
SqlText IsClosed(const SqlText& month, const SqlText& year) {
  return Compose(R"(
(CASE WHEN EXISTS(SELECT LOHNABSCHLUSS.ID
                  FROM LOHNABSCHLUSS
                  WHERE LOHNABSCHLUSS.ASCHLUSS_L = 1
                    AND LOHNABSCHLUSS.MONAT = {}
                    AND LOHNABSCHLUSS.JAHR = {}) THEN 1 ELSE 0 END))",
                 month, year);
}

// Whether hours of the order were worked in a closed month, as 1 or 0.
SqlText HasClosedHours(std::int32_t order) {
  return Compose(R"(
(CASE WHEN EXISTS(SELECT ARA_STUNDEN.ID
                  FROM ARA_STUNDEN
                  INNER JOIN LOHNABSCHLUSS
                    ON LOHNABSCHLUSS.ASCHLUSS_L = 1
                   AND LOHNABSCHLUSS.MONAT = MONTH(ARA_STUNDEN.BEARBEITUNG)
                   AND LOHNABSCHLUSS.JAHR = YEAR(ARA_STUNDEN.BEARBEITUNG)
                   AND ARA_STUNDEN.ID_ARA_KOPF = {}) THEN 1 ELSE 0 END))",
                 Id(order));
}

}  // namespace

SqlText HoursOfOrder(std::int32_t order) {
  return Compose(R"(
SELECT ARA_STUNDEN.ID,
  ARA_STUNDEN.ID_PERSONAL,
  PERSONAL.NUMMER AS PERSONALNUMMER,
  PERSONAL.KURZBEZEICHNUNG AS PERSONALKURZBEZEICHNUNG,
  MONTH(ARA_STUNDEN.BEARBEITUNG) AS MONTHBEARBEITUNG,
  YEAR(ARA_STUNDEN.BEARBEITUNG) AS YEARBEARBEITUNG,
  DAY(ARA_STUNDEN.VERLOHNUNG) AS DAYVERLOHNUNG,
  MONTH(ARA_STUNDEN.VERLOHNUNG) AS MONTHVERLOHNUNG,
  YEAR(ARA_STUNDEN.VERLOHNUNG) AS YEARVERLOHNUNG,
  ARA_STUNDEN.ID_LOHNARTEN,
  LOHNARTEN.NUMBER AS LOHNARTENNUMBER,
  LOHNARTEN.NAME AS LOHNARTENNAME,
  EINHEIT.NAME AS EINHEITNAME,
  MONTH(ARA_STUNDEN.AUSZAHLUNGSMONAT) AS MONTHAUSZAHLUNGSMONAT,
  YEAR(ARA_STUNDEN.AUSZAHLUNGSMONAT) AS YEARAUSZAHLUNGSMONAT,
  ARA_STUNDEN.STUNDEN,
  {} AS SATZ,
  ARA_STUNDEN.PROZENTSATZ,
  {} AS WERT,
  {} MODIFY,
  (CASE ISNULL(BBF_GRUPPE.NUMBER,0)
   WHEN 1 THEN 0
   WHEN 2 THEN {}
   WHEN 3 THEN {}
   ELSE 0 END) AS MODIFYNEW,
  ISNULL(BBF_GRUPPE.NUMBER,0) AS BBF_GRUPPENUMBER,
  {} AS MAXLOHNABSCHLUSS
FROM ARA_KOPF
LEFT JOIN ARA_STUNDEN ON ARA_STUNDEN.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN
LEFT JOIN EINHEIT ON EINHEIT.ID = LOHNARTEN.EINHEIT
LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = ARA_STUNDEN.ID_PERSONAL
LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF
LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG
LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE
WHERE ARA_KOPF.ID = {})",
                 hour_amount::StoredRate(), hour_amount::StoredValue(),
                 IsClosed("MONTH(ARA_STUNDEN.BEARBEITUNG)", "YEAR(ARA_STUNDEN.BEARBEITUNG)"),
                 IsClosed("ARA_KOPF.ABRECHNUNGSMONAT", "ARA_KOPF.ABRECHNUNGSJAHR"), HasClosedHours(order),
                 kHighestClosedMonth, Id(order));
}

SqlText WageTypes(std::int32_t order) {
  return WageTypesOffered(Allowed(order));
}

SqlText FindWageType(std::int32_t order, std::string_view typed) {
  return WageTypeTyped(Allowed(order), typed);
}

SqlText DirectWageType(std::int32_t order) {
  return Compose(R"(
SELECT NUMBER
FROM LOHNARTEN
WHERE ISNULL(LOHNARTEN.DISABLE,0) = 0
  AND LOHNARTEN.NUMBER IN (
    SELECT (CASE WHEN ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 THEN OPTIONEN.TEXT_VALUE ELSE NULL END)
    FROM ARBEITSAUFTRAG
    LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG
    LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE
    LEFT JOIN OPTIONEN ON OPTIONEN.PROPERTY_ID IN {}
    WHERE ARBEITSAUFTRAG.ID_ARA_KOPF = {}))",
                 DirectWageOption("BBF_GRUPPE.NUMBER"), Id(order));
}

SqlText HasRate(std::string_view wage_type) {
  return Compose("SELECT ID FROM LOHNARTEN WHERE SLA = 1 AND ID = 0{}", Digits(wage_type));
}

SqlText MonthOfOrder(std::int32_t order) {
  return Compose("SELECT MONTH(DATUM_NR) FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = {}", Id(order));
}

SqlText InsertHours(std::int32_t order) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO ARA_STUNDEN (ID_ARA_KOPF) VALUES ({})
SELECT MAX(ID) FROM ARA_STUNDEN WHERE ID_ARA_KOPF = {})",
                 Id(order), Id(order));
}

SqlText UpdateHours(std::int32_t id, const Hours& hours, std::string_view sql_date_format) {
  return Compose(R"(
UPDATE ARA_STUNDEN
SET BEARBEITUNG = {},VERLOHNUNG = {},ID_PERSONAL = {},ID_LOHNARTEN = {},AUSZAHLUNGSMONAT = {},
  STUNDEN = {},PROZENTSATZ = {}
WHERE ID = {})",
                 DateOrNull(hours.working_month, sql_date_format), DateOrNull(hours.day, sql_date_format),
                 Id(hours.worker), IdOrNull(hours.wage_type), DateOrNull(hours.paying_month, sql_date_format),
                 NumberOrNull(hours.hours), NumberOrNull(hours.percentage), Id(id));
}

SqlText DeleteHours(std::int32_t id) {
  return Compose("DELETE FROM ARA_STUNDEN WHERE ID = {}", Id(id));
}

}  // namespace tarvoni::arbeitnehmer_sql
