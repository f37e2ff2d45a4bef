#pragma once

#include <xlsxwriter.h>

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <utility>

#include "src/context/values/value.h"

namespace tarvoni::qt {

// How a cell looks besides its format.
struct CellLook {
  bool bold = false;
  bool shaded = false;
  bool line_above = false;
  bool right = false;
  int points = 0;  // 0 for the usual size

  auto operator<=>(const CellLook&) const = default;
};

// A workbook being written, sheet after sheet. Every failure is a std::runtime_error with a sentence for the user.
class Workbook {
 public:
  explicit Workbook(const std::filesystem::path& file) : book_(workbook_new(file.c_str())) {}
  Workbook(const Workbook&) = delete;
  Workbook& operator=(const Workbook&) = delete;
  ~Workbook();

  // The sheet that the following calls write to; what the name may not hold is left out.
  void AddSheet(const std::string& name);
  // Paper, and what stands on each page of it: the rows from 0 to `head`, and a line below.
  void SetUpPaper(bool landscape, lxw_row_t head, const std::string& footer);
  void FreezeBelow(lxw_row_t row) { worksheet_freeze_panes(sheet_, row + 1, 0); }
  // In characters.
  void SetWidth(lxw_col_t column, int width);

  // Numbers, dates and flags stay what they are, in the format of their column as FieldText takes it.
  void WriteCell(lxw_row_t row, lxw_col_t column, const Value& value, std::string_view format,
                 const CellLook& look = {});
  void WriteText(lxw_row_t row, lxw_col_t column, const std::string& text, const CellLook& look = {});
  // Writes the file.
  void Close();

 private:
  lxw_format* Format(const std::string& code, const CellLook& look);
  void WriteNumber(lxw_row_t row, lxw_col_t column, const Decimal& number, std::string_view format,
                   const CellLook& look);
  void WriteDate(lxw_row_t row, lxw_col_t column, const DateTime& date, std::string_view format,
                 const CellLook& look);

  lxw_workbook* book_;
  lxw_worksheet* sheet_ = nullptr;
  std::map<std::pair<std::string, CellLook>, lxw_format*> formats_;
};

// Puts what `write` writes in the place of the file when it is finished; if it fails the file is as it was.
void WriteBook(const std::filesystem::path& file, const std::function<void(Workbook&)>& write);

}  // namespace tarvoni::qt
