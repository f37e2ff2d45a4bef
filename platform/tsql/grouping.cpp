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
        } else if constexpr (std::is_same_v<Node, BoundCase>) {
          return left.branches.size() == right.branches.size() && !left.operand == !right.operand;
        } else if constexpr (requires { left.mode; }) {
          return left.mode == right.mode;
        } else if constexpr (requires { left.subtract; }) {
          return left.subtract == right.subtract;
        } else if constexpr (requires { left.op; }) {
          return left.op == right.op;
        } else if constexpr (requires { left.distinct; }) {
          return left.function == right.function && left.distinct == right.distinct;
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
  if (a.node.index() != b.node.index() || a.type != b.type || !SameNode(a, b)) return false;
  const auto left = ChildrenOf(a);
  const auto right = ChildrenOf(b);
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](const auto* x, const auto* y) { return SameExpression(*x, *y); });
}

namespace grouping {
namespace {

struct Clause {
  int error;
  std::string_view name;
};
constexpr Clause kSelectList{kNotGrouped, "select list"};
constexpr Clause kHaving{kHavingNotGrouped, "HAVING clause"};
constexpr Clause kOrderBy{kOrderNotGrouped, "ORDER BY clause"};

class Checker {
 public:
  Checker(const BoundSelect& select, const std::vector<VisibleSource>& own_sources, const Clause& clause)
      : select_(select), own_sources_(own_sources), clause_(clause) {}

  void Check(const BoundExpression& expression) const {
    if (std::holds_alternative<BoundAggregate>(expression.node) || Grouped(expression)) return;
    if (const auto* column = expression.As<BoundColumn>()) CheckColumn(*column, expression.at);
    ForEachChild(expression, [&](const BoundExpression& child) { Check(child); });
    if (const BoundQuery* query = QueryOf(expression))
      ForEachExpression(*query, [&](const BoundExpression& inner) { Check(inner); });
  }

 private:
  bool Grouped(const BoundExpression& expression) const {
    return std::any_of(select_.group_by.begin(), select_.group_by.end(),
                       [&](const BoundPtr& group) { return SameExpression(*group, expression); });
  }

  void CheckColumn(const BoundColumn& column, Position at) const {
    const auto source = std::ranges::find(own_sources_, column.source, &VisibleSource::id);
    if (source == own_sources_.end()) return;
    throw Error(clause_.error,
                "Column '" + std::string(source->exposed_name) + "." + std::string(column.name) +
                    "' is invalid in the " + std::string(clause_.name) +
                    " because it is not contained in either an aggregate function or the GROUP BY clause.",
                at);
  }

  const BoundSelect& select_;
  const std::vector<VisibleSource>& own_sources_;
  const Clause& clause_;
};

}  // namespace

void Check(const BoundSelect& select, const std::vector<BoundOrder>& order,
           const std::vector<VisibleSource>& own_sources) {
  for (const BoundItem& item : select.items) Checker(select, own_sources, kSelectList).Check(*item.value);
  if (select.having) Checker(select, own_sources, kHaving).Check(*select.having);
  for (const BoundOrder& item : order)
    if (item.value) Checker(select, own_sources, kOrderBy).Check(*item.value);
}

}  // namespace grouping
}  // namespace tarvoni::tsql
