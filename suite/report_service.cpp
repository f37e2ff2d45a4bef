#include "suite/report_service.h"

#include "src/context/data/statement.h"
#include "src/context/rules/hour_amount.h"
#include "src/context/rules/wage_rules.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"
#include "suite/est_paper.h"
#include "suite/journal_paper.h"
#include "suite/month_summary.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

constexpr int kOrderHours = 10;
constexpr int kJournalSummary = 9;

// A sum takes no subquery, so the rows are valued first.
SqlText OrderHoursAmount(std::int32_t order, std::int32_t worker, std::int32_t year, std::int32_t month,
                         bool other_types) {
  return Compose(R"(
SELECT SUM(HOURS.WERT)
FROM (SELECT {} AS WERT,
        (CASE WHEN LOHNARTEN.NUMBER IN ({}) THEN 0 ELSE 1 END) AS OTHER_TYPE
      FROM ARA_STUNDEN
      LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN
      WHERE ARA_STUNDEN.ID_ARA_KOPF = {} AND ARA_STUNDEN.ID_PERSONAL = {}
        AND YEAR(ARA_STUNDEN.BEARBEITUNG) = {} AND MONTH(ARA_STUNDEN.BEARBEITUNG) = {}) HOURS
WHERE HOURS.OTHER_TYPE = {})",
                 hour_amount::StoredValue(), WageTypesOfGroup(order), Id(order), Id(worker), Id(year),
                 Id(month), Flag(other_types));
}

}  // namespace

SqlText OrdersWithAnotherTotal() {
  return Compose(R"(
SELECT K.ID AS ARA_KOPF, K.GESAMNT, ROUND(SUM(HOURS.WERT),2) AS STUNDENWERT
FROM (SELECT ARA_STUNDEN.ID_ARA_KOPF, {} AS WERT
      FROM ARA_STUNDEN
      LEFT JOIN LOHNARTEN ON LOHNARTEN.ID = ARA_STUNDEN.ID_LOHNARTEN) HOURS
INNER JOIN ARA_KOPF K ON K.ID = HOURS.ID_ARA_KOPF
GROUP BY K.ID, K.GESAMNT
HAVING ISNULL(K.GESAMNT,0) <> ISNULL(ROUND(SUM(HOURS.WERT),2),0)
ORDER BY K.ID)",
                 hour_amount::StoredValue());
}

void ReportService::PrintGrid(const TvnVar_Dll& context, const std::string& report, const std::string& id,
                              const std::string& /*selection*/, bool /*flag*/) {
  const auto key = ToInt32(id, CurrentLocale());
  if (report == "BRUTTO") return CurrentToolkit().PreviewPrint(JournalPaper(context, key));
  if (report == "EST") return CurrentToolkit().PreviewPrint(EstPaper(context, key));
  throw CallError("Den Bericht \"" + report + "\" gibt es nicht.");
}

void ReportService::PrintRows(const TvnVar_Dll& context, std::int32_t id, std::int32_t person,
                              std::int32_t year, std::int32_t month, int mode, bool& flag, Value& result) {
  if (mode == kJournalSummary) {
    const JournalMonth journal{.header = id, .client = person, .year = year, .month = month};
    result = SummaryText(flag ? OwnLines(context, journal) : OrderHours(context, journal));
    return;
  }
  if (mode != kOrderHours)
    throw CallError("Die Berichte kennen keine Auswertung " + std::to_string(mode) + ".");
  const Recordset rows = DatabaseOf(context).Open(OrderHoursAmount(id, person, year, month, flag));
  const Value& amount = rows.Fields()[0].Value();
  result = IsNull(amount) ? Value(Decimal()) : amount;
}

}  // namespace tarvoni::suite
