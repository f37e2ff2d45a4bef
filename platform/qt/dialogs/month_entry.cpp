#include "platform/qt/dialogs/month_entry.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "src/context/values/utf8.h"

namespace tarvoni::qt {
namespace {

constexpr std::string_view kDigits = "0123456789";

// The groups of digits in a text; nothing if anything but one separator stands between them.
std::vector<std::string_view> DigitGroups(std::string_view text) {
  std::vector<std::string_view> groups;
  for (;;) {
    const std::size_t end = std::min(text.find_first_not_of(kDigits), text.size());
    groups.push_back(text.substr(0, end));
    if (end == text.size()) return groups;
    if (std::string_view("./- ").find(text[end]) == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
}

int NumberOf(std::string_view digits) {
  int number = 0;
  std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return number;
}

std::optional<YearMonth> MonthOf(std::string_view month, std::string_view year) {
  if (month.empty() || month.size() > 2 || (year.size() != 2 && year.size() != 4)) return std::nullopt;
  int full = NumberOf(year);
  if (year.size() == 2) full += full < 30 ? 2000 : 1900;
  const YearMonth result{.year = full, .month = NumberOf(month)};
  if (result.month < 1 || result.month > 12 || full < kFirstYear) return std::nullopt;
  return result;
}

}  // namespace

std::optional<YearMonth> ParseMonth(std::string_view text, int year) {
  const auto groups = DigitGroups(utf8::Trim(text));
  if (groups.size() == 2) {
    return groups[0].size() == 4 ? MonthOf(groups[1], groups[0]) : MonthOf(groups[0], groups[1]);
  }
  if (groups.size() != 1) return std::nullopt;
  const std::string_view digits = groups[0];
  if (digits.size() <= 2) return MonthOf(digits, std::to_string(year));
  return MonthOf(digits.substr(0, 2), digits.substr(2));
}

std::string MonthText(const YearMonth& month) {
  return (month.month < 10 ? "0" : "") + std::to_string(month.month) + "." + std::to_string(month.year);
}

YearMonth Shifted(const YearMonth& month, int months) {
  const int all =
      std::clamp(month.year * 12 + month.month - 1 + months, kFirstYear * 12, kLastYear * 12 + 11);
  return {.year = all / 12, .month = all % 12 + 1};
}

}  // namespace tarvoni::qt
