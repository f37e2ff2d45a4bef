#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/values/locale.h"
#include "src/context/values/value.h"

// What a cell is, for those who count and export.
namespace tarvoni::qt {

// A shown text as the value it reads as: a number ("-12,50"), a day ("05.03.2024"), NULL for "", else the text
// itself. A number with leading zeros is a code and stays text.
Value TypedText(std::string_view text, const Locale& locale);

// The number in a cell; texts are none, even if they read as one.
std::optional<Decimal> NumberIn(const Value& cell);

// The format of a spreadsheet for a cell shown with a column's format, "" for its general one.
std::string SheetFormat(const Value& cell, std::string_view format);

// How many digits a shown number has behind its separator.
std::size_t PlacesOf(std::string_view number, char separator);

// The format by which the numbers of a column that has none stand evenly below each other: all with as many places as
// the one that needs most; "" where all are whole.
class EvenFormat {
 public:
  void Add(const Value& cell);
  std::string Text() const;

 private:
  std::size_t places_ = 0;
};

// Whether a spreadsheet, which counts in doubles, keeps the number as it is.
bool FitsSheet(const Decimal& number);

}  // namespace tarvoni::qt
