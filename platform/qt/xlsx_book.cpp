#include "platform/qt/xlsx_book.h"

#include <locale.h>

#include <clocale>
#include <stdexcept>

#include "platform/qt/cell_type.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr int kFirstSheetYear = 1900;
constexpr int kLongestSheetName = 31;
constexpr std::uint8_t kA4 = 9;
constexpr lxw_color_t kShade = 0xEAEFEC;

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

std::string SheetName(const std::string& name) {
  std::string plain;
  for (const char c : name) {
    if (std::string_view("[]:*?/\\'").find(c) == std::string_view::npos) plain += c;
  }
  return std::string(utf8::Substring(plain, 0, kLongestSheetName));
}

}  // namespace

Workbook::~Workbook() {
  if (book_) workbook_close(book_);
}

void Workbook::AddSheet(const std::string& name) {
  sheet_ = workbook_add_worksheet(book_, SheetName(name).c_str());
  if (!sheet_) Check(LXW_ERROR_SHEETNAME_ALREADY_USED);
}

void Workbook::SetUpPaper(bool landscape, lxw_row_t head, const std::string& footer) {
  if (landscape) worksheet_set_landscape(sheet_);
  worksheet_set_paper(sheet_, kA4);
  worksheet_fit_to_pages(sheet_, 1, 0);
  Check(worksheet_repeat_rows(sheet_, head, head));
  Check(worksheet_set_footer(sheet_, footer.c_str()));
}

void Workbook::SetWidth(lxw_col_t column, int width) {
  Check(worksheet_set_column(sheet_, column, column, width, nullptr));
}

lxw_format* Workbook::Format(const std::string& code, const CellLook& look) {
  if (code.empty() && look == CellLook{}) return nullptr;
  lxw_format*& format = formats_[{code, look}];
  if (format) return format;
  format = workbook_add_format(book_);
  if (!code.empty()) format_set_num_format(format, code.c_str());
  if (look.bold) format_set_bold(format);
  if (look.shaded) format_set_bg_color(format, kShade);
  if (look.line_above) format_set_top(format, LXW_BORDER_THIN);
  if (look.right) format_set_align(format, LXW_ALIGN_RIGHT);
  if (look.points > 0) format_set_font_size(format, look.points);
  return format;
}

void Workbook::WriteText(lxw_row_t row, lxw_col_t column, const std::string& text, const CellLook& look) {
  Check(worksheet_write_string(sheet_, row, column, text.c_str(), Format("", look)));
}

void Workbook::WriteNumber(lxw_row_t row, lxw_col_t column, const Decimal& number, std::string_view format,
                           const CellLook& look) {
  if (!FitsSheet(number)) return WriteText(row, column, number.ToString(), look);
  const std::string code = SheetFormat(number, format);
  Check(worksheet_write_number(sheet_, row, column, number.ToDouble(), Format(code, look)));
}

void Workbook::WriteDate(lxw_row_t row, lxw_col_t column, const DateTime& date, std::string_view format,
                         const CellLook& look) {
  if (date.year < kFirstSheetYear) return WriteText(row, column, date.ToIso(), look);
  const int minutes = date.milliseconds / 60'000;
  lxw_datetime time{.year = date.year,
                    .month = date.month,
                    .day = date.day,
                    .hour = minutes / 60,
                    .min = minutes % 60,
                    .sec = date.milliseconds % 60'000 / 1000.0};
  Check(worksheet_write_datetime(sheet_, row, column, &time, Format(SheetFormat(date, format), look)));
}

void Workbook::WriteCell(lxw_row_t row, lxw_col_t column, const Value& value, std::string_view format,
                         const CellLook& look) {
  if (IsNull(value)) {
    if (look != CellLook{}) Check(worksheet_write_blank(sheet_, row, column, Format("", look)));
    return;
  }
  if (const auto* text = std::get_if<std::string>(&value)) return WriteText(row, column, *text, look);
  if (const auto* flag = std::get_if<bool>(&value)) {
    return Check(worksheet_write_boolean(sheet_, row, column, *flag, Format("", look)));
  }
  if (const auto* date = std::get_if<DateTime>(&value)) return WriteDate(row, column, *date, format, look);
  if (const auto* number = std::get_if<double>(&value)) {
    return Check(
        worksheet_write_number(sheet_, row, column, *number, Format(SheetFormat(value, format), look)));
  }
  WriteNumber(row, column, NumberIn(value).value(), format, look);
}

void Workbook::Close() {
  Check(workbook_close(std::exchange(book_, nullptr)));
}

void WriteBook(const std::filesystem::path& file, const std::function<void(Workbook&)>& write) {
  const PointAsSeparator point;
  const std::filesystem::path unfinished = file.string() + ".neu";
  try {
    Workbook book(unfinished);
    write(book);
    book.Close();
    std::filesystem::rename(unfinished, file);
  } catch (const std::exception&) {
    std::error_code ignored;
    std::filesystem::remove(unfinished, ignored);
    throw;
  }
}

}  // namespace tarvoni::qt
