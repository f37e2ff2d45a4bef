#include "platform/tsql/parser_impl.h"

namespace tarvoni::tsql {
namespace {

TableSourcePtr MakeSource(Position at, decltype(TableSource::node) node) {
  return std::make_unique<TableSource>(TableSource{at, std::move(node)});
}

}  // namespace

// A query begins here, perhaps in brackets of its own.
bool Parser::MatchQuery() const {
  std::ptrdiff_t word = 0;
  while (Match("(", word)) ++word;
  return Match("SELECT", word);
}

QueryPtr Parser::ParseQuery() {
  const Nesting nesting(*this);
  auto query = std::make_unique<Query>();
  query->at = Peek().at;
  ParseUnion(*query);
  ParseOrderBy(*query);
  Refuse({{"FOR", "FOR XML"}, {"OPTION", "OPTION"}, {"COMPUTE", "COMPUTE"}});
  return query;
}

void Parser::ParseUnion(Query& query) {
  ParseQueryTerm(query);
  while (ConsumeIf("UNION")) {
    query.union_all.push_back(ConsumeIf("ALL"));
    ParseQueryTerm(query);
  }
  Refuse({{"EXCEPT", "EXCEPT"}, {"INTERSECT", "INTERSECT"}});
}

// A SELECT, or one in brackets. Several of them in brackets may only come first, where the brackets say
// nothing.
void Parser::ParseQueryTerm(Query& query) {
  if (!Match("(")) {
    query.selects.push_back(ParseSelect());
    return;
  }
  const Nesting nesting(*this);
  const bool first = query.selects.empty();
  const size_t before = query.selects.size();
  Consume();
  ParseUnion(query);
  if (!first && query.selects.size() > before + 1) FailUnsupported("UNION in brackets behind another UNION");
  Expect(")");
}

Select Parser::ParseSelect() {
  Select select;
  select.at = Expect("SELECT").at;
  select.distinct = ConsumeIf("DISTINCT");
  if (!select.distinct) ConsumeIf("ALL");
  if (Match("TOP")) select.top = ParseTop();
  ParseList([&] { select.items.push_back(ParseSelectItem()); });
  Refuse({{"INTO", "SELECT INTO"}});
  if (ConsumeIf("FROM")) select.from = ParseFrom();
  select.where = ParseWhere();
  if (Match("GROUP")) ParseGroupBy(select);
  if (ConsumeIf("HAVING")) select.having = ParseCondition();
  return select;
}

ExpressionPtr Parser::ParseTop() {
  Expect("TOP");
  const bool bracket = ConsumeIf("(");
  if (!MatchKind(TokenKind::kInteger)) FailUnexpected();
  ExpressionPtr top = ParseLiteral();
  if (bracket) Expect(")");
  Refuse({{"PERCENT", "TOP … PERCENT"}, {"WITH", "TOP … WITH TIES"}});
  return top;
}

SelectItem Parser::ParseSelectItem() {
  SelectItem item{Peek().at, nullptr, {}};
  if (ConsumeIf("*")) {
    item.value = MakeExpression(item.at, Star{});
  } else if (MatchKind(TokenKind::kName) && Match(".", 1) && Match("*", 2)) {
    item.value = MakeExpression(item.at, Star{std::string(Consume().text)});
    next_ += 2;
  } else if (MatchKind(TokenKind::kName) && Match("=", 1)) {
    item.alias = Consume().text;
    Consume();
    item.value = ParseValue();
  } else {
    item.value = ParseValue();
    item.alias = ParseAlias(true);
  }
  return item;
}

// The alias there is, with or without AS; a column's may be written as a text.
std::string Parser::ParseAlias(bool text_allowed) {
  const bool due = ConsumeIf("AS");
  if (text_allowed && MatchKind(TokenKind::kText)) {
    return lexed_.literals[ExpectPinned(TokenKind::kText).literal].text;
  }
  return due || MatchKind(TokenKind::kName) ? std::string(ExpectName().text) : std::string();
}

void Parser::ParseGroupBy(Select& select) {
  Expect("GROUP");
  Expect("BY");
  Refuse({{"ALL", "GROUP BY ALL"}});
  ParseList([&] {
    if (Match("(", 1)) Refuse({{"ROLLUP", "GROUP BY ROLLUP"}, {"CUBE", "GROUP BY CUBE"}});
    if (MatchName("GROUPING") && MatchName("SETS", 1)) FailUnsupported("GROUP BY GROUPING SETS");
    select.group_by.push_back(ParseValue());
  });
  Refuse({{"WITH", "GROUP BY … WITH ROLLUP or CUBE"}});
}

void Parser::ParseOrderBy(Query& query) {
  if (!ConsumeIf("ORDER")) return;
  Expect("BY");
  ParseList([&] {
    ExpressionPtr value = ParseValue();
    const bool descending = ConsumeIf("DESC");
    if (!descending) ConsumeIf("ASC");
    query.order_by.push_back({std::move(value), descending});
  });
  Refuse({{"OFFSET", "OFFSET"}});
}

TableSourcePtr Parser::ParseFrom() {
  const Nesting nesting(*this);
  TableSourcePtr from = ParseJoinedTable();
  while (Match(",")) {
    const Position at = Consume().at;
    const Link link(*this);
    from = MakeSource(at, Join{JoinKind::kComma, std::move(from), ParseJoinedTable(), nullptr});
  }
  return from;
}

TableSourcePtr Parser::ParseJoinedTable() {
  TableSourcePtr table = ParseTablePrimary();
  while (MatchJoin()) table = ParseJoin(std::move(table));
  return table;
}

bool Parser::MatchJoin() const {
  const bool outer = Match("LEFT") || Match("RIGHT") || Match("FULL");
  return outer || Match("JOIN") || Match("INNER") || Match("CROSS") || Match("OUTER");
}

// One join with all on its right that comes before its ON: A JOIN B JOIN C ON … ON … is A JOIN (B JOIN C ON
// …) ON ….
TableSourcePtr Parser::ParseJoin(TableSourcePtr left) {
  const Position at = Peek().at;
  const JoinKind kind = ParseJoinKind();
  const Link link(*this);
  TableSourcePtr right = ParseTablePrimary();
  ExpressionPtr on;
  if (kind != JoinKind::kCross) {
    while (MatchJoin()) {
      const Nesting nesting(*this);
      right = ParseJoin(std::move(right));
    }
    Expect("ON");
    on = ParseCondition();
  }
  return MakeSource(at, Join{kind, std::move(left), std::move(right), std::move(on)});
}

JoinKind Parser::ParseJoinKind() {
  JoinKind kind = JoinKind::kInner;
  if (ConsumeIf("CROSS")) {
    Refuse({{"APPLY", "CROSS APPLY"}});
    kind = JoinKind::kCross;
  } else if (Match("LEFT") || Match("RIGHT") || Match("FULL")) {
    kind = Match("LEFT") ? JoinKind::kLeft : Match("RIGHT") ? JoinKind::kRight : JoinKind::kFull;
    Consume();
    ConsumeIf("OUTER");
  } else if (Match("OUTER")) {
    if (MatchName("APPLY", 1)) FailUnsupported("OUTER APPLY");
    FailUnexpected();
  } else {
    ConsumeIf("INNER");
  }
  Expect("JOIN");
  return kind;
}

TableSourcePtr Parser::ParseTablePrimary() {
  if (MatchKind(TokenKind::kName)) return ParseNamedTable();
  Refuse({{"OPENQUERY", "OPENQUERY"}, {"OPENROWSET", "OPENROWSET"}, {"OPENXML", "OPENXML"}});
  if (!Match("(")) FailUnexpected();
  if (Match("SELECT", 1)) return ParseDerivedTable();
  Consume();
  Refuse({{"VALUES", "A derived table of VALUES"}});
  const Nesting nesting(*this);
  TableSourcePtr joined = ParseJoinedTable();
  Expect(")");
  return joined;
}

TableSourcePtr Parser::ParseDerivedTable() {
  const Position at = Expect("(").at;
  QueryPtr query = ParseQuery();
  Expect(")");
  std::string alias = ParseAlias(false);
  if (alias.empty()) FailUnexpected();
  if (Match("(")) FailUnsupported("A list of columns behind the name of a derived table");
  return MakeSource(at, DerivedTable{std::move(query), std::move(alias)});
}

TableSourcePtr Parser::ParseNamedTable() {
  Position at;
  std::string name = ParseTableName(at);
  if (Match("(")) FailUnsupported("A table-valued function or a table hint");
  std::string alias = ParseAlias(false);
  Refuse(
      {{"WITH", "A table hint"}, {"TABLESAMPLE", "TABLESAMPLE"}, {"PIVOT", "PIVOT"}, {"UNPIVOT", "UNPIVOT"}});
  return MakeSource(at, NamedTable{std::move(name), std::move(alias)});
}

}  // namespace tarvoni::tsql
