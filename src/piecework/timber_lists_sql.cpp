#include "src/piecework/timber_lists_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::timber_sql {

SqlText FreeLists(const TimberOrder& order) {
  return Compose(R"(
SELECT LISTENKOPF.LISTE
FROM LISTENKOPF
INNER JOIN LOGS
  ON LOGS.LISTE = LISTENKOPF.LISTE AND LOGS.ZUGANG = 'HE' AND LOGS.RELTABLE3 = 0{}
INNER JOIN RELTABLE
  ON RELTABLE.ID = LOGS.RELTABLE2 AND RELTABLE.ID_KOSTENSTELLE = 0{}
WHERE LISTENKOPF.ID_ARA_KOPF IS NULL
  AND ISNULL(LISTENKOPF.GESPERRT,0) = 0
  AND LISTENKOPF.LISTE IN (SELECT LISTE FROM LOGS GROUP BY LISTE HAVING MAX(LOGS.AA_ID) IS NULL)
  AND LOGS.MANDANTEN_ID = {}
  AND ISNULL(LISTENKOPF.ID_ARBEITSAUFTRAG_KOPF,0{}) = 0{}
GROUP BY LISTENKOPF.LISTE
ORDER BY 1)",
                 Digits(order.service), Digits(order.cost_centre), Id(order.client), Digits(order.header),
                 Digits(order.header));
}

SqlText AssignedLists(const TimberOrder& order) {
  return Compose("SELECT LISTE FROM LISTENKOPF WHERE LISTENKOPF.ID_ARA_KOPF = {} ORDER BY 1",
                 Id(order.order));
}

SqlText ListsOfOthers(const TimberOrder& order, const SqlText& lists) {
  return Compose(R"(
SELECT LISTE FROM LISTENKOPF WHERE LISTE IN ({}) AND ID_ARA_KOPF <> {}
UNION
SELECT LISTE FROM LOGS WHERE LISTE IN ({}) AND AA_ID <> 0{}
ORDER BY 1)",
                 lists, Id(order.order), lists, Digits(order.position));
}

SqlText ReleaseLists(const TimberOrder& order, const SqlText& lists) {
  return Compose(R"(
UPDATE LISTENKOPF SET ID_ARA_KOPF = NULL WHERE LISTE IN ({}) AND ID_ARA_KOPF = {}
UPDATE LOGS SET AA_ID = NULL WHERE LISTE IN ({}) AND AA_ID = {})",
                 lists, Id(order.order), lists, Id(order.position));
}

SqlText AssignLists(const TimberOrder& order, const SqlText& lists) {
  const SqlText header = IdOrNull(order.header);
  return Compose(R"(
UPDATE LISTENKOPF SET ID_ARA_KOPF = {},ID_ARBEITSAUFTRAG_KOPF = {} WHERE LISTE IN ({})
UPDATE LOGS SET AA_ID = {},ARBEITSAUFTRAG_KOPF_ID = {} WHERE LISTE IN ({}))",
                 Id(order.order), header, lists, Id(order.position), header, lists);
}

}  // namespace tarvoni::timber_sql
