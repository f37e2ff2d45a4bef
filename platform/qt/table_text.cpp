#include "platform/qt/table_text.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace tarvoni::qt {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

std::string Quoted(std::string_view text, char separator) {
  if (text.find_first_not_of(' ') == std::string_view::npos) return {};  // of blanks alone
  const bool plain = text.find_first_of("\"\r\n") == std::string_view::npos &&
                     text.find(separator) == std::string_view::npos && !text.starts_with(' ') &&
                     !text.ends_with(' ');
  if (plain) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) quoted.append(c == '"' ? 2 : 1, c);
  return quoted + '"';
}

// Appends one line; `cell(column)` gives the text.
template <typename CellOf>
void AppendLine(std::string& text, const std::vector<int>& columns, char separator, const CellOf& cell) {
  bool first = true;
  for (const int column : columns) {
    if (!std::exchange(first, false)) text += separator;
    text += Quoted(cell(column), separator);
  }
  text += "\r\n";
}

std::vector<int> SelectedColumns(const TableSource& table, const std::vector<CellRange>& cells) {
  std::vector<int> columns = VisibleColumns(table);
  std::erase_if(columns, [&](int column) {
    return std::ranges::none_of(
        cells, [&](const CellRange& range) { return column >= range.left && column <= range.right; });
  });
  return columns;
}

std::set<int> SelectedRows(const TableSource& table, const std::vector<CellRange>& cells) {
  std::set<int> rows;
  for (const CellRange& range : cells) {
    for (int row = range.top; row <= std::min(range.bottom, table.RowCount() - 1); ++row) rows.insert(row);
  }
  return rows;
}

}  // namespace

std::string ClipboardText(const TableSource& table, const std::vector<CellRange>& cells) {
  const std::vector<int> columns = SelectedColumns(table, cells);
  const std::set<int> rows = SelectedRows(table, cells);
  if (columns.size() == 1 && rows.size() == 1) return table.TextAt(*rows.begin(), columns[0]);
  std::string text;
  AppendLine(text, columns, '\t', [&](int column) { return table.ColumnAt(column).caption; });
  for (const int row : rows) {
    AppendLine(text, columns, '\t', [&](int column) {
      const bool chosen =
          std::ranges::any_of(cells, [&](const CellRange& range) { return range.Has(row, column); });
      return chosen ? table.TextAt(row, column) : std::string();
    });
  }
  return text;
}

std::string CsvText(const TableSource& table) {
  const std::vector<int> columns = VisibleColumns(table);
  std::string text(kUtf8Mark);
  AppendLine(text, columns, ';', [&](int column) { return table.ColumnAt(column).caption; });
  for (int row = 0; row < table.RowCount(); ++row) {
    AppendLine(text, columns, ';', [&](int column) { return table.TextAt(row, column); });
  }
  return text;
}

}  // namespace tarvoni::qt
