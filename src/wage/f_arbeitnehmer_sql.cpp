#include "src/wage/f_arbeitnehmer_sql.h"

#include "src/context/data/statement.h"
#include "src/wage/rate_expressions.h"

namespace tarvoni::arbeitnehmer_sql {
namespace {

// The group of the order's service.
const char* const kGroupOfOrder =
    " FROM ARBEITSAUFTRAG\n"
    " LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG\n"
    " LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE\n";

std::string Allowed(std::int32_t order) {
  return Compose(
      " FROM LOHNARTEN\n"
      " WHERE ISNULL(LOHNARTEN.DISABLE,0) = 0\n"
      " AND ((LOHNARTEN.SLA = 1 AND LOHNARTEN.CHK7 = 1)\n"
      " OR LOHNARTEN.NUMBER IN (SELECT OPTIONEN.TEXT_VALUE\n"
      "{}"
      " INNER JOIN (SELECT 1 AS ID,'ZL_AZ' AS K UNION ALL SELECT 1,'ZL_MZ' UNION ALL SELECT 1,'ZL_WZ' UNION "
      "ALL "
      "SELECT 2,'EST_AZ' UNION ALL SELECT 3,'STUCK_AZ') A ON A.ID = BBF_GRUPPE.NUMBER\n"
      " INNER JOIN OPTIONEN ON OPTIONEN.PROPERTY_ID = A.K\n"
      " WHERE ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 AND ARBEITSAUFTRAG.ID_ARA_KOPF = {}\n"
      "))\n",
      Fragment(kGroupOfOrder), Id(order));
}

}  // namespace

std::string HoursOfOrder(std::int32_t order) {
  return Compose(
      "SELECT ARA_STUNDEN.ID,\n"
      "ARA_STUNDEN.ID_PERSONAL,PERSONAL.NUMMER AS PERSONALNUMMER,PERSONAL.KURZBEZEICHNUNG AS "
      "PERSONALKURZBEZEICHNUNG,\n"
      "MONTH(ARA_STUNDEN.BEARBEITUNG) AS MONTHBEARBEITUNG,\n"
      "YEAR(ARA_STUNDEN.BEARBEITUNG) AS YEARBEARBEITUNG,\n"
      "DAY(ARA_STUNDEN.VERLOHNUNG) AS DAYVERLOHNUNG,\n"
      "MONTH(ARA_STUNDEN.VERLOHNUNG) AS MONTHVERLOHNUNG,\n"
      "YEAR(ARA_STUNDEN.VERLOHNUNG) AS YEARVERLOHNUNG,\n"
      "ARA_STUNDEN.ID_LOHNARTEN,LOHNARTEN.NUMBER AS LOHNARTENNUMBER,LOHNARTEN.NAME AS "
      "LOHNARTENNAME,EINHEIT.NAME "
      "AS EINHEITNAME,\n"
      "MONTH(ARA_STUNDEN.AUSZAHLUNGSMONAT) AS MONTHAUSZAHLUNGSMONAT,\n"
      "YEAR(ARA_STUNDEN.AUSZAHLUNGSMONAT) AS YEARAUSZAHLUNGSMONAT,\n"
      "ARA_STUNDEN.STUNDEN,\n"
      "{},\n"
      "ARA_STUNDEN.PROZENTSATZ,\n"
      "{},\n"
      "(CASE WHEN EXISTS(SELECT LOHNABSCHLUSS.ID FROM LOHNABSCHLUSS WHERE LOHNABSCHLUSS.ASCHLUSS_L = 1 AND "
      "LOHNABSCHLUSS.MONAT = MONTH(ARA_STUNDEN.BEARBEITUNG) AND LOHNABSCHLUSS.JAHR = "
      "YEAR(ARA_STUNDEN.BEARBEITUNG)) THEN 1 ELSE 0 END) MODIFY,\n"
      "(CASE ISNULL(BBF_GRUPPE.NUMBER,0)\n"
      " WHEN 1 THEN 0\n"
      " WHEN 2 THEN (CASE WHEN EXISTS(SELECT LOHNABSCHLUSS.ID FROM LOHNABSCHLUSS WHERE "
      "LOHNABSCHLUSS.ASCHLUSS_L = 1 "
      "AND LOHNABSCHLUSS.MONAT = ARA_KOPF.ABRECHNUNGSMONAT AND LOHNABSCHLUSS.JAHR = "
      "ARA_KOPF.ABRECHNUNGSJAHR) "
      "THEN 1 ELSE 0 END)\n"
      " WHEN 3 THEN (CASE WHEN EXISTS(SELECT ARA_STUNDEN.ID FROM ARA_STUNDEN INNER JOIN LOHNABSCHLUSS ON "
      "LOHNABSCHLUSS.ASCHLUSS_L = 1 AND LOHNABSCHLUSS.MONAT = MONTH(ARA_STUNDEN.BEARBEITUNG) AND "
      "LOHNABSCHLUSS.JAHR = YEAR(ARA_STUNDEN.BEARBEITUNG) AND ARA_STUNDEN.ID_ARA_KOPF = {}) THEN 1 ELSE 0 "
      "END)\n"
      " ELSE 0 END) AS MODIFYNEW,\n"
      "ISNULL(BBF_GRUPPE.NUMBER,0) AS BBF_GRUPPENUMBER,\n"
      "ISNULL((SELECT MAX(JAHR*100+MONAT) FROM LOHNABSCHLUSS WHERE ASCHLUSS_L = 1),0) AS MAXLOHNABSCHLUSS\n"
      " FROM ARA_KOPF\n"
      " LEFT JOIN ARA_STUNDEN ON ARA_STUNDEN.ID_ARA_KOPF = ARA_KOPF.ID\n"
      " LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN\n"
      " LEFT JOIN EINHEIT ON EINHEIT.ID = LOHNARTEN.EINHEIT\n"
      " LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = ARA_STUNDEN.ID_PERSONAL\n"
      " LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF\n"
      " LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG\n"
      " LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE\n"
      " WHERE ARA_KOPF.ID = {}",
      Fragment(wage_rate::StoredRate()), Fragment(wage_rate::StoredValue()), Id(order), Id(order));
}

std::string WageTypes(std::int32_t order) {
  return "SELECT NUMBER AS NUMMER,NAME AS LONG\n" + Allowed(order) + " ORDER BY LOHNARTEN.NUMBER";
}

std::string FindWageType(std::int32_t order, std::string_view typed) {
  return Compose("SELECT ID,NUMBER,NAME\n{} AND NUMBER = 0{}", Fragment(Allowed(order)), Digits(typed));
}

std::string DirectWageType(std::int32_t order) {
  return Compose(
      "SELECT NUMBER\n"
      " FROM LOHNARTEN WHERE ISNULL(LOHNARTEN.DISABLE,0) = 0\n"
      " AND LOHNARTEN.NUMBER IN (SELECT (CASE WHEN ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 THEN OPTIONEN.TEXT_VALUE "
      "ELSE "
      "NULL END)\n"
      "{}"
      " LEFT JOIN OPTIONEN ON OPTIONEN.PROPERTY_ID IN (CASE BBF_GRUPPE.NUMBER\n"
      " WHEN 1 THEN 'ZL_AZ'\n"
      " WHEN 2 THEN 'EST_AZ'\n"
      " WHEN 3 THEN 'STUCK_AZ' ELSE NULL END)\n"
      " WHERE ARBEITSAUFTRAG.ID_ARA_KOPF = {}\n"
      ")",
      Fragment(kGroupOfOrder), Id(order));
}

std::string HasRate(std::string_view wage_type) {
  return Compose("SELECT ID FROM LOHNARTEN WHERE SLA = 1 AND ID = 0{}", Digits(wage_type));
}

std::string MonthOfOrder(std::int32_t order) {
  return Compose("SELECT MONTH(DATUM_NR) FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = {}", Id(order));
}

std::string InsertHours(std::int32_t order) {
  return Compose(
      "SET NOCOUNT ON\n"
      "INSERT INTO ARA_STUNDEN (ID_ARA_KOPF) VALUES ({})\n"
      "SELECT MAX(ID) FROM ARA_STUNDEN WHERE ID_ARA_KOPF = {}",
      Id(order), Id(order));
}

std::string UpdateHours(std::int32_t id, const Hours& hours, std::string_view sql_date_format) {
  return Compose(
      "UPDATE ARA_STUNDEN SET BEARBEITUNG = {},VERLOHNUNG = {},ID_PERSONAL = {},ID_LOHNARTEN = "
      "{},AUSZAHLUNGSMONAT = {},STUNDEN = {},PROZENTSATZ = {} WHERE ID = {}",
      DateOrNull(hours.working_month, sql_date_format), DateOrNull(hours.day, sql_date_format),
      Id(hours.worker), IdOrNull(hours.wage_type), DateOrNull(hours.paying_month, sql_date_format),
      NumberOrNull(hours.hours), NumberOrNull(hours.percentage), Id(id));
}

std::string DeleteHours(std::int32_t id) {
  return Compose("DELETE FROM ARA_STUNDEN WHERE ID = {}", Id(id));
}

}  // namespace tarvoni::arbeitnehmer_sql
