#include "src/context/values/value.h"

#include <array>
#include <charconv>

namespace tarvoni {
namespace {

struct DisplayText {
  std::string operator()(Null) const { return "NULL"; }
  std::string operator()(bool flag) const { return flag ? "1" : "0"; }
  std::string operator()(std::int64_t number) const { return std::to_string(number); }
  std::string operator()(const Decimal& number) const { return number.ToShortString(); }
  std::string operator()(const std::string& text) const { return text; }
  std::string operator()(const DateTime& date) const { return date.ToIso(); }
  std::string operator()(double number) const {
    constexpr int kDigits = 15;
    if (number == 0) return "0";  // also the negative zero
    std::array<char, 32> buffer;
    const auto end =
        std::to_chars(buffer.begin(), buffer.end(), number, std::chars_format::general, kDigits).ptr;
    return {buffer.begin(), end};
  }
};

}  // namespace

std::string ToDisplayText(const Value& value) {
  return std::visit(DisplayText{}, value);
}

}  // namespace tarvoni
