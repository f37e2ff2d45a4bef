#pragma once

#include <set>

#include "platform/tsql/bound.h"

namespace tarvoni::tsql {

// Calls `visit` with each expression directly inside this one, those of subqueries left out.
template <typename Visit>
void ForEachChild(const BoundExpression& expression, Visit visit) {
  const auto maybe = [&](const BoundPtr& child) {
    if (child) visit(*child);
  };
  const auto all = [&](const std::vector<BoundPtr>& children) {
    for (const BoundPtr& child : children) visit(*child);
  };
  std::visit(
      [&](const auto& node) {
        using Node = std::decay_t<decltype(node)>;
        if constexpr (requires {
                        node.left;
                        node.right;
                      }) {
          maybe(node.left), maybe(node.right);
        } else if constexpr (std::is_same_v<Node, BoundCase>) {
          maybe(node.operand);
          for (const BoundCase::Branch& branch : node.branches) maybe(branch.when), maybe(branch.then);
          maybe(node.otherwise);
        } else if constexpr (std::is_same_v<Node, BoundDateAdd>) {
          maybe(node.date), maybe(node.days);
        } else if constexpr (std::is_same_v<Node, BoundLogical>) {
          all(node.operands);
        } else if constexpr (std::is_same_v<Node, BoundCall>) {
          all(node.arguments);
        } else if constexpr (std::is_same_v<Node, BoundAggregate>) {
          maybe(node.argument);
        } else if constexpr (std::is_same_v<Node, BoundIn>) {
          maybe(node.operand), all(node.items);
        } else if constexpr (requires { node.operand; }) {
          maybe(node.operand);
        }
      },
      expression.node);
}

// Whether a column for which `wanted` holds stands in the expression, those of subqueries left out.
template <typename Wanted>
bool Mentions(const BoundExpression& expression, const Wanted& wanted) {
  if (const auto* column = expression.As<BoundColumn>()) return wanted(*column);
  bool mentions = false;
  ForEachChild(expression,
               [&](const BoundExpression& child) { mentions = mentions || Mentions(child, wanted); });
  return mentions;
}

// The query of a node that is a value, a list or a test made of one; else nothing.
inline const BoundQuery* QueryOf(const BoundExpression& expression) {
  return std::visit(
      [](const auto& node) -> const BoundQuery* {
        if constexpr (requires { node.query; }) return node.query.get();
        return nullptr;
      },
      expression.node);
}

template <typename Visit>
void ForEachExpression(const BoundQuery& query, const Visit& visit);

template <typename Visit>
void ForEachExpression(const BoundSource& source, const Visit& visit) {
  if (const auto* derived = std::get_if<BoundDerived>(&source.node)) {
    ForEachExpression(*derived->query, visit);
  } else if (const auto* join = std::get_if<BoundJoin>(&source.node)) {
    ForEachExpression(*join->left, visit);
    ForEachExpression(*join->right, visit);
    if (join->on) visit(*join->on);
  }
}

// Calls `visit` with each expression that stands in a clause of the query, or of one in the place of a table.
template <typename Visit>
void ForEachExpression(const BoundQuery& query, const Visit& visit) {
  for (const BoundSelect& select : query.selects) {
    for (const BoundItem& item : select.items) visit(*item.value);
    if (select.from) ForEachExpression(*select.from, visit);
    if (select.where) visit(*select.where);
    for (const BoundPtr& group : select.group_by) visit(*group);
    if (select.having) visit(*select.having);
  }
  for (const BoundOrder& order : query.order_by)
    if (order.value) visit(*order.value);
}

// Whether the query, with those inside it, reads columns of its own tables only.
bool IsClosed(const BoundQuery& query);
// The tables of all queries inside the expression.
std::set<int> SourcesInside(const BoundExpression& expression);
// Whether an aggregate in its list is one of a query around it.
bool HasOuterAggregate(const BoundQuery& query);

}  // namespace tarvoni::tsql
