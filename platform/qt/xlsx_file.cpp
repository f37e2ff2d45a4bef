#include "platform/qt/xlsx_file.h"

#include <algorithm>

#include "platform/qt/xlsx_book.h"
#include "src/context/services/environment.h"
#include "src/context/services/print_document.h"
#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr int kSampledRows = 200;
constexpr int kNarrowest = 6, kWidest = 60;  // characters
constexpr CellLook kCaption{.bold = true};

int SheetWidth(int characters) {
  return std::clamp(characters + 2, kNarrowest, kWidest);
}

// --- a table as it stands on the screen ---

int WidthOf(const TableSource& table, int column) {
  int width = utf8::Length(table.ColumnAt(column).caption);
  for (int row = 0; row < std::min(table.RowCount(), kSampledRows); ++row) {
    width = std::max(width, utf8::Length(table.TextAt(row, column)));
  }
  return SheetWidth(width);
}

void WriteTable(Workbook& book, const TableSource& table) {
  book.AddSheet("Tabelle");
  const std::vector<int> columns = VisibleColumns(table);
  for (std::size_t i = 0; i < columns.size(); ++i) {
    book.SetWidth(static_cast<lxw_col_t>(i), WidthOf(table, columns[i]));
    book.WriteText(0, static_cast<lxw_col_t>(i), table.ColumnAt(columns[i]).caption, kCaption);
  }
  book.FreezeBelow(0);
  std::vector<std::string> formats;
  for (const int column : columns) formats.push_back(table.ColumnAt(column).format);
  for (int row = 0; row < table.RowCount(); ++row) {
    for (std::size_t i = 0; i < columns.size(); ++i) {
      book.WriteCell(static_cast<lxw_row_t>(row + 1), static_cast<lxw_col_t>(i),
                     table.ValueAt(row, columns[i]), formats[i]);
    }
  }
}

// --- a paper, each of its tables on a sheet ---

using RowKind = PrintDocument::RowKind;

constexpr int kTitlePoints = 14;

CellLook LookOf(const PrintDocument::Row& row, const PrintDocument::Column& column) {
  const bool sums = row.kind == RowKind::kSum || row.kind == RowKind::kTotal;
  return {.bold = row.kind != RowKind::kPlain,
          .shaded = row.kind == RowKind::kTotal,
          .line_above = sums,
          .right = row.kind != RowKind::kGroup && column.alignment == Alignment::kRight};
}

void SetWidths(Workbook& book, const PrintDocument::Table& table) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    int width = utf8::Length(table.columns[i].caption);
    for (const PrintDocument::Row& row : table.rows) {
      if (row.kind != RowKind::kGroup)
        width = std::max(width, utf8::Length(CellText(table, row, i, CurrentLocale())));
    }
    book.SetWidth(static_cast<lxw_col_t>(i), SheetWidth(width));
  }
}

// Title and facts; gives the row below them.
lxw_row_t WriteHead(Workbook& book, const PrintDocument& document, const PrintDocument::Table& table) {
  lxw_row_t row = 0;
  if (!document.issuer.empty()) book.WriteText(row++, 0, document.issuer, kCaption);
  book.WriteText(row++, 0, document.title, {.bold = true, .points = kTitlePoints});
  for (const auto& [label, text] : document.facts) book.WriteText(row++, 0, label + ": " + text);
  if (!table.heading.empty()) book.WriteText(++row, 0, table.heading, kCaption);
  return row + 1;
}

lxw_row_t WriteRows(Workbook& book, const PrintDocument::Table& table, lxw_row_t at) {
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const CellLook look{
        .bold = true, .shaded = true, .right = table.columns[i].alignment == Alignment::kRight};
    book.WriteText(at, static_cast<lxw_col_t>(i), table.columns[i].caption, look);
  }
  book.FreezeBelow(at);
  for (const PrintDocument::Row& row : table.rows) {
    ++at;
    for (std::size_t i = 0; i < table.columns.size(); ++i) {
      const PrintDocument::Column& column = table.columns[i];
      const Value& value = i < row.cells.size() ? row.cells[i] : Value(Null{});
      const bool spanned = row.kind == RowKind::kGroup && i > 0;
      const CellLook look = row.kind == RowKind::kPlain || spanned ? CellLook{} : LookOf(row, column);
      if (!spanned) book.WriteCell(at, static_cast<lxw_col_t>(i), value, column.format, look);
    }
  }
  return at + 2;
}

void WriteSheet(Workbook& book, const PrintDocument& document, const PrintDocument::Table& table) {
  book.AddSheet(table.heading.empty() ? "Tabelle" : table.heading);
  SetWidths(book, table);
  const lxw_row_t captions = WriteHead(book, document, table);
  lxw_row_t row = WriteRows(book, table, captions);
  book.SetUpPaper(document.landscape, captions, "&L" + PrintedOn() + "&RSeite &P von &N");
  if (&table != &document.tables.back()) return;
  for (const std::string& remark : document.remarks) book.WriteText(row++, 0, remark);
  for (const std::string& who : document.signatures) {
    book.WriteText(row += 2, 0, "____________________________");
    book.WriteText(++row, 0, who);
  }
}

}  // namespace

void WriteXlsx(const TableSource& table, const std::filesystem::path& file) {
  WriteBook(file, [&](Workbook& book) { WriteTable(book, table); });
}

void WriteXlsx(const PrintDocument& document, const std::filesystem::path& file) {
  WriteBook(file, [&](Workbook& book) {
    for (const PrintDocument::Table& table : document.tables) WriteSheet(book, document, table);
  });
}

}  // namespace tarvoni::qt
