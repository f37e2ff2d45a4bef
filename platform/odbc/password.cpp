#include "platform/odbc/public/password.h"

#include <algorithm>

#include "platform/odbc/connection_text.h"
#include "platform/odbc/keywords.h"

namespace tarvoni::odbc {
namespace {

bool EndsWithKeyword(std::string_view text, std::string_view upper) {
  return text.size() >= upper.size() && EqualsKeyword(text.substr(text.size() - upper.size()), upper);
}

// Also as a bracketed column of a statement.
bool EndsWithPasswordKey(std::string_view text) {
  const auto last = text.find_last_not_of(" \t\r\n]\"");
  if (last == std::string_view::npos) return false;
  text = text.substr(0, last + 1);
  return EndsWithKeyword(text, "PWD") || EndsWithKeyword(text, "PASSWORD");
}

std::size_t PasswordEnd(std::string_view text, std::size_t at) {
  const auto first = text.find_first_not_of(" \t\r\n", at);
  if (first == std::string_view::npos) return text.size();
  const char opening = text[first];
  if (opening == '{') at = QuotedEnd(text, first, '}');
  if (opening == '\'' || opening == '"') at = QuotedEnd(text, first, opening);
  return std::min(text.find(';', at), text.size());
}

}  // namespace

std::string WithoutPassword(std::string_view text) {
  std::string shown;
  std::size_t at = 0;
  while (at < text.size()) {
    const auto equals = std::min(text.find('=', at), text.size() - 1);
    shown += text.substr(at, equals + 1 - at);
    at = equals + 1;
    if (text[equals] != '=' || !EndsWithPasswordKey(text.substr(0, equals))) continue;
    shown += "***";
    at = PasswordEnd(text, at);
  }
  return shown;
}

}  // namespace tarvoni::odbc
