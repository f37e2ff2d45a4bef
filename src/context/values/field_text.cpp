#include "src/context/values/field_text.h"

#include "src/context/values/date_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

bool IsNumberMask(std::string_view format) {
  return !format.empty() && format.find_first_not_of("#0.-") == std::string_view::npos;
}

// A number that stands in a text follows the format as a number does.
std::string NumberInText(const std::string& text, std::string_view format, const Locale& locale) {
  const auto number = IsNumberMask(format) ? ParseNumber(text, locale) : std::nullopt;
  return number ? FormatNumber(*number, format, locale) : text;
}

}  // namespace

std::string FieldText(const Value& value, std::string_view format, const Locale& locale) {
  if (IsNull(value)) return {};
  if (const auto* text = std::get_if<std::string>(&value)) return NumberInText(*text, format, locale);
  if (const auto* date = std::get_if<DateTime>(&value)) {
    if (!format.empty()) return FormatDate(*date, format, locale);
    return FormatDate(*date, date->milliseconds == 0 ? "dd.mm.yyyy" : "dd.mm.yyyy hh:nn:ss", locale);
  }
  if (const auto* flag = std::get_if<bool>(&value)) {
    const bool german = locale.language == Language::kGerman;
    return *flag ? (german ? "Ja" : "Yes") : (german ? "Nein" : "No");
  }
  const Decimal number = NumberOf(value, locale).value();
  return format.empty() ? NumberToText(number, locale) : FormatNumber(number, format, locale);
}

}  // namespace tarvoni
