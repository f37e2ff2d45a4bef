#include <algorithm>

#include "platform/tsql/query_binder.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

// Whether unlike values stay unlike. Many texts are the same number.
bool KeepsApart(const Type& from, const Type& to) {
  const bool exact = from.IsExact() && to.IsExact() && to.kind != TypeKind::kBit;
  const bool counted = from.IsInteger() && from.kind != TypeKind::kBigInt && to == Type::Float();
  return counted || (exact && from.scale <= to.scale) || (from.IsText() && to.IsText()) ||
         (from.IsDate() && to == Type::DateTime());
}

// The column of `source` that the expression is, apart from silent conversions; -1 if it is none.
int ColumnOf(const BoundExpression& expression, int source) {
  const BoundExpression* inner = &expression;
  while (const auto* convert = inner->As<BoundConvert>()) {
    if (!KeepsApart(convert->operand->type, inner->type)) return -1;
    inner = convert->operand.get();
  }
  const auto* column = inner->As<BoundColumn>();
  return column && column->source == source ? column->index : -1;
}

bool Mentions(const BoundExpression& expression, int source) {
  if (expression.As<BoundScalarQuery>() || expression.As<BoundInQuery>() || expression.As<BoundExists>())
    return true;
  if (const auto* column = expression.As<BoundColumn>()) return column->source == source;
  bool mentions = false;
  ForEachChild(expression,
               [&](const BoundExpression& child) { mentions = mentions || Mentions(child, source); });
  return mentions;
}

// Collects the columns of `source` that the condition ties to one value each.
void CollectFixed(const BoundExpression& condition, int source, std::vector<int>& fixed) {
  if (const auto* logical = condition.As<BoundLogical>(); logical && logical->op == BinaryOperator::kAnd)
    for (const BoundPtr& operand : logical->operands) CollectFixed(*operand, source, fixed);
  const auto* compare = condition.As<BoundCompare>();
  if (compare == nullptr || compare->op != BinaryOperator::kEqual) return;
  const int left = ColumnOf(*compare->left, source);
  const int right = ColumnOf(*compare->right, source);
  if (left >= 0 && !Mentions(*compare->right, source)) fixed.push_back(left);
  if (right >= 0 && !Mentions(*compare->left, source)) fixed.push_back(right);
}

bool CoversKey(const TableDefinition& table, const std::vector<int>& fixed) {
  const auto is_fixed = [&](int column) {
    return std::find(fixed.begin(), fixed.end(), column) != fixed.end();
  };
  return std::any_of(table.unique_keys.begin(), table.unique_keys.end(), [&](const std::vector<int>& key) {
    return !key.empty() && std::all_of(key.begin(), key.end(), is_fixed);
  });
}

}  // namespace

bool HasOneRowAtMost(const BoundQuery& query) {
  if (query.selects.size() != 1) return false;
  const BoundSelect& select = query.selects.front();
  if (!select.from || (select.top && *select.top <= 1)) return true;
  if (select.aggregated && select.group_by.empty()) return true;
  const auto* table = std::get_if<BoundTable>(&select.from->node);
  if (table == nullptr || !select.where) return false;
  std::vector<int> fixed;
  CollectFixed(*select.where, table->id, fixed);
  return CoversKey(*table->table, fixed);
}

void SearchSingleValues(BoundExpression& where) {
  if (auto* logical = where.As<BoundLogical>(); logical && logical->op == BinaryOperator::kAnd)
    for (const BoundPtr& operand : logical->operands) SearchSingleValues(*operand);
  auto* in = where.As<BoundInQuery>();
  if (in == nullptr || in->negated || !HasOneRowAtMost(*in->query)) return;
  const BoundExpression& value = *in->query->selects.front().items.front().value;
  const Type type = value.type;
  const double limit = value.limit;
  BoundPtr query = MakeValue(where.at, type, limit, BoundScalarQuery{std::move(in->query), true});
  BoundPtr operand = std::move(in->operand);
  where.node.emplace<BoundCompare>(
      BoundCompare{BinaryOperator::kEqual, std::move(operand), std::move(query)});
}

}  // namespace tarvoni::tsql
