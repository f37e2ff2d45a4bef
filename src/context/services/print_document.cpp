#include "src/context/services/print_document.h"

#include "src/context/values/clock.h"
#include "src/context/values/field_text.h"

namespace tarvoni {

std::string CellText(const PrintDocument::Table& table, const PrintDocument::Row& row, std::size_t column,
                     const Locale& locale) {
  if (column >= row.cells.size()) return {};
  // A text stays as it is, also one that reads as a number.
  if (const auto* text = std::get_if<std::string>(&row.cells[column])) return *text;
  return FieldText(row.cells[column], table.columns.at(column).format, locale);
}

std::string PrintedOn() {
  DateTime day = Clock::Today();
  day.milliseconds = 0;
  return "Gedruckt am " + FieldText(day, "dd.mm.yyyy", Locale::German());
}

}  // namespace tarvoni
