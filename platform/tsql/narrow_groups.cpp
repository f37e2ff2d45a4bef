#include <algorithm>

#include "platform/tsql/query_binder.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

// A test of MIN, MAX and COUNT that cannot fail, so that no one misses the groups that are not looked at.
bool CannotFail(const BoundExpression& test) {
  const auto* aggregate = test.As<BoundAggregate>();
  const bool kept =
      test.As<BoundColumn>() || test.As<BoundParameter>() || test.As<BoundConstant>() ||
      test.As<BoundIsNull>() || test.As<BoundCompare>() || test.As<BoundLogical>() || test.As<BoundNot>() ||
      (aggregate && aggregate->function != Aggregate::kSum && aggregate->function != Aggregate::kAvg);
  if (!kept) return false;
  bool all = true;
  ForEachChild(test, [&](const BoundExpression& child) { all = all && CannotFail(child); });
  return all;
}

bool IsSameColumn(const BoundColumn& a, const BoundColumn& b) {
  return a.source == b.source && a.index == b.index;
}

// The key by which a query groups one whole table and which is all that it gives, if an index begins with it.
const BoundExpression* IndexedKey(const BoundQuery& query) {
  if (query.selects.size() != 1) return nullptr;
  const BoundSelect& select = query.selects.front();
  const auto* table = select.from ? std::get_if<BoundTable>(&select.from->node) : nullptr;
  if (table == nullptr || select.where || select.top || select.group_by.size() != 1 || !select.having)
    return nullptr;
  const auto* key = select.group_by.front()->As<BoundColumn>();
  const auto* given = select.items.front().value->As<BoundColumn>();
  if (key == nullptr || given == nullptr || !IsSameColumn(*key, *given) || key->source != table->id ||
      !CannotFail(*select.having))
    return nullptr;
  const bool served = std::ranges::find(table->table->indexed, key->index) != table->table->indexed.end();
  return served ? select.group_by.front().get() : nullptr;
}

BoundPtr ColumnAgain(const BoundExpression& column) {
  return MakeValue(column.at, column.type, column.limit, *column.As<BoundColumn>());
}

void NarrowTo(const BoundInQuery& in) {
  if (in.negated || !in.operand->As<BoundColumn>()) return;
  const BoundExpression* key = IndexedKey(*in.query);
  if (key == nullptr || !(key->type == in.operand->type)) return;
  in.query->selects.front().where = MakeCondition(
      in.operand->at, BoundCompare{BinaryOperator::kEqual, ColumnAgain(*key), ColumnAgain(*in.operand)});
}

}  // namespace

void NarrowGroups(const BoundExpression& filter) {
  if (const auto* in = filter.As<BoundInQuery>()) return NarrowTo(*in);
  const auto* logical = filter.As<BoundLogical>();
  if (logical == nullptr || logical->op != BinaryOperator::kAnd) return;
  for (const BoundPtr& operand : logical->operands) NarrowGroups(*operand);
}

}  // namespace tarvoni::tsql
