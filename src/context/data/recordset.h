#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/values/value.h"

namespace tarvoni {

struct Column {
  std::string name;  // empty when the statement gives none
  FieldType type = FieldType::kEmpty;
  int size = 0;  // defined length of a text column in characters, else 0
};

// The rows of one result as a backend hands them over, cell by cell, row after row.
struct RowSet {
  std::vector<Column> columns;
  std::vector<Value> cells;

  std::size_t RowCount() const { return columns.empty() ? 0 : cells.size() / columns.size(); }
};

class Recordset;

enum class SortOrder { kAscending, kDescending };

class Field {
 public:
  const std::string& Name() const;
  FieldType Type() const;
  int DefinedSize() const;
  // The value in the current row; without a current row error 3021.
  const tarvoni::Value& Value() const;

 private:
  friend class FieldList;
  Field(const Recordset* recordset, std::size_t index) : recordset_(recordset), index_(index) {}
  const Recordset* recordset_;
  std::size_t index_;
};

class FieldList {
 public:
  int Count() const;
  Field operator[](
      std::string_view name) const;   // without regard to case, the first of duplicates; error 3265
  Field operator[](int index) const;  // from 0; error 3265

 private:
  friend class Recordset;
  explicit FieldList(const Recordset* recordset) : recordset_(recordset) {}
  const Recordset* recordset_;
};

// A client-side cursor over all rows of a result. A closed recordset refuses everything with error 3704.
class Recordset {
 public:
  static constexpr int kPositionBof = -2;
  static constexpr int kPositionEof = -3;

  Recordset() = default;  // closed
  explicit Recordset(RowSet rows);

  bool IsOpen() const { return rows_ != nullptr; }
  bool EndOfFile() const;    // ADO: EOF
  bool BeginOfFile() const;  // ADO: BOF
  std::size_t RecordCount() const;

  // The moves. On an empty recordset, or past an end already reached, error 3021.
  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  void Move(long rows);

  // Searches from the current row for "COLUMN = value" (also <>, <, >, <=, >=); text stands in single quotes and
  // compares without regard to case. Without a hit the recordset stands behind the last row.
  void Find(std::string_view criterion);
  // Orders by "COLUMN [ASC|DESC][, COLUMN …]" and moves to the first row; NULL comes first; "" restores the
  // statement's order.
  void Sort(std::string_view columns);
  // The same by one column's number from 0 (error 3265), as a column without a name needs it.
  void Sort(int column, SortOrder order = SortOrder::kAscending);

  // All rows from the current one, row by row; moves behind the last row.
  std::vector<std::vector<tarvoni::Value>> GetRows();

  // Position counted from 1, or kPositionBof, kPositionEof.
  int AbsolutePosition() const;
  // The current row's number from 0 in the order the statement gave, however the rows are sorted.
  std::size_t StatementRow() const {
    const auto row = static_cast<std::size_t>(position_);
    return order_.empty() ? row : order_[row];
  }
  void SetAbsolutePosition(int position);

  // A second cursor over the same rows, at the first row, unsorted.
  Recordset Clone() const;
  // The fields look into this recordset, so a temporary one has none to give.
  FieldList Fields() const& { return FieldList(this); }
  FieldList Fields() const&& = delete;
  void Close();

  const std::vector<Column>& Columns() const;

 private:
  friend class Field;
  friend class FieldList;
  const tarvoni::Value& Cell(std::size_t column) const;
  std::size_t Require(std::string_view column) const;
  void RequireOpen() const;
  void TakeOrder(std::vector<std::size_t> order);

  std::shared_ptr<const RowSet> rows_;
  std::vector<std::size_t> order_;  // empty: the statement's order
  long position_ = 0;               // -1 before the first row, RecordCount() behind the last
};

}  // namespace tarvoni
