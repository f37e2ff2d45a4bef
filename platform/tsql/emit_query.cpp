#include <algorithm>
#include <utility>

#include "platform/tsql/bind_state.h"
#include "platform/tsql/emitter.h"
#include "platform/tsql/public/runtime.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

std::string_view Keyword(JoinKind kind) {
  switch (kind) {
    case JoinKind::kInner:
      return " JOIN ";
    case JoinKind::kLeft:
    case JoinKind::kRight:
      return " LEFT JOIN ";
    case JoinKind::kFull:
      return " FULL JOIN ";
    case JoinKind::kCross:
    case JoinKind::kComma:
      return ",";
  }
  return ",";
}

const BoundExpression& OrderedValue(const BoundSelect& select, const BoundOrder& order) {
  return order.ordinal > 0 ? *select.items[static_cast<size_t>(order.ordinal - 1)].value : *order.value;
}

bool HasConstantTerm(const BoundExpression& condition) {
  if (const auto* logical = condition.As<BoundLogical>(); logical && logical->op == BinaryOperator::kAnd)
    return std::ranges::any_of(logical->operands,
                               [](const BoundPtr& term) { return HasConstantTerm(*term); });
  return !Mentions(condition, [](const BoundColumn&) { return true; });
}

std::string AnyColumn(const BoundSource& source) {
  if (const auto* table = std::get_if<BoundTable>(&source.node))
    return "t" + std::to_string(table->id) + "." + QuoteName(table->table->columns.front().name);
  if (const auto* derived = std::get_if<BoundDerived>(&source.node))
    return "t" + std::to_string(derived->id) + ".c1";
  return AnyColumn(*std::get<BoundJoin>(source.node).left);
}

// Whether one of the selects gives wide values where the order is by.
bool HasWide(const BoundQuery& query, const BoundOrder& order) {
  return std::ranges::any_of(query.selects,
                             [&](const BoundSelect& select) { return IsWide(OrderedValue(select, order)); });
}

}  // namespace

void Emitter::Query(const BoundQuery& query) {
  WholeQuery(query, Naming::kNone);
}

void Emitter::DerivedQuery(const BoundQuery& query) {
  WholeQuery(query, Naming::kNumbered);
}

void Emitter::WholeQuery(const BoundQuery& query, Naming naming) {
  ++queries_;
  const bool united = query.selects.size() > 1;
  const bool by_key = united && std::ranges::any_of(query.order_by, [&](const BoundOrder& order) {
                        return HasWide(query, order);
                      });
  if (by_key) {
    Text("SELECT * FROM (");
    naming = Naming::kNumbered;
  }
  Selects(query, naming);
  if (by_key) Text(")");
  if (united) OrderBy(query, by_key);
  --queries_;
}

void Emitter::Selects(const BoundQuery& query, Naming naming) {
  const bool distinct_union =
      std::find(query.union_all.begin(), query.union_all.end(), false) != query.union_all.end();
  const bool alone = query.selects.size() == 1;
  for (size_t i = 0; i < query.selects.size(); ++i) {
    const BoundSelect& select = query.selects[i];
    if (i > 0) Text(query.union_all[i - 1] ? " UNION ALL " : " UNION ");
    if (!alone && select.top) Text("SELECT * FROM (");
    Select(select, naming, select.distinct || distinct_union);
    if (alone) OrderBy(query, false);
    Limit(select);
    if (!alone && select.top) Text(")");
  }
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

// `by_name`: the columns of a union are those of a query around it.
void Emitter::OrderBy(const BoundQuery& query, bool by_name) {
  for (size_t i = 0; i < query.order_by.size(); ++i) {
    const BoundOrder& order = query.order_by[i];
    Text(i == 0 ? " ORDER BY " : ",");
    const BoundExpression& value = OrderedValue(query.selects.front(), order);
    if (by_name && HasWide(query, order)) {
      Text("ts_exact_key(c").Number(order.ordinal).Text(")");
    } else if (IsWide(value) && query.selects.size() == 1) {
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
    Subquery(*derived->query, Naming::kNumbered);
    Text(" AS t").Number(derived->id);
  } else {
    Join(std::get<BoundJoin>(source.node));
  }
}

// SQLite 3.40 loses rows of a RIGHT or a FULL JOIN behind a join whose condition is constant. A RIGHT JOIN becomes a
// LEFT JOIN with the sides turned; beside a FULL JOIN the constant is made to look like one that hangs on a row.
void Emitter::Join(const BoundJoin& join) {
  const bool turned = join.kind == JoinKind::kRight;
  const BoundSource& right = turned ? *join.left : *join.right;
  const bool nested = std::holds_alternative<BoundJoin>(right.node);
  const bool beside_full = std::exchange(in_full_, in_full_ || join.kind == JoinKind::kFull);
  Source(turned ? *join.right : *join.left);
  Text(Keyword(join.kind)).Text(nested ? "(" : "");
  Source(right);
  Text(nested ? ")" : "");
  in_full_ = beside_full;
  if (!join.on) return;
  Text(" ON ");
  const bool loses_rows = in_full_ && join.kind == JoinKind::kInner && HasConstantTerm(*join.on);
  if (loses_rows) Text("CASE WHEN IFNULL(").Text(AnyColumn(right)).Text(",0) IS NOT NULL THEN ");
  Expression(*join.on);
  if (loses_rows) Text(" END");
}

// A query in brackets. One that lies deep and needs nothing of those around it stands in front of the statement, for
// SQLite's parser has room for some ten levels.
void Emitter::Subquery(const BoundQuery& query, Naming naming) {
  constexpr int kMostNested = 4;
  if (depth_ >= kMostNested && IsClosed(query)) return Hoisted(query);
  ++depth_;
  Text("(");
  WholeQuery(query, naming);
  Text(")");
  --depth_;
}

void Emitter::Hoisted(const BoundQuery& query) {
  const Sql outer = std::exchange(sql_, {});
  const int depth = std::exchange(depth_, 0), levels = std::exchange(levels_, 0);
  WholeQuery(query, Naming::kNumbered);
  depth_ = depth;
  levels_ = levels;
  const Sql inner = std::exchange(sql_, outer);
  const std::string name = "q" + std::to_string(++hoisted_);
  front_.text += (front_.text.empty() ? "WITH " : ",") + name + " AS (" + inner.text + ")";
  front_.parameters.insert(front_.parameters.end(), inner.parameters.begin(), inner.parameters.end());
  Text("(SELECT * FROM ").Text(name).Text(")");
}

Sql Emitter::Take() {
  if (!front_.text.empty()) {
    sql_.text.insert(0, front_.text + ' ');
    sql_.parameters.insert(sql_.parameters.begin(), front_.parameters.begin(), front_.parameters.end());
  }
  sql_.parts = std::move(parts_);
  return std::move(sql_);
}

}  // namespace tarvoni::tsql
