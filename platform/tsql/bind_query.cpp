#include <algorithm>
#include <charconv>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/grouping.h"
#include "platform/tsql/query_binder.h"
#include "platform/tsql/type_rules.h"
#include "platform/tsql/walk.h"

namespace tarvoni::tsql {
namespace {

// Binds one SELECT: its tables first, for they give the names, then its clauses.
class SelectBinder {
 public:
  SelectBinder(BindState& state, const Scope* outer) : state_(state), scope_{outer, {}} {}

  // `compared`: the items are compared with those of an ORDER BY.
  BoundSelect Bind(const Select& select, bool compared);
  // Items of the select come first, then what they are made of. `place` counts from 1.
  BoundOrder BindOrder(const OrderItem& item, size_t place, BoundSelect& select);
  void CheckGrouping(const BoundSelect& select, const std::vector<BoundOrder>& order) {
    if (select.aggregated) grouping::Check(select, order, scope_.sources);
  }

 private:
  BoundSourcePtr BindSource(const TableSource& source);
  BoundSourcePtr BindTable(const NamedTable& named, Position at);
  BoundSourcePtr BindDerived(const DerivedTable& derived, Position at);
  BoundSourcePtr BindJoin(const Join& join);
  void BindItems(const Select& select, bool pinned, BoundSelect& bound);
  void AddStar(const Star& star, Position at, BoundSelect& bound);
  void BindGroups(const Select& select, BoundSelect& bound);
  std::optional<long long> BindTop(const Expression& top);

