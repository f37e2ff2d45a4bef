#include "suite/report_service.h"

#include "src/context/data/statement.h"
#include "src/context/values/call_error.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

constexpr int kOrderHours = 10;
constexpr int kJournalSummary = 9;

// The rate of an hours row on its day. The wage group is dated twice: which one the worker belongs to, and
// what it is worth.
constexpr char kRate[] =
    "ISNULL((SELECT TOP 1 ONETODATE.RATE FROM ONETODATE WHERE ONETODATE.TABLE_COLUMN = 'LOHNARTEN.SATZ'"
    " AND ONETODATE.TABLE_ID = LOHNARTEN.ID AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG"
    " ORDER BY ONETODATE.DATUM DESC),0)"
    "*(CASE LOHNARTEN.DLS_LG"
    " WHEN 1 THEN ISNULL((SELECT TOP 1 ONETODATE.RATE FROM ONETODATE"
    " WHERE ONETODATE.TABLE_COLUMN = 'PERSONAL.DLS' AND ONETODATE.TABLE_ID = ARA_STUNDEN.ID_PERSONAL"
    " AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG ORDER BY ONETODATE.DATUM DESC),0)"
    " WHEN 2 THEN ISNULL((SELECT TOP 1 LOHNGRUPPE.BETRAG FROM LOHNGRUPPE"
    " WHERE LOHNGRUPPE.NAME IN (SELECT TOP 1 ONETODATE.TEXT FROM ONETODATE"
    " WHERE ONETODATE.TABLE_COLUMN = 'PERSONAL.LOHNGRUPPE'"
    " AND ONETODATE.TABLE_ID = ARA_STUNDEN.ID_PERSONAL"
    " AND ONETODATE.DATUM <= ARA_STUNDEN.VERLOHNUNG ORDER BY ONETODATE.DATUM DESC)"
    " AND LOHNGRUPPE.DATEWHILE <= ARA_STUNDEN.VERLOHNUNG ORDER BY LOHNGRUPPE.DATEWHILE DESC),0)"
    " ELSE 1 END)";

std::string OrderHoursAmount(std::int32_t order, std::int32_t worker, std::int32_t year, std::int32_t month,
                             bool other_types) {
  const auto number = [](std::int32_t value) { return Number(std::int64_t{value}); };
  // A sum takes no subquery, so the rows are valued first.
  return Compose(
      "SELECT SUM(HOURS.WERT) FROM (\n"
      "SELECT ROUND(ARA_STUNDEN.STUNDEN,2)*ROUND({},2) AS WERT,\n"
      "(CASE WHEN LOHNARTEN.NUMBER IN (SELECT OPTIONEN.TEXT_VALUE FROM ARBEITSAUFTRAG\n"
      " INNER JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG\n"
      " INNER JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE\n"
      " INNER JOIN (SELECT 1 AS ID,'ZL_AZ' AS K UNION ALL SELECT 1,'ZL_MZ' UNION ALL SELECT 1,'ZL_WZ'"
      " UNION ALL SELECT 2,'EST_AZ' UNION ALL SELECT 3,'STUCK_AZ') A ON A.ID = BBF_GRUPPE.NUMBER\n"
      " INNER JOIN OPTIONEN ON OPTIONEN.PROPERTY_ID = A.K\n"
      " WHERE ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 AND ARBEITSAUFTRAG.ID_ARA_KOPF = {}) THEN 0 ELSE 1 END)"
      " AS OTHER_TYPE\n"
      " FROM ARA_STUNDEN\n"
      " LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN\n"
      " WHERE ARA_STUNDEN.ID_ARA_KOPF = {} AND ARA_STUNDEN.ID_PERSONAL = {}"
      " AND YEAR(ARA_STUNDEN.BEARBEITUNG) = {} AND MONTH(ARA_STUNDEN.BEARBEITUNG) = {}) HOURS\n"
      " WHERE HOURS.OTHER_TYPE = {}",
      Fragment(kRate), number(order), number(order), number(worker), number(year), number(month),
      Flag(other_types));
}

}  // namespace

std::string OrdersWithAnotherTotal() {
  return Compose(
      "SELECT K.ID AS ARA_KOPF,K.GESAMNT,ROUND(SUM(HOURS.WERT),2) AS STUNDENWERT\n"
      " FROM (SELECT ARA_STUNDEN.ID_ARA_KOPF,ROUND(ARA_STUNDEN.STUNDEN,2)*ROUND({},2) AS WERT\n"
      " FROM ARA_STUNDEN\n"
      " LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN) HOURS\n"
      " INNER JOIN ARA_KOPF K ON K.ID = HOURS.ID_ARA_KOPF\n"
      " GROUP BY K.ID,K.GESAMNT\n"
      " HAVING ISNULL(K.GESAMNT,0) <> ISNULL(ROUND(SUM(HOURS.WERT),2),0)\n"
      " ORDER BY K.ID",
      Fragment(kRate));
}

void ReportService::PrintGrid(const TvnVar_Dll&, const std::string& report, const std::string&,
                              const std::string&, bool) {
  throw CallError("Der Bericht \"" + report + "\" kann noch nicht gedruckt werden.");
}

void ReportService::PrintRows(const TvnVar_Dll& context, std::int32_t id, std::int32_t person,
                              std::int32_t year, std::int32_t month, int mode, bool& flag, Value& result) {
  if (mode == kJournalSummary)
    throw CallError("Die Monatsübersicht des Bruttolohns steht noch nicht zur Verfügung.");
  if (mode != kOrderHours)
    throw CallError("Die Berichte kennen keine Auswertung " + std::to_string(mode) + ".");
  const Recordset rows = DatabaseOf(context).Open(OrderHoursAmount(id, person, year, month, flag));
  const Value& amount = rows.Fields()[0].Value();
  result = IsNull(amount) ? Value(Decimal()) : amount;
}

}  // namespace tarvoni::suite
