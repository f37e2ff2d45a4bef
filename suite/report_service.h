#pragma once

#include <string>

#include "src/context/data/sql_text.h"
#include "src/context/services/services.h"

namespace tarvoni::suite {

// What the suite works out and prints from wage data.
//
// PrintRows mode 10 is the amount of the hours (ARA_STUNDEN) that one worker has on a wage order in one month
// of work (BEARBEITUNG). An hours row is worth what the list of hours shows as its WERT: hours rounded to two
// places times rate rounded to two places, the rate being that of the wage type on the row's day (VERLOHNUNG)
// times the factor of DLS_LG; PROZENTSATZ and SLA play no part. The flag parts the wage types:
//   false  those that the options name for the order's group (1: ZL_AZ, ZL_MZ, ZL_WZ; 2: EST_AZ; 3: STUCK_AZ)
//   true   all others; all wage types of an order whose service belongs to no group
// so that both calls together give each hours row once: their sum over all workers and months is the order's
// total. No hours are worth 0.
//
// PrintRows mode 9 is the summary of a worker's month, for the journal `id` (STUNDENBUCH_HEADER) of a worker of the
// client `person`. The flag parts it:
//   false  his hours on wage orders of that client (ARA_KOPF.PERSONAL_ID) whose month of work (BEARBEITUNG) is the
//          given one, with rate and amount as the list of hours shows them
//   true   the journal's own lines, with the journal's rate and amount
// A row is nine cells parted by tabs: number of the wage type, quantity, unit, rate, amount, product order, wage order,
// day of the wage, forest location. It ends with CR LF, so that the texts of both calls can be joined. Quantity, rate and
// amount have two places and the locale's separator; where there is no rate its cell is empty. No rows are "".
class ReportService final : public tarvoni::ReportService {
 public:
  // "BRUTTO" is the paper of a journal (journal_paper.h), "EST" that of the logs of a wage order (est_paper.h), shown in
  // the toolkit's preview. Selection and flag are not read. A CallError for any other report.
  void PrintGrid(const TvnVar_Dll& context, const std::string& report, const std::string& id,
                 const std::string& selection, bool flag) override;
  // A CallError in any mode but 9 and 10. The flag is only read.
  void PrintRows(const TvnVar_Dll& context, std::int32_t id, std::int32_t person, std::int32_t year,
                 std::int32_t month, int mode, bool& flag, Value& result) override;
};

// Asks for the wage orders with hours whose total (GESAMNT) is not what their hours are worth: order, total and worth.
SqlText OrdersWithAnotherTotal();

}  // namespace tarvoni::suite
