#include "platform/qt/xlsx_file.h"

#include <locale.h>
#include <xlsxwriter.h>

#include <clocale>
#include <map>
#include <stdexcept>

#include "platform/qt/cell_type.h"
#include "src/context/services/environment.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr int kSampledRows = 200;
constexpr int kNarrowest = 6, kWidest = 60;  // characters
constexpr int kFirstSheetYear = 1900;

// The library prints numbers with printf, which writes a comma where the process speaks German.
class PointAsSeparator {
 public:
  PointAsSeparator() : plain_(newlocale(LC_NUMERIC_MASK, "C", nullptr)), previous_(uselocale(plain_)) {}
  PointAsSeparator(const PointAsSeparator&) = delete;
  PointAsSeparator& operator=(const PointAsSeparator&) = delete;
  ~PointAsSeparator() {
    uselocale(previous_);
    freelocale(plain_);
  }

 private:
  locale_t plain_;
  locale_t previous_;
};

void Check(lxw_error error) {
  if (error == LXW_NO_ERROR) return;
  throw std::runtime_error(std::string("Die Excel-Datei lässt sich nicht schreiben: ") + lxw_strerror(error));
}

class Workbook {
 public:
  explicit Workbook(const std::filesystem::path& file)
      : book_(workbook_new(file.c_str())), sheet_(workbook_add_worksheet(book_, "Tabelle")) {}
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  ~Workbook() {
    if (book_) workbook_close(book_);
  }

  void WriteHead(const TableSource& table, const std::vector<int>& columns);
  void WriteCell(lxw_row_t row, lxw_col_t column, const Value& value, std::string_view format);
  void Close() { Check(workbook_close(std::exchange(book_, nullptr))); }

 private:
  lxw_format* Format(const std::string& code);
  void WriteText(lxw_row_t row, lxw_col_t column, const std::string& text) {
    Check(worksheet_write_string(sheet_, row, column, text.c_str(), nullptr));
  }
  void WriteNumber(lxw_row_t row, lxw_col_t column, const Decimal& number, lxw_format* format);
  void WriteDate(lxw_row_t row, lxw_col_t column, const DateTime& date, lxw_format* format);

  lxw_workbook* book_;
  lxw_worksheet* sheet_;
  std::map<std::string, lxw_format*> formats_;
};

lxw_format* Workbook::Format(const std::string& code) {
  if (code.empty()) return nullptr;
  lxw_format*& format = formats_[code];
  if (!format) {
    format = workbook_add_format(book_);
    format_set_num_format(format, code.c_str());
  }
  return format;
}

int WidthOf(const TableSource& table, int column) {
  int width = utf8::Length(table.ColumnAt(column).caption);
  for (int row = 0; row < std::min(table.RowCount(), kSampledRows); ++row) {
    width = std::max(width, utf8::Length(table.TextAt(row, column)));
  }
  return std::clamp(width + 2, kNarrowest, kWidest);
}

void Workbook::WriteHead(const TableSource& table, const std::vector<int>& columns) {
  lxw_format* bold = workbook_add_format(book_);
  format_set_bold(bold);
  lxw_col_t at = 0;
  for (const int column : columns) {
    Check(worksheet_set_column(sheet_, at, at, WidthOf(table, column), nullptr));
    Check(worksheet_write_string(sheet_, 0, at++, table.ColumnAt(column).caption.c_str(), bold));
  }
  worksheet_freeze_panes(sheet_, 1, 0);
}

void Workbook::WriteNumber(lxw_row_t row, lxw_col_t column, const Decimal& number, lxw_format* format) {
  if (!FitsSheet(number)) return WriteText(row, column, number.ToString());
  Check(worksheet_write_number(sheet_, row, column, number.ToDouble(), format));
}

void Workbook::WriteDate(lxw_row_t row, lxw_col_t column, const DateTime& date, lxw_format* format) {
  if (date.year < kFirstSheetYear) return WriteText(row, column, date.ToIso());
  const int minutes = date.milliseconds / 60'000;
  lxw_datetime time{.year = date.year,
                    .month = date.month,
                    .day = date.day,
                    .hour = minutes / 60,
                    .min = minutes % 60,
                    .sec = date.milliseconds % 60'000 / 1000.0};
  Check(worksheet_write_datetime(sheet_, row, column, &time, format));
}

void Workbook::WriteCell(lxw_row_t row, lxw_col_t column, const Value& value, std::string_view format) {
  if (IsNull(value)) return;
  if (const auto* text = std::get_if<std::string>(&value)) return WriteText(row, column, *text);
  if (const auto* flag = std::get_if<bool>(&value)) {
    return Check(worksheet_write_boolean(sheet_, row, column, *flag, nullptr));
  }
  lxw_format* shown = Format(SheetFormat(value, format));
  if (const auto* date = std::get_if<DateTime>(&value)) return WriteDate(row, column, *date, shown);
  if (const auto* number = std::get_if<double>(&value)) {
    return Check(worksheet_write_number(sheet_, row, column, *number, shown));
  }
  WriteNumber(row, column, NumberIn(value).value(), shown);
}

void WriteTable(const TableSource& table, const std::filesystem::path& file) {
  const PointAsSeparator point;
  Workbook book(file);
  const std::vector<int> columns = VisibleColumns(table);
  std::vector<std::string> formats;
  for (const int column : columns) formats.push_back(table.ColumnAt(column).format);
  book.WriteHead(table, columns);
  for (int row = 0; row < table.RowCount(); ++row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      book.WriteCell(static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(i),
                     table.ValueAt(row, columns[i]), formats[i]);
    }
  }
  book.Close();
}

}  // namespace

void WriteXlsx(const TableSource& table, const std::filesystem::path& file) {
  const std::filesystem::path unfinished = file.string() + ".neu";
  try {
    WriteTable(table, unfinished);
    std::filesystem::rename(unfinished, file);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove(unfinished, ignored);
    throw;
  }
}

}  // namespace tarvoni::qt
