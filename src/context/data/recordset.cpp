#include "src/context/data/recordset.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "src/context/data/criterion.h"
#include "src/context/data/database_error.h"
#include "src/context/values/text.h"

namespace tarvoni {
namespace {

struct SortKey {
  std::size_t column = 0;
  bool descending = false;
};

[[noreturn]] void RaiseNoCurrentRow() {
  throw DatabaseError(kErrorNoCurrentRow, "Es gibt keinen aktuellen Datensatz.");
}

[[noreturn]] void RaiseNotFound(std::string_view item) {
  throw DatabaseError(kErrorItemNotFound, "Es gibt keine Spalte " + std::string(item) + ".");
}

std::size_t FindColumn(const std::vector<Column>& columns, std::string_view name) {
  const auto found = std::find_if(columns.begin(), columns.end(), [name](const Column& column) {
    return column.name == name || CompareText(column.name, name) == 0;
  });
  if (found == columns.end()) RaiseNotFound(name);
  return static_cast<std::size_t>(found - columns.begin());
}

// The place of a column that there is.
std::size_t PlaceOf(int number, const std::vector<Column>& columns) {
  if (number < 0 || number >= static_cast<int>(columns.size())) RaiseNotFound(std::to_string(number));
  return static_cast<std::size_t>(number);
}

// Takes the last word off "NAME DESC" or "NAME ASC"; true for DESC.
bool TakeDirection(std::string_view& key) {
  const std::size_t blank = key.find_last_of(' ');
  if (blank == std::string_view::npos) return false;
  const std::string_view word = key.substr(blank + 1);
  const bool descending = CompareText(word, "DESC") == 0;
  if (descending || CompareText(word, "ASC") == 0) key = key.substr(0, blank);
  return descending;
}

std::vector<SortKey> ParseSortKeys(std::string_view text, const std::vector<Column>& columns) {
  std::vector<SortKey> keys;
  while (!text.empty()) {
    const std::size_t comma = std::min(text.find(','), text.size());
    std::string_view key = text.substr(0, comma);
    while (key.ends_with(' ')) key.remove_suffix(1);
    const bool descending = TakeDirection(key);
    keys.push_back({FindColumn(columns, BareName(key)), descending});
    text.remove_prefix(std::min(comma + 1, text.size()));
  }
  return keys;
}

// The rows in the order of the keys; empty for no key, that is the statement's order.
std::vector<std::size_t> OrderOf(const RowSet& rows, const std::vector<SortKey>& keys) {
  if (keys.empty()) return {};
  const auto before = [&rows, &keys](std::size_t a, std::size_t b) {
    for (const SortKey& key : keys) {
      const std::size_t width = rows.columns.size();
      const int order = CompareValues(rows.cells[a * width + key.column], rows.cells[b * width + key.column]);
      if (order != 0) return key.descending ? order > 0 : order < 0;
    }
    return false;
  };
  std::vector<std::size_t> order(rows.RowCount());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::stable_sort(order.begin(), order.end(), before);
  return order;
}

}  // namespace

const std::string& Field::Name() const {
  return recordset_->Columns()[index_].name;
}
FieldType Field::Type() const {
  return recordset_->Columns()[index_].type;
}
int Field::DefinedSize() const {
  return recordset_->Columns()[index_].size;
}
const tarvoni::Value& Field::Value() const {
  return recordset_->Cell(index_);
}

int FieldList::Count() const {
  return static_cast<int>(recordset_->Columns().size());
}

Field FieldList::operator[](std::string_view name) const {
  return {recordset_, recordset_->Require(name)};
}

Field FieldList::operator[](int index) const {
  return {recordset_, PlaceOf(index, recordset_->Columns())};
}

Recordset::Recordset(RowSet rows) : rows_(std::make_shared<const RowSet>(std::move(rows))) {}

void Recordset::RequireOpen() const {
  if (!IsOpen()) throw DatabaseError(kErrorObjectClosed, "Die Datensatzgruppe ist geschlossen.");
}

const std::vector<Column>& Recordset::Columns() const {
  RequireOpen();
  return rows_->columns;
}

std::size_t Recordset::Require(std::string_view column) const {
  return FindColumn(Columns(), column);
}

std::size_t Recordset::RecordCount() const {
  RequireOpen();
  return rows_->RowCount();
}

bool Recordset::EndOfFile() const {
  return position_ >= static_cast<long>(RecordCount());
}
bool Recordset::BeginOfFile() const {
  return RecordCount() == 0 || position_ < 0;
}

const tarvoni::Value& Recordset::Cell(std::size_t column) const {
  if (BeginOfFile() || EndOfFile()) RaiseNoCurrentRow();
  const auto position = static_cast<std::size_t>(position_);
  const std::size_t row = order_.empty() ? position : order_[position];
  return rows_->cells[row * rows_->columns.size() + column];
}

void Recordset::MoveFirst() {
  if (RecordCount() == 0) RaiseNoCurrentRow();
  position_ = 0;
}

void Recordset::MoveLast() {
  if (RecordCount() == 0) RaiseNoCurrentRow();
  position_ = static_cast<long>(RecordCount()) - 1;
}

void Recordset::MoveNext() {
  Move(1);
}
void Recordset::MovePrevious() {
  Move(-1);
}

void Recordset::Move(long rows) {
  const auto count = static_cast<long>(RecordCount());
  if (count == 0 || (rows > 0 && EndOfFile()) || (rows < 0 && BeginOfFile())) RaiseNoCurrentRow();
  // Both ends are reached by at most count + 1 steps; cutting there keeps the sum from overflowing.
  position_ = std::clamp(position_ + std::clamp(rows, -count - 1, count + 1), -1L, count);
}

void Recordset::Find(std::string_view criterion) {
  const auto count = static_cast<long>(RecordCount());
  const Criterion wanted = Criterion::Parse(criterion);
  const std::size_t column = Require(wanted.column);
  position_ = std::max(position_, 0L);
  while (position_ < count && !wanted.Matches(Cell(column))) ++position_;
}

void Recordset::Sort(std::string_view columns) {
  const std::vector<SortKey> keys = ParseSortKeys(columns, Columns());
  TakeOrder(OrderOf(*rows_, keys));
}

void Recordset::Sort(int column, SortOrder order) {
  const SortKey key{PlaceOf(column, Columns()), order == SortOrder::kDescending};
  TakeOrder(OrderOf(*rows_, {key}));
}

void Recordset::TakeOrder(std::vector<std::size_t> order) {
  order_ = std::move(order);
  position_ = 0;
}

std::vector<std::vector<tarvoni::Value>> Recordset::GetRows() {
  const std::size_t width = Columns().size();
  std::vector<std::vector<tarvoni::Value>> rows;
  for (; !EndOfFile(); ++position_) {
    auto& row = rows.emplace_back();
    row.reserve(width);
    for (std::size_t column = 0; column < width; ++column) row.push_back(Cell(column));
  }
  return rows;
}

int Recordset::AbsolutePosition() const {
  if (EndOfFile()) return kPositionEof;
  return position_ < 0 ? kPositionBof : static_cast<int>(position_) + 1;
}

void Recordset::SetAbsolutePosition(int position) {
  if (RecordCount() == 0) RaiseNoCurrentRow();
  if (position < 1 || position > static_cast<long>(RecordCount())) {
    throw DatabaseError(kErrorInvalidArgument, "Es gibt keinen Datensatz " + std::to_string(position) + ".");
  }
  position_ = position - 1;
}

Recordset Recordset::Clone() const {
  RequireOpen();
  Recordset clone;
  clone.rows_ = rows_;
  return clone;
}

void Recordset::Close() {
  RequireOpen();
  *this = Recordset();
}

}  // namespace tarvoni
