#include "src/common/timber_assignment.h"

#include <vector>

#include "src/common/contracts.h"
#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"

namespace tarvoni {
namespace {

SqlText ListsOf(const TimberOwner& owner) {
  return Compose(R"(
SELECT DISTINCT LOGS.LISTE
FROM LOGS
WHERE LOGS.AA_ID = {} AND LOGS.MANDANTEN_ID = {})",
                 Id(owner.position), Id(owner.client));
}

SqlText TakeLogs(const TimberOwner& owner, const SqlText& lists) {
  return Compose(R"(
UPDATE LOGS SET AA_ID = {},ARBEITSAUFTRAG_KOPF_ID = {}
WHERE LISTE IN (SELECT LISTE FROM LISTENKOPF WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ({})))",
                 Id(owner.position), Id(owner.header), lists);
}

SqlText TakeHeads(const TimberOwner& owner, const SqlText& lists) {
  return Compose(R"(
UPDATE LISTENKOPF SET ID_ARBEITSAUFTRAG_KOPF = {}
WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ({}))",
                 Id(owner.header), lists);
}

SqlText ReleaseLogs(const TimberOwner& owner, const SqlText& lists) {
  return Compose(R"(
UPDATE LOGS SET AA_ID = Null
WHERE LISTE IN (SELECT LISTE FROM LISTENKOPF WHERE ISNULL(GESPERRT, 0) = 0 AND LISTE IN ({}))
  AND AA_ID = {})",
                 lists, Id(owner.position));
}

SqlText Sums(std::int32_t position) {
  return Compose(R"(
SELECT
  (SELECT ISNULL(SUM(FLAECHE),0) FROM NATURALVOLLZUG_LISTE
   WHERE ID_LISTENKOPF IN (
     SELECT ID FROM LISTENKOPF WHERE LISTE IN (SELECT DISTINCT LISTE FROM LOGS WHERE AA_ID = {}))),
  (SELECT ISNULL(SUM(KUBATUR),0) FROM LOGS WHERE AA_ID = {}))",
                 Id(position), Id(position));
}

// The items of "'a','b'"; what stands between their quotes is checked when it goes into a statement.
SqlText InList(const std::string& joined) {
  constexpr std::string_view kBetween = "','";
  std::vector<std::string> items;
  std::string_view rest(joined);
  rest = rest.substr(1, rest.size() - 2);
  for (std::size_t end = rest.find(kBetween); end != std::string_view::npos; end = rest.find(kBetween)) {
    items.emplace_back(rest.substr(0, end));
    rest.remove_prefix(end + kBetween.size());
  }
  items.emplace_back(rest);
  return TextList(items);
}

}  // namespace

bool AssignTimber(const TvnVar_Dll& context, const TimberOwner& owner, const SqlText& offered) {
  const auto chosen = Neighbour<ListSelection>().Ask(context, offered, ListsOf(owner));
  std::vector<SqlText> statements;
  if (!chosen.selected.empty()) {
    const SqlText lists = InList(chosen.selected);
    statements = {TakeLogs(owner, lists), TakeHeads(owner, lists)};
  }
  if (!chosen.left.empty()) statements.push_back(ReleaseLogs(owner, InList(chosen.left)));
  for (const SqlText& statement : statements) DbOf(context).Execute(statement);
  return !statements.empty();
}

bool QuantityFollowsTimber(Connection& connection) {
  return GetOptionNumber("LISTE_KUBATUR_MENGE", connection) != 0;
}

void ShowTimberSums(Connection& connection, std::int32_t position, TextBox& area, TextBox& quantity) {
  const Recordset rows = connection.Open(Sums(position));
  quantity.SetText(rows.EndOfFile() ? "0" : ToText(rows.Fields()[1].Value()));
  for (TextBox* box : {&area, &quantity}) FormatNumberBox(*box, "0.0000");
}

void WriteTimberSums(Connection& connection, std::int32_t position, const TextBox& area,
                     const TextBox& quantity) {
  ExecuteOnRow(connection, Compose("UPDATE ARBEITSAUFTRAG SET FLAECHE = {},MENGE = {} WHERE ID = {}",
                                   NumberOrNull(area.Text()), NumberOrNull(quantity.Text()), Id(position)));
}

}  // namespace tarvoni
