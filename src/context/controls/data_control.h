#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/context/controls/control.h"
#include "src/context/data/database.h"
#include "src/context/data/recordset.h"

namespace tarvoni {

class DataControl;
class DataGrid;

// The rows of a data control. Each move, by the user or by program, raises the control's MoveComplete and
// carries the bound grids along.
class BoundRecordset {
 public:
  bool IsOpen() const { return rows_.IsOpen(); }
  bool EndOfFile() const { return rows_.EndOfFile(); }
  bool BeginOfFile() const { return rows_.BeginOfFile(); }
  bool HasCurrentRow() const { return IsOpen() && !EndOfFile() && !BeginOfFile(); }
  std::size_t RecordCount() const { return rows_.RecordCount(); }
  bool Empty() const { return RecordCount() == 0; }
  int AbsolutePosition() const { return rows_.AbsolutePosition(); }
  FieldList Fields() const { return rows_.Fields(); }
  Recordset Clone() const { return rows_.Clone(); }
  const Recordset& Rows() const { return rows_; }

  void MoveFirst();
  void MoveLast();
  void MoveNext();
  void MovePrevious();
  void Move(long rows);
  void SetAbsolutePosition(int position);
  void Find(std::string_view criterion);
  void Sort(std::string_view columns);
  void Sort(int column, SortOrder order = SortOrder::kAscending);

 private:
  friend class DataControl;
  explicit BoundRecordset(DataControl& owner) : owner_(owner) {}
  void Sorted();

  DataControl& owner_;
  tarvoni::Recordset rows_;
};

// By which column rows are sorted.
struct RowOrder {
  int column = 0;
  std::string field;  // its name, which may be empty
  SortOrder direction = SortOrder::kAscending;
};

// Keeps the rows of one statement. It opens the connection by itself from the connection string.
class DataControl : public Control {
 public:
  DataControl(Form& form, std::string name, int index = kNoIndex);
  ~DataControl() override;

  const std::string& ConnectionString() const { return connection_string_; }
  void SetConnectionString(std::string_view connection_string);
  const SqlText& RecordSource() const { return record_source_; }
  void SetRecordSource(SqlText statement) { record_source_ = std::move(statement); }

  // Runs the statement again, sorts its rows as the user chose, rebuilds the columns of the bound grids and stands on
  // the first row. If the statement fails, the rows stay as they were.
  void Refresh();
  BoundRecordset& Recordset() { return recordset_; }
  const BoundRecordset& Recordset() const { return recordset_; }

  // The order the user gave the rows; nothing for the statement's own.
  const std::optional<RowOrder>& Order() const { return order_; }
  // Sorts by the column, or the other way round if it is sorted by it; the current row stays the current one.
  void OrderBy(int column);

  Event<> MoveComplete;

 private:
  friend class BoundRecordset;
  friend class DataGrid;
  void RowMoved();
  void RowsChanged();
  void KeepOrder();

  std::string connection_string_;
  SqlText record_source_;
  std::optional<RowOrder> order_;
  std::shared_ptr<Connection> connection_;
  BoundRecordset recordset_{*this};
  std::vector<DataGrid*> grids_;
};

}  // namespace tarvoni
