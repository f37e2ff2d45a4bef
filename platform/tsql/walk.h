#pragma once

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

}  // namespace tarvoni::tsql
