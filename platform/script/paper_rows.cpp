#include "platform/script/paper_rows.h"

#include "src/context/services/environment.h"

namespace tarvoni {
namespace {

void AddTable(TextRows& rows, const PrintDocument::Table& table) {
  if (!table.heading.empty()) rows.push_back({table.heading});
  auto& captions = rows.emplace_back();
  for (const PrintDocument::Column& column : table.columns) captions.push_back(column.caption);
  for (const PrintDocument::Row& row : table.rows) {
    auto& cells = rows.emplace_back();
    for (std::size_t i = 0; i < table.columns.size(); ++i)
      cells.push_back(CellText(table, row, i, CurrentLocale()));
  }
}

}  // namespace

TextRows PaperRows(const PrintDocument& document) {
  TextRows rows;
  if (!document.issuer.empty()) rows.push_back({document.issuer});
  rows.push_back({document.title});
  for (const PrintDocument::Fact& fact : document.facts) rows.push_back({fact.label, fact.text});
  for (const PrintDocument::Table& table : document.tables) AddTable(rows, table);
  for (const std::string& remark : document.remarks) rows.push_back({remark});
  if (!document.signatures.empty()) rows.push_back(document.signatures);
  return rows;
}

}  // namespace tarvoni
