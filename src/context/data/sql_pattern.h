#pragma once

#include <cstddef>
#include <span>
#include <string_view>

// What the compiler checks of the texts that statements are composed of.
namespace tarvoni::detail {

// How a value stands in a pattern: for itself, between quotes or behind a literal 0.
enum class Place { kBare, kQuoted, kDigits };

// Walks through a text and knows at each character whether it stands between quotes or in a name in brackets.
class TextScan {
 public:
  constexpr void Take(char c) {
    if (c == '\'' && !named_) quoted_ = !quoted_;
    if (quoted_) return;
    if (c == '[') named_ = true;
    if (c == ']') named_ = false;
    depth_ += c == '(' ? 1 : c == ')' ? -1 : 0;
    closes_too_often_ = closes_too_often_ || depth_ < 0;
  }
  constexpr bool InQuotes() const { return quoted_; }
  constexpr bool InName() const { return named_; }

  // What is wrong at the end of the text; "" if nothing is.
  constexpr std::string_view Fault() const {
    if (quoted_) return "a quote is not closed";
    if (named_) return "a name in brackets is not closed";
    if (depth_ != 0 || closes_too_often_) return "a parenthesis has no partner";
    return {};
  }

 private:
  bool quoted_ = false, named_ = false, closes_too_often_ = false;
  int depth_ = 0;
};

constexpr bool IsWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' || c == '.';
}

// A 0 that is a number of its own.
constexpr bool EndsInZero(std::string_view text) {
  return text.ends_with('0') && !(text.size() > 1 && IsWordCharacter(text[text.size() - 2]));
}

// What is wrong with a value at a place behind `before`; "" if nothing is.
constexpr std::string_view ValueFault(std::string_view before, const TextScan& scan, Place value) {
  if (scan.InName()) return "a value stands in a name in brackets";
  if (scan.InQuotes()) return value == Place::kQuoted ? "" : "only a Quoted stands between quotes";
  if (value == Place::kQuoted) return "a Quoted stands outside of quotes";
  if (EndsInZero(before)) return value == Place::kDigits ? "" : "only Digits stand behind a literal 0";
  if (value == Place::kDigits) return "Digits stand without a literal 0";
  if (before.ends_with('-')) return "a negative value behind a minus begins a comment";
  if (!before.empty() && before.back() >= '0' && before.back() <= '9') return "a value stands behind a digit";
  return {};
}

// What is wrong with a pattern for these values; "" if nothing is.
constexpr std::string_view PatternFault(std::string_view pattern, std::span<const Place> values) {
  TextScan scan;
  std::size_t taken = 0;
  for (std::size_t at = 0; at < pattern.size(); ++at) {
    const std::string_view two = pattern.substr(at, 2);
    if (!scan.InQuotes() && (two == "--" || two == "/*")) return "a comment hides what follows";
    if (two != "{}") {
      scan.Take(pattern[at]);
      continue;
    }
    if (taken == values.size()) return "the pattern has more {} than there are values";
    const std::string_view fault = ValueFault(pattern.substr(0, at), scan, values[taken++]);
    if (!fault.empty()) return fault;
    ++at;
  }
  return taken < values.size() ? "the pattern has fewer {} than there are values" : scan.Fault();
}

constexpr std::string_view WithoutFirstLineBreak(std::string_view text) {
  return text.starts_with('\n') ? text.substr(1) : text;
}

// The compiler shows the fault as the argument of the call that it refuses.
constexpr void RequireNoFault(std::string_view fault) {
  if (!fault.empty()) throw fault;
}

consteval std::string_view CheckedLiteral(std::string_view text) {
  TextScan scan;
  for (const char c : text) scan.Take(c);
  RequireNoFault(scan.Fault());
  return WithoutFirstLineBreak(text);
}

}  // namespace tarvoni::detail
