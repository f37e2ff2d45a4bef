#include "platform/tsql/walk.h"

#include <algorithm>
#include <utility>

namespace tarvoni::tsql {
namespace {

// The tables a query has, and those whose columns it reads, with all queries inside it.
struct Sources {
  std::set<int> own;
  std::set<int> read;

  void Add(const BoundSource& source) {
    if (const auto* table = std::get_if<BoundTable>(&source.node)) own.insert(table->id);
    if (const auto* join = std::get_if<BoundJoin>(&source.node)) Add(*join->left), Add(*join->right);
    if (const auto* derived = std::get_if<BoundDerived>(&source.node)) {
      own.insert(derived->id);
      Add(*derived->query);
    }
  }

  void Add(const BoundQuery& query) {
    for (const BoundSelect& select : query.selects)
      if (select.from) Add(*select.from);
    ForEachExpression(query, [&](const BoundExpression& expression) { Add(expression); });
  }

  void Add(const BoundExpression& expression) {
    if (const auto* column = expression.As<BoundColumn>()) read.insert(column->source);
    ForEachChild(expression, [&](const BoundExpression& child) { Add(child); });
    if (const BoundQuery* query = QueryOf(expression)) Add(*query);
  }
};

}  // namespace

std::set<int> SourcesInside(const BoundExpression& expression) {
  Sources sources;
  sources.Add(expression);
  return std::move(sources.own);
}

bool HasOuterAggregate(const BoundQuery& query) {
  Sources sources;
  sources.Add(query);
  const auto outer = [&](const BoundColumn& column) { return !sources.own.contains(column.source); };
  const auto search = [&](const BoundExpression& expression, const auto& self) -> bool {
    if (expression.As<BoundAggregate>()) return Mentions(expression, outer);
    bool found = false;
    ForEachChild(expression, [&](const BoundExpression& child) { found = found || self(child, self); });
    return found;
  };
  return std::ranges::any_of(query.selects.front().items,
                             [&](const BoundItem& item) { return search(*item.value, search); });
}

bool IsClosed(const BoundQuery& query) {
  Sources sources;
  sources.Add(query);
  return std::ranges::includes(sources.own, sources.read);
}

}  // namespace tarvoni::tsql
