#include "platform/tsql/grouping.h"

#include <algorithm>

#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

bool SameNode(const BoundExpression& a, const BoundExpression& b) {
  return std::visit(
      [&](const auto& left) {
        using Node = std::decay_t<decltype(left)>;
        const auto& right = std::get<Node>(b.node);
        if constexpr (std::is_same_v<Node, BoundParameter>) {
          return left.literal == right.literal;
        } else if constexpr (std::is_same_v<Node, BoundConstant>) {
          return left.kind == right.kind && left.text == right.text;
        } else if constexpr (std::is_same_v<Node, BoundColumn>) {
          return left.source == right.source && left.index == right.index;
        } else if constexpr (requires { left.query; }) {
          return &left == &right;
        } else if constexpr (requires { left.op; }) {
          return left.op == right.op;
        } else if constexpr (requires { left.function; }) {
          return left.function == right.function;
        } else if constexpr (requires { left.negated; }) {
          return left.negated == right.negated;
        } else {
          return true;
        }
      },
      a.node);
}

std::vector<const BoundExpression*> ChildrenOf(const BoundExpression& expression) {
  std::vector<const BoundExpression*> children;
  ForEachChild(expression, [&](const BoundExpression& child) { children.push_back(&child); });
  return children;
}

}  // namespace

bool SameExpression(const BoundExpression& a, const BoundExpression& b) {
  if (a.node.index() != b.node.index() || a.type.kind != b.type.kind || !SameNode(a, b)) return false;
  const auto left = ChildrenOf(a);
  const auto right = ChildrenOf(b);
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const auto* x, const auto* y) { return SameExpression(*x, *y); });
}

namespace grouping {
namespace {

struct Checker {
  const BoundSelect& select;
  const std::vector<int>& own_sources;

  bool Grouped(const BoundExpression& expression) const {
    return std::any_of(select.group_by.begin(), select.group_by.end(),
                       [&](const BoundPtr& group) { return SameExpression(*group, expression); });
  }

  void Check(const BoundExpression& expression) const {
    if (std::holds_alternative<BoundAggregate>(expression.node) || Grouped(expression)) return;
    if (const auto* column = expression.As<BoundColumn>();
        column && std::find(own_sources.begin(), own_sources.end(), column->source) != own_sources.end())
      throw Error(
          kNotGrouped,
          "Column '" + std::string(column->name) +
              "' is invalid in the select list because it is not contained in either an aggregate function "
              "or the GROUP BY clause.",
          expression.at);
    ForEachChild(expression, [&](const BoundExpression& child) { Check(child); });
  }
};

}  // namespace

void Check(const BindState&, const BoundSelect& select, const std::vector<BoundOrder>& order,
           const std::vector<int>& own_sources) {
  const Checker checker{select, own_sources};
  for (const BoundItem& item : select.items) checker.Check(*item.value);
  if (select.having) checker.Check(*select.having);
  for (const BoundOrder& item : order)
    if (item.value) checker.Check(*item.value);
}

}  // namespace grouping
}  // namespace tarvoni::tsql