  BindState& state_;
  Scope scope_;
};

BoundSelect SelectBinder::Bind(const Select& select, bool compared) {
  BoundSelect bound;
  bound.distinct = select.distinct;
  if (select.top) bound.top = BindTop(*select.top);
  if (select.from) bound.from = BindSource(*select.from);
  if (select.where) {
    bound.where = ExpressionBinder(state_, scope_, {}).Condition(*select.where);
    NarrowGroups(*bound.where);
  }
  BindGroups(select, bound);
  BindItems(select, compared || !select.group_by.empty(), bound);
  if (select.having) {
    bound.having = ExpressionBinder(state_, scope_, {.aggregates = true, .pin_literals = true})
                       .Condition(*select.having);
    bound.aggregated = true;
  }
  return bound;
}

std::optional<long long> SelectBinder::BindTop(const Expression& top) {
  const auto* literal = std::get_if<Literal>(&top.node);
  if (literal == nullptr || literal->kind != Literal::Kind::kInteger)
    throw Error(kUnsupported, "TOP takes a whole number.", top.at);
  const std::string text = state_.Pin({literal->index, literal->kind}).text;
  long long count = 0;
  std::from_chars(text.data(), text.data() + text.size(), count);
  return count;
}

BoundSourcePtr SelectBinder::BindSource(const TableSource& source) {
  if (const auto* named = std::get_if<NamedTable>(&source.node)) return BindTable(*named, source.at);
  if (const auto* derived = std::get_if<DerivedTable>(&source.node)) return BindDerived(*derived, source.at);
  return BindJoin(std::get<Join>(source.node));
}

BoundSourcePtr SelectBinder::BindTable(const NamedTable& named, Position at) {
  auto table = state_.tables->Find(named.name);
  if (!table) throw Error(kUnknownTable, "Invalid object name '" + named.name + "'.", at);
  const int id = state_.next_source++;
  state_.read.push_back(table);
  scope_.Add({id, named.alias.empty() ? std::string_view(named.name) : named.alias, table.get(), nullptr},
             at);
  return std::make_unique<BoundSource>(
      BoundSource{BoundTable{id, table, state_.tables->StoredName(named.name)}});
}

BoundSourcePtr SelectBinder::BindDerived(const DerivedTable& derived, Position at) {
  BoundQueryPtr query = BindQuery(state_, scope_.outer, *derived.query, QueryPlace::kDerived);
  const int id = state_.next_source++;
  scope_.Add({id, derived.alias, nullptr, query.get()}, at);
  return std::make_unique<BoundSource>(BoundSource{BoundDerived{id, std::move(query)}});
}

BoundSourcePtr SelectBinder::BindJoin(const Join& join) {
  const auto before = static_cast<std::ptrdiff_t>(scope_.sources.size());
  BoundJoin bound{join.kind, BindSource(*join.left), BindSource(*join.right), nullptr};
  if (join.on) {
    // It sees the tables of its own join only.
    const Scope joined{scope_.outer, {scope_.sources.begin() + before, scope_.sources.end()}};
    bound.on = ExpressionBinder(state_, joined, {.aggregate_error = kAggregateInOn}).Condition(*join.on);
  }
  return std::make_unique<BoundSource>(BoundSource{std::move(bound)});
}

void SelectBinder::BindGroups(const Select& select, BoundSelect& bound) {
  constexpr ClauseRules kRules{
      .aggregate_error = kAggregateInGroupBy, .queries = false, .pin_literals = true};
  for (const ExpressionPtr& group : select.group_by) {
    bound.group_by.push_back(ExpressionBinder(state_, scope_, kRules).Value(*group));
    if (!Mentions(*bound.group_by.back(),
                  [&](const BoundColumn& column) { return scope_.Owns(column.source); }))
      throw Error(kNoGroupColumn,
                  "Each GROUP BY expression must contain at least one column that is not an outer reference.",
                  group->at);
  }
  bound.aggregated = !bound.group_by.empty();
}

void SelectBinder::BindItems(const Select& select, bool pinned, BoundSelect& bound) {
  for (const SelectItem& item : select.items) {
    if (const auto* star = std::get_if<Star>(&item.value->node)) {
      AddStar(*star, item.at, bound);
      continue;
    }
    ExpressionBinder binder(state_, scope_, {.aggregates = true, .pin_literals = pinned});
    BoundPtr value = binder.Value(*item.value);
    bound.aggregated |= binder.SawAggregate();
    std::string name = item.alias;
    if (const auto* column = std::get_if<ColumnName>(&item.value->node); column && name.empty())
      name = column->column;
    bound.items.push_back({std::move(name), std::move(value)});
  }
}

void SelectBinder::AddStar(const Star& star, Position at, BoundSelect& bound) {
  bool found = false;
  for (const VisibleSource& source : scope_.sources) {
    if (!star.table.empty() && !SameName(star.table, source.exposed_name)) continue;
    found = true;
    for (int column = 0; column < source.ColumnCount(); ++column)
      bound.items.push_back({std::string(source.ColumnName(column)), source.Column(column, at)});
  }
  if (found) return;
  if (star.table.empty()) throw Error(263, "Must specify table to select from.", at);
  throw Error(107, "The column prefix '" + star.table + "' does not match with a table name or alias name.",
              at);
}

int OrdinalOf(BindState& state, const Literal& literal, size_t columns, Position at) {
  const std::string text = state.Pin({literal.index, literal.kind}).text;
  int ordinal = 0;
  std::from_chars(text.data(), text.data() + text.size(), ordinal);
  if (ordinal < 1 || static_cast<size_t>(ordinal) > columns)
    throw Error(kOrdinalOutOfRange,
                "The ORDER BY position number " + text +
                    " is out of range of the number of items in the select list.",
                at);
  return ordinal;
}

// The item of that name; 0 if there is none.
int ItemNamed(const BoundSelect& select, std::string_view name) {
  const auto found =
      std::ranges::find_if(select.items, [&](const BoundItem& item) { return SameName(item.name, name); });
  return found == select.items.end() ? 0 : static_cast<int>(found - select.items.begin()) + 1;
}

// The item an ORDER BY names by its alias or column name; 0 if there is none.
int ItemOrdered(const BoundSelect& select, const std::string& name, Position at) {
  const auto named = [&](const BoundItem& item) { return SameName(item.name, name); };
  if (std::ranges::count_if(select.items, named) > 1)
    throw Error(kAmbiguousColumn, "Ambiguous column name '" + name + "'.", at);
  return ItemNamed(select, name);
}

bool IsConstant(const BoundExpression& value) {
  if (value.As<BoundColumn>() || value.As<BoundAggregate>() || value.As<BoundNow>() || QueryOf(value))
    return false;
  const auto* call = value.As<BoundCall>();
  bool constant = call == nullptr || call->function != Function::kIdentCurrent;
  ForEachChild(value, [&](const BoundExpression& child) { constant = constant && IsConstant(child); });
  return constant;
}

BoundOrder SelectBinder::BindOrder(const OrderItem& item, size_t place, BoundSelect& select) {
  const Position at = item.value->at;
  if (const auto* literal = std::get_if<Literal>(&item.value->node);
      literal && literal->kind == Literal::Kind::kInteger)
    return {OrdinalOf(state_, *literal, select.items.size(), at), nullptr, item.descending};
  if (const auto* name = std::get_if<ColumnName>(&item.value->node); name && name->table.empty())
    if (const int ordinal = ItemOrdered(select, name->column, at)) return {ordinal, nullptr, item.descending};
  ExpressionBinder binder(state_, scope_,
                          {.aggregates = true, .pin_literals = select.aggregated || select.distinct});
  BoundPtr value = binder.Value(*item.value);
  if (IsConstant(*value))
    throw Error(
        kConstantOrder,
        "A constant expression was encountered in the ORDER BY list, position " + std::to_string(place) + ".",
        at);
  select.aggregated |= binder.SawAggregate();
  for (size_t index = 0; index < select.items.size(); ++index)
    if (SameExpression(*select.items[index].value, *value))
      return {static_cast<int>(index + 1), nullptr, item.descending};
  if (select.distinct)
    throw Error(kDistinctOrder,
                "ORDER BY items must appear in the select list if SELECT DISTINCT is specified.", at);
  return {0, std::move(value), item.descending};
}

BoundOrder BindUnionOrder(BindState& state, const OrderItem& item, const BoundSelect& first) {
  const Position at = item.value->at;
  if (const auto* literal = std::get_if<Literal>(&item.value->node);
      literal && literal->kind == Literal::Kind::kInteger)
    return {OrdinalOf(state, *literal, first.items.size(), at), nullptr, item.descending};
  const auto* name = std::get_if<ColumnName>(&item.value->node);
  const int ordinal = name ? ItemOrdered(first, name->column, at) : 0;
  if (ordinal == 0)
    throw Error(
        104, "ORDER BY items must appear in the select list if the statement contains a UNION operator.", at);
  return {ordinal, nullptr, item.descending};
}

// The columns of all selects of a union meet in one type each.
void UnifyColumns(BoundQuery& query, Position at) {
  const size_t width = query.selects.front().items.size();
  for (const BoundSelect& select : query.selects)
    if (select.items.size() != width)
      throw Error(kUnionWidth,
                  "All queries combined using a UNION operator must have an equal number of expressions.",
                  at);
  if (query.selects.size() == 1) return;
  for (size_t column = 0; column < width; ++column) {
    Type common;
    for (const BoundSelect& select : query.selects)
      common = CommonType(common, select.items[column].value->type);
    ConvertColumn(query, column, common);
  }
}

void CheckDerivedNames(const BoundSelect& select, Position at) {
  for (size_t index = 0; index < select.items.size(); ++index) {
    const std::string& name = select.items[index].name;
    if (name.empty())
      throw Error(kUnnamedColumn,
                  "No column name was specified for column " + std::to_string(index + 1) + ".", at);
    if (ItemNamed(select, name) != static_cast<int>(index + 1))
      throw Error(kDuplicateDerivedColumn, "The column '" + name + "' was specified multiple times.", at);
  }
}

bool HasTop(const BoundQuery& query) {
  return std::any_of(query.selects.begin(), query.selects.end(),
                     [](const BoundSelect& s) { return s.top.has_value(); });
}

}  // namespace

BoundQueryPtr BindQuery(BindState& state, const Scope* outer, const Query& query, QueryPlace place) {
  auto bound = std::make_unique<BoundQuery>();
  bound->union_all = query.union_all;
  if (query.selects.size() == 1) {
    SelectBinder binder(state, outer);
    const bool compared = query.selects.front().distinct && !query.order_by.empty();
    BoundSelect& select = bound->selects.emplace_back(binder.Bind(query.selects.front(), compared));
    for (const OrderItem& item : query.order_by)
      bound->order_by.push_back(binder.BindOrder(item, bound->order_by.size() + 1, select));
    binder.CheckGrouping(select, bound->order_by);
  } else {
    for (const Select& select : query.selects) {
      SelectBinder binder(state, outer);
      bound->selects.push_back(binder.Bind(select, false));
      binder.CheckGrouping(bound->selects.back(), {});
    }
    UnifyColumns(*bound, query.at);
    for (const OrderItem& item : query.order_by)
      bound->order_by.push_back(BindUnionOrder(state, item, bound->selects.front()));
  }
  if (place == QueryPlace::kDerived) CheckDerivedNames(bound->selects.front(), query.at);
  const bool ordered_alone = place == QueryPlace::kStatement || place == QueryPlace::kInsert;
  if (!ordered_alone && !bound->order_by.empty() && !HasTop(*bound))
    throw Error(
        kOrderInDerived,
        "The ORDER BY clause is invalid in derived tables and subqueries unless TOP is also specified.",
        query.at);
  return bound;
}

BoundQueryPtr BindSubquery(BindState& state, const Scope& outer, const Query& query, int columns) {
  BoundQueryPtr bound = BindQuery(state, &outer, query, QueryPlace::kSubquery);
  if (columns != 0 && bound->selects.front().items.size() != static_cast<size_t>(columns))
    throw Error(kOnlyOneColumn,
                "Only one expression can be specified in the select list when the subquery is not introduced "
                "with EXISTS.",
                query.at);
  return bound;
}

void ConvertColumn(BoundQuery& query, size_t column, const Type& to, BoundConvert::Mode mode) {
  for (BoundSelect& select : query.selects) {
    BoundPtr& value = select.items[column].value;
    value = ConvertTo(std::move(value), to, mode);
  }
}

}  // namespace tarvoni::tsql
