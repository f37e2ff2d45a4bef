#include <algorithm>

#include "platform/tsql/emitter.h"
#include "platform/tsql/public/runtime.h"

namespace tarvoni::tsql {
namespace {

std::string_view Keyword(JoinKind kind) {
  switch (kind) {
    case JoinKind::kInner:
      return " JOIN ";
    case JoinKind::kLeft:
      return " LEFT JOIN ";
    case JoinKind::kRight:
      return " RIGHT JOIN ";
    case JoinKind::kFull:
      return " FULL JOIN ";
    case JoinKind::kCross:
    case JoinKind::kComma:
      return ",";
  }
  return ",";
}

}  // namespace

void Emitter::Query(const BoundQuery& query) {
  WholeQuery(query, Naming::kNone);
}

void Emitter::DerivedQuery(const BoundQuery& query) {
  WholeQuery(query, Naming::kNumbered);
}

void Emitter::WholeQuery(const BoundQuery& query, Naming naming) {
  const bool distinct_union =
      std::find(query.union_all.begin(), query.union_all.end(), false) != query.union_all.end();
  for (size_t i = 0; i < query.selects.size(); ++i) {
    const BoundSelect& select = query.selects[i];
    if (i > 0) Text(query.union_all[i - 1] ? " UNION ALL " : " UNION ");
    const bool alone = query.selects.size() == 1;
    if (!alone && select.top) Text("SELECT * FROM (");
    Select(select, naming, select.distinct || distinct_union);
    if (alone) OrderBy(query);
    Limit(select);
    if (!alone && select.top) Text(")");
  }
  if (query.selects.size() > 1) OrderBy(query);
}

void Emitter::Select(const BoundSelect& select, Naming naming, bool collate_texts) {
  Text(select.distinct ? "SELECT DISTINCT " : "SELECT ");
  for (size_t i = 0; i < select.items.size(); ++i) {
    if (i > 0) Text(",");
    if (collate_texts)
      Collated(*select.items[i].value);
    else
      Expression(*select.items[i].value);
    if (naming == Naming::kNumbered) Text(" AS c").Number(static_cast<long long>(i + 1));
  }
  if (select.from) {
    Text(" FROM ");
    Source(*select.from);
  }
  if (select.where) {
    Text(" WHERE ");
    Expression(*select.where);
  }
  for (size_t i = 0; i < select.group_by.size(); ++i) {
    Text(i == 0 ? " GROUP BY " : ",");
    if (IsWide(*select.group_by[i]))
      Function("ts_exact_key", *select.group_by[i]);
    else
      Collated(*select.group_by[i]);
  }
  if (select.having) {
    Text(" HAVING ");
    Expression(*select.having);
  }
}

void Emitter::Limit(const BoundSelect& select) {
  if (select.top) Text(" LIMIT ").Number(*select.top);
}

void Emitter::OrderBy(const BoundQuery& query) {
  for (size_t i = 0; i < query.order_by.size(); ++i) {
    const BoundOrder& order = query.order_by[i];
    Text(i == 0 ? " ORDER BY " : ",");
    const BoundSelect& first = query.selects.front();
    const BoundExpression& value =
        order.ordinal > 0 ? *first.items[static_cast<size_t>(order.ordinal - 1)].value : *order.value;
    if (IsWide(value) && query.selects.size() == 1) {
      Function("ts_exact_key", value);
    } else if (order.ordinal > 0) {
      Number(order.ordinal);
      if (value.type.IsText()) Text(" COLLATE ").Text(kCollation);
    } else {
      Collated(value);
    }
    if (order.descending) Text(" DESC");
  }
}

void Emitter::Source(const BoundSource& source) {
  if (const auto* table = std::get_if<BoundTable>(&source.node)) {
    Text(table->stored_name).Text(" AS t").Number(table->id);
  } else if (const auto* derived = std::get_if<BoundDerived>(&source.node)) {
    Text("(");
    WholeQuery(*derived->query, Naming::kNumbered);
    Text(") AS t").Number(derived->id);
  } else {
    Join(std::get<BoundJoin>(source.node));
  }
}

void Emitter::Join(const BoundJoin& join) {
  const bool nested = std::holds_alternative<BoundJoin>(join.right->node);
  Source(*join.left);
  Text(Keyword(join.kind)).Text(nested ? "(" : "");
  Source(*join.right);
  Text(nested ? ")" : "");
  if (!join.on) return;
  Text(" ON ");
  Expression(*join.on);
}

}  // namespace tarvoni::tsql
