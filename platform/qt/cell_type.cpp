#include "platform/qt/cell_type.h"

#include <algorithm>
#include <cctype>

#include "src/context/values/date_text.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni::qt {
namespace {

constexpr int kSheetDigits = 15;

bool HasLeadingZero(std::string_view number) {
  if (number.starts_with('-')) number.remove_prefix(1);
  return number.size() > 1 && number[0] == '0' && std::isdigit(static_cast<unsigned char>(number[1]));
}

}  // namespace

Value TypedText(std::string_view text, const Locale& locale) {
  if (text.empty()) return Null{};
  if (!text.starts_with('+') && !HasLeadingZero(text)) {
    if (const auto number = ParseNumber(text, locale)) return *number;
  }
  // A day only in the form in which cells show it: "1.2" is no first of February.
  if (const auto day = ParseDate(text); day && FieldText(*day, "", locale) == text) return *day;
  return std::string(text);
}

std::optional<Decimal> NumberIn(const Value& cell) {
  if (std::holds_alternative<bool>(cell) || std::holds_alternative<std::string>(cell)) return std::nullopt;
  return NumberOf(cell, Locale::German());
}

std::string SheetFormat(const Value& cell, std::string_view format) {
  if (const auto* date = std::get_if<DateTime>(&cell)) {
    if (format.empty()) return date->milliseconds == 0 ? "dd.mm.yyyy" : "dd.mm.yyyy hh:mm:ss";
    std::string sheet(format);
    std::ranges::replace(sheet, 'n', 'm');
    return sheet;
  }
  if (!format.empty()) return std::string(format.substr(format.starts_with('-') ? 1 : 0));
  const auto* number = std::get_if<Decimal>(&cell);
  if (!number || number->Scale() == 0) return {};
  return "0." + std::string(static_cast<std::size_t>(number->Scale()), '0');
}

std::size_t PlacesOf(std::string_view number, char separator) {
  const std::size_t at = number.find(separator);
  return at == std::string_view::npos ? 0 : number.size() - at - 1;
}

void EvenFormat::Add(const Value& cell) {
  const auto number = NumberIn(cell);
  if (number && number->Scale() > 0) places_ = std::max(places_, PlacesOf(number->ToShortString(), '.'));
}

std::string EvenFormat::Text() const {
  return places_ == 0 ? "" : "0." + std::string(places_, '0');
}

bool FitsSheet(const Decimal& number) {
  return std::ranges::count_if(number.ToShortString(),
                               [](unsigned char c) { return std::isdigit(c) != 0; }) <= kSheetDigits;
}

}  // namespace tarvoni::qt
