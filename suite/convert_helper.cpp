#include "suite/convert_helper.h"

#include <algorithm>

#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/date_text.h"

namespace tarvoni::suite {
namespace {

std::optional<DateTime> DateOf(const Value& value) {
  if (const auto* date = std::get_if<DateTime>(&value)) return *date;
  if (const auto* text = std::get_if<std::string>(&value)) return ParseDate(*text);
  return std::nullopt;
}

std::string Without(std::string text, const std::string& separator) {
  if (separator.empty()) return text;
  for (std::size_t at = text.find(separator); at != std::string::npos; at = text.find(separator, at))
    text.erase(at, separator.size());
  return text;
}

}  // namespace

std::string ConvertHelper::DateToSql(const Value& date, const std::string& format) {
  const auto day = DateOf(date);
  return day ? FormatDate(*day, format, Locale::English()) : std::string();
}

std::string ConvertHelper::NumberToSql(const std::string& text, const std::string& separator) {
  return std::string(Number(Without(text, separator)).Text());
}

std::string ConvertHelper::NormalizeNumber(const std::string& text) {
  std::string normal = text;
  std::ranges::replace(normal, '.', CurrentLocale().decimal_separator);
  return normal;
}

}  // namespace tarvoni::suite
