#include "src/piecework/f_est_stucklohn_sql.h"

#include "src/context/data/bracketed_name.h"
#include "src/context/data/statement.h"

namespace tarvoni::est_stucklohn_sql {

SqlText SurchargesOfList(std::string_view list, std::string_view mark_heading,
                         std::string_view value_heading) {
  return Compose("SELECT MERKM AS {},VALUE1 AS {} FROM SONDERZ WHERE LISTE = '{}'",
                 BracketedName(mark_heading), BracketedName(value_heading), Quoted(list));
}

SqlText UpdateOrder(std::int32_t id, const Order& order) {
  return Compose(R"(
UPDATE ARA_KOPF
SET WERKZEUGGELD = {},UNTYPISCH = {},ABRECHNUNGSMONAT = {},ABRECHNUNGSJAHR = {}
WHERE ID = {})",
                 Flag(order.tool_money), Flag(order.untypical), NumberOrNull(order.month),
                 NumberOrNull(order.year), Id(id));
}

SqlText UpdateLog(std::string_view id, const Log& log) {
  return Compose("UPDATE LOGS SET EST = {},MEFVERF = {},RUCKE = {},DURCH = {} WHERE ID_LOG = 0{}",
                 TextOrNull(log.est), TextOrNull(log.bark), TextOrNull(log.skidding),
                 NumberOrNull(log.diameter), Digits(id));
}

}  // namespace tarvoni::est_stucklohn_sql
