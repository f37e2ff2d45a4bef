#include <algorithm>
#include <charconv>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/grouping.h"
#include "platform/tsql/query_binder.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

// Binds one SELECT: its tables first, for they give the names, then its clauses.
class SelectBinder {
 public:
  SelectBinder(BindState& state, const Scope* outer) : state_(state), scope_{outer, {}} {}

  BoundSelect Bind(const Select& select);
  // Items of the select come first, then what they are made of.
  BoundOrder BindOrder(const OrderItem& item, BoundSelect& select);
  void CheckGrouping(const BoundSelect& select, const std::vector<BoundOrder>& order) {
    if (select.aggregated) grouping::Check(state_, select, order, own_sources_);
  }

 private:
  BoundSourcePtr BindSource(const TableSource& source);
  BoundSourcePtr BindTable(const NamedTable& named, Position at);
  BoundSourcePtr BindDerived(const DerivedTable& derived, Position at);
  BoundSourcePtr BindJoin(const Join& join);
  void BindItems(const Select& select, BoundSelect& bound);
  void AddStar(const Star& star, Position at, BoundSelect& bound);
  void BindGroups(const Select& select, BoundSelect& bound);
  std::optional<long long> BindTop(const Expression& top);
  void Show(VisibleSource source, Position at) {
    own_sources_.push_back(source.id);
    scope_.Add(source, at);
  }

  BindState& state_;
  Scope scope_;
  std::vector<int> own_sources_;
};

BoundSelect SelectBinder::Bind(const Select& select) {
  BoundSelect bound;
  bound.distinct = select.distinct;
  if (select.top) bound.top = BindTop(*select.top);
  if (select.from) bound.from = BindSource(*select.from);
  if (select.where) bound.where = ExpressionBinder(state_, scope_, {}).Condition(*select.where);
  BindGroups(select, bound);
  BindItems(select, bound);
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
  Show({id, named.alias.empty() ? std::string_view(named.name) : named.alias, table.get(), nullptr}, at);
  return std::make_unique<BoundSource>(
      BoundSource{BoundTable{id, table, state_.tables->StoredName(named.name)}});
}

BoundSourcePtr SelectBinder::BindDerived(const DerivedTable& derived, Position at) {
  BoundQueryPtr query = BindQuery(state_, scope_.outer, *derived.query, QueryPlace::kDerived);
  const int id = state_.next_source++;
  Show({id, derived.alias, nullptr, query.get()}, at);
  return std::make_unique<BoundSource>(BoundSource{BoundDerived{id, std::move(query)}});
}

BoundSourcePtr SelectBinder::BindJoin(const Join& join) {
  BoundJoin bound{join.kind, BindSource(*join.left), BindSource(*join.right), nullptr};
  if (join.on) bound.on = ExpressionBinder(state_, scope_, {}).Condition(*join.on);
  return std::make_unique<BoundSource>(BoundSource{std::move(bound)});
}

void SelectBinder::BindGroups(const Select& select, BoundSelect& bound) {
  for (const ExpressionPtr& group : select.group_by)
    bound.group_by.push_back(ExpressionBinder(state_, scope_, {.pin_literals = true}).Value(*group));
  bound.aggregated = !bound.group_by.empty();
}

void SelectBinder::BindItems(const Select& select, BoundSelect& bound) {
  const bool grouped = !select.group_by.empty();
  for (const SelectItem& item : select.items) {
    if (const auto* star = std::get_if<Star>(&item.value->node)) {
      AddStar(*star, item.at, bound);
      continue;
    }
    ExpressionBinder binder(state_, scope_, {.aggregates = true, .pin_literals = grouped});
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

// The item an ORDER BY names by its alias or column name; 0 if there is none.
int ItemNamed(const BoundSelect& select, std::string_view name) {
  for (size_t index = 0; index < select.items.size(); ++index)
    if (SameName(select.items[index].name, name)) return static_cast<int>(index + 1);
  return 0;
}

BoundOrder SelectBinder::BindOrder(const OrderItem& item, BoundSelect& select) {
  const Position at = item.value->at;
  if (const auto* literal = std::get_if<Literal>(&item.value->node);
      literal && literal->kind == Literal::Kind::kInteger)
    return {OrdinalOf(state_, *literal, select.items.size(), at), nullptr, item.descending};
  if (const auto* name = std::get_if<ColumnName>(&item.value->node); name && name->table.empty())
    if (const int ordinal = ItemNamed(select, name->column)) return {ordinal, nullptr, item.descending};
  ExpressionBinder binder(state_, scope_, {.aggregates = true, .pin_literals = select.aggregated});
  BoundPtr value = binder.Value(*item.value);
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
  const int ordinal = name ? ItemNamed(first, name->column) : 0;
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
    BoundSelect& select = bound->selects.emplace_back(binder.Bind(query.selects.front()));
    for (const OrderItem& item : query.order_by) bound->order_by.push_back(binder.BindOrder(item, select));
    binder.CheckGrouping(select, bound->order_by);
  } else {
    for (const Select& select : query.selects) {
      SelectBinder binder(state, outer);
      bound->selects.push_back(binder.Bind(select));
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
