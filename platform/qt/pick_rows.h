#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/qt/search_text.h"
#include "platform/qt/table_source.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/locale.h"

namespace tarvoni::qt {

// The rows of a pick list as they are shown: without the hidden columns, filtered and sorted. Rows of the statement
// keep their number through all of it.
class PickRows : public TableSource {
 public:
  PickRows(const PickRequest& request, const Locale& locale);

  int RowCount() const override { return static_cast<int>(shown_.size()); }
  int ColumnCount() const override { return static_cast<int>(columns_.size()); }
  TableColumn ColumnAt(int column) const override { return columns_[static_cast<std::size_t>(column)]; }
  std::string TextAt(int row, int column) const override;
  Value ValueAt(int row, int column) const override;

  std::size_t AllRows() const { return sorted_.size(); }
  // Shows the rows that fit what was typed: the best first, or in the order of the head the user chose. Gives the row
  // to stand on, which is the best; -1 without any.
  int Filter(std::string_view typed);
  // Sorts by a column, the same again the other way round.
  void SortBy(int column);
  int SortColumn() const { return sort_column_; }
  bool Descending() const { return descending_; }

  std::size_t StatementRow(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  // Where a row of the statement is shown; nothing if it is filtered away.
  std::optional<int> ShownRow(std::size_t statement_row) const;
  // The row of the statement to begin with: that of the code, else the first whose code begins so, else the first.
  std::optional<std::size_t> StartRow(std::string_view code) const;
  // The row whose visible code is the typed text, whether it is shown or not.
  std::optional<std::size_t> RowOfCode(std::string_view typed) const;

 private:
  std::string FormatOf(int statement_column) const;
  std::string CodeOf(std::size_t row) const;
  const Value& Cell(std::size_t row, int statement_column) const;
  void MakeSearchable();
  void Show();

  mutable Recordset rows_;
  Locale locale_;
  int code_column_;
  int hidden_columns_;
  std::vector<TableColumn> columns_;
  std::vector<SearchRow> search_;
  std::vector<std::size_t> sorted_;  // all rows
  std::vector<std::size_t> shown_;
  SearchQuery query_{""};
  int sort_column_ = -1;
  bool descending_ = false;
  std::size_t best_ = 0;  // index into shown_
};

}  // namespace tarvoni::qt
