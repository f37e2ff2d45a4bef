#include "platform/qt/pick_rows.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>

#include "platform/qt/cell_type.h"
#include "platform/qt/public/text.h"
#include "src/context/data/criterion.h"
#include "src/context/values/field_text.h"
#include "src/context/values/text.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

bool IsNumber(FieldType type) {
  switch (type) {
    case FieldType::kSmallInt:
    case FieldType::kInteger:
    case FieldType::kSingle:
    case FieldType::kDouble:
    case FieldType::kCurrency:
    case FieldType::kUnsignedTinyInt:
    case FieldType::kBigInt:
    case FieldType::kNumeric:
      return true;
    default:
      return false;
  }
}

// What statements call their columns, in words. Any other name is written as a word is.
std::string HeadOf(const std::string& column) {
  static const std::map<std::string, const char*> kWords = {{"NUMBER", "Nummer"},
                                                            {"NUMMER", "Nummer"},
                                                            {"NAME", "Name"},
                                                            {"LONG", "Bezeichnung"},
                                                            {"SHORT", "Kurzname"},
                                                            {"KURZNAME", "Kurzname"},
                                                            {"LANGNAME", "Bezeichnung"},
                                                            {"KURZBEZEICHNUNG", "Kurzbezeichnung"},
                                                            {"BEZEICHNUNG", "Bezeichnung"},
                                                            {"FWJ", "FWJ"},
                                                            {"TABLE_NAME", "Codesatz"},
                                                            {"EINHEIT", "Einheit"}};
  const std::string upper = utf8::Upper(column);
  if (const auto word = kWords.find(upper); word != kWords.end()) return word->second;
  if (column != upper || column.empty()) return column;
  QString head = ToQt(column).toLower().replace('_', ' ');
  head[0] = head[0].toUpper();
  return FromQt(head);
}

bool IsSame(std::string_view a, std::string_view b) {
  return CompareText(utf8::Trim(a), utf8::Trim(b)) == 0;
}

bool BeginsWith(std::string_view text, std::string_view front) {
  return FoldCase(utf8::Trim(text)).starts_with(FoldCase(front));
}

}  // namespace

PickRows::PickRows(const PickRequest& request, const Locale& locale)
    : locale_(locale), code_column_(request.code_column), hidden_columns_(request.hidden_columns) {
  if (!request.rows.IsOpen()) return;
  rows_ = request.rows.Clone();
  const std::vector<Column>& columns = rows_.Columns();
  for (std::size_t i = static_cast<std::size_t>(hidden_columns_); i < columns.size(); ++i) {
    const bool number = IsNumber(columns[i].type);
    const std::string format = number ? FormatOf(static_cast<int>(i)) : "";
    columns_.push_back({.caption = HeadOf(columns[i].name),
                        .alignment = number ? Alignment::kRight : Alignment::kLeft,
                        .format = format,
                        .sums = !format.empty() && static_cast<int>(i) != code_column_});
  }
  sorted_.resize(rows_.RecordCount());
  std::iota(sorted_.begin(), sorted_.end(), std::size_t{0});
  shown_ = sorted_;
  MakeSearchable();
}

std::string PickRows::FormatOf(int statement_column) const {
  EvenFormat format;
  for (std::size_t row = 0; row < rows_.RecordCount(); ++row) format.Add(Cell(row, statement_column));
  return format.Text();
}

const Value& PickRows::Cell(std::size_t row, int statement_column) const {
  rows_.SetAbsolutePosition(static_cast<int>(row) + 1);
  return rows_.Fields()[statement_column].Value();
}

std::string PickRows::TextAt(int row, int column) const {
  return FieldText(ValueAt(row, column), columns_[static_cast<std::size_t>(column)].format, locale_);
}

Value PickRows::ValueAt(int row, int column) const {
  return Cell(StatementRow(row), column + hidden_columns_);
}

std::string PickRows::CodeOf(std::size_t row) const {
  return FieldText(Cell(row, code_column_), "", locale_);
}

// Done while the list opens, so that no key has to wait for it. The code stands first, where the search ranks it best.
void PickRows::MakeSearchable() {
  search_.resize(sorted_.size());
  for (std::size_t row = 0; row < search_.size(); ++row) {
    const bool code_is_visible = code_column_ >= hidden_columns_;
    if (code_is_visible) search_[row].Add(CodeOf(row));
    for (int column = hidden_columns_; column < hidden_columns_ + ColumnCount(); ++column) {
      if (column != code_column_) search_[row].Add(FieldText(Cell(row, column), "", locale_));
    }
  }
}

int PickRows::Filter(std::string_view typed) {
  query_ = SearchQuery(typed);
  Show();
  return shown_.empty() ? -1 : static_cast<int>(best_);
}

void PickRows::Show() {
  best_ = 0;
  if (query_.Empty()) {
    shown_ = sorted_;
    return;
  }
  std::array<std::vector<std::size_t>, kFits> found;
  std::vector<std::size_t> in_order;
  Fit best = Fit::kNone;
  for (const std::size_t row : sorted_) {
    const Fit fit = query_.FitOf(search_[row]);
    if (fit == Fit::kNone) continue;
    if (fit > best) best_ = in_order.size();
    best = std::max(best, fit);
    in_order.push_back(row);
    found.at(static_cast<std::size_t>(fit)).push_back(row);
  }
  shown_ = std::move(in_order);
  if (sort_column_ >= 0) return;
  best_ = 0;
  shown_.clear();
  for (auto rows = found.rbegin(); rows != found.rend(); ++rows) {
    shown_.insert(shown_.end(), rows->begin(), rows->end());
  }
}

void PickRows::SortBy(int column) {
  descending_ = column == sort_column_ && !descending_;
  sort_column_ = column;
  std::vector<const Value*> cells;
  cells.reserve(sorted_.size());
  for (std::size_t row = 0; row < sorted_.size(); ++row)
    cells.push_back(&Cell(row, column + hidden_columns_));
  std::iota(sorted_.begin(), sorted_.end(), std::size_t{0});
  std::ranges::stable_sort(sorted_, [&](std::size_t a, std::size_t b) {
    const int order = CompareValues(*cells[a], *cells[b]);
    return descending_ ? order > 0 : order < 0;
  });
  Show();
}

std::optional<int> PickRows::ShownRow(std::size_t statement_row) const {
  const auto found = std::ranges::find(shown_, statement_row);
  if (found == shown_.end()) return std::nullopt;
  return static_cast<int>(found - shown_.begin());
}

std::optional<std::size_t> PickRows::StartRow(std::string_view code) const {
  if (sorted_.empty()) return std::nullopt;
  code = utf8::Trim(code);
  std::size_t near = 0;
  bool found_near = code.empty();
  for (std::size_t row = 0; row < sorted_.size() && !code.empty(); ++row) {
    const std::string found = CodeOf(row);
    if (IsSame(found, code)) return row;
    if (!found_near && BeginsWith(found, code)) near = row, found_near = true;
  }
  return near;
}

std::optional<std::size_t> PickRows::RowOfCode(std::string_view typed) const {
  if (code_column_ < hidden_columns_ || utf8::Trim(typed).empty()) return std::nullopt;
  for (std::size_t row = 0; row < sorted_.size(); ++row) {
    if (IsSame(CodeOf(row), typed)) return row;
  }
  return std::nullopt;
}

}  // namespace tarvoni::qt
