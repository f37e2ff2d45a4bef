#include "src/piecework/timber_lists.h"

#include <stdexcept>

#include "src/common/query.h"
#include "src/piecework/timber_lists_sql.h"

namespace tarvoni {

namespace sql = timber_sql;

TimberOrder::TimberOrder(std::int32_t client_id, std::int32_t order_id, const CurrentRow& row)
    : client(client_id),
      order(order_id),
      position(row.Text("ARBEITSAUFTRAGID")),
      header(row.Text("ARBEITSAUFTRAG_KOPF_ID")),
      service(row.Text("ARBEITSAUFTRAGLEISTUNG")),
      cost_centre(row.Text("ARBEITSAUFTRAGKOSTENSTELLE_ID")) {}

void TimberLists::Load(Connection& connection, const TimberOrder& order) {
  pair_.Offered().Clear();
  pair_.Selected().Clear();
  AddRows(connection, pair_.Offered(), sql::FreeLists(order));
  AddRows(connection, pair_.Selected(), sql::AssignedLists(order));
}

void TimberLists::RequireStorable(Connection& connection, const TimberOrder& order) const {
  (void)InList(pair_.Offered());
  if (!HasAssigned()) return;
  std::string taken;
  Recordset rows = connection.Open(sql::ListsOfOthers(order, InList(pair_.Selected())));
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    taken += (taken.empty() ? "" : ", ") + ToText(rows.Fields()[0].Value());
  }
  if (taken.empty()) return;
  throw std::runtime_error("Diese Holzlisten hat inzwischen ein anderer Arbeitsplatz vergeben: " + taken +
                           ".");
}

void TimberLists::Store(Connection& connection, const TimberOrder& order) const {
  const SqlText released = InList(pair_.Offered()), assigned = InList(pair_.Selected());
  if (!released.Empty()) connection.Execute(sql::ReleaseLists(order, released));
  if (!assigned.Empty()) connection.Execute(sql::AssignLists(order, assigned));
}

}  // namespace tarvoni
