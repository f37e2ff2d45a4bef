#include "platform/odbc/connection_text.h"

#include <algorithm>

#include "src/context/data/database_error.h"
#include "src/context/data/password.h"
#include "src/context/values/keywords.h"

namespace tarvoni::odbc {
namespace {

constexpr std::string_view kPrefix = "ODBC:";
constexpr std::string_view kApplicationLock = "APPLICATIONLOCK";

// Without them FreeTDS speaks an old protocol that knows no long texts, and Latin-1.
constexpr std::pair<std::string_view, std::string_view> kFreeTdsDefaults[] = {
    {"CLIENTCHARSET", "ClientCharset=UTF-8"}, {"TDS_VERSION", "TDS_Version=7.4"}};

struct NamedValue {
  std::string_view name;
  std::string_view value;
};

// Takes the next "Name=value" off the front.
NamedValue TakeAttribute(std::string_view& text) {
  const auto equals = std::min(text.find_first_of("=;"), text.size());
  const bool valued = equals < text.size() && text[equals] == '=';
  const auto first = valued ? text.find_first_not_of(" \t", equals + 1) : std::string_view::npos;
  const bool braced = first != std::string_view::npos && text[first] == '{';
  const auto end = std::min(text.find(';', braced ? QuotedEnd(text, first, '}') : equals), text.size());
  NamedValue attribute{Trimmed(text.substr(0, equals)), {}};
  if (valued) attribute.value = Trimmed(text.substr(equals + 1, end - equals - 1));
  text.remove_prefix(std::min(end + 1, text.size()));
  return attribute;
}

std::string Unbraced(std::string_view value) {
  if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
  std::string plain;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    plain += value[i];
    if (value[i] == '}') ++i;
  }
  return plain;
}

// The text without the attributes of that name.
std::string Without(std::string_view text, std::string_view upper_name) {
  std::string rest;
  while (!text.empty()) {
    const std::string_view before = text;
    const NamedValue attribute = TakeAttribute(text);
    if (!EqualsKeyword(attribute.name, upper_name)) rest += before.substr(0, before.size() - text.size());
  }
  return rest;
}

bool IsFreeTds(std::string_view text) {
  const auto driver = Attribute(text, "DRIVER");
  return driver && (ContainsKeyword(*driver, "FREETDS") || ContainsKeyword(*driver, "TDSODBC"));
}

}  // namespace

std::optional<std::string> Attribute(std::string_view text, std::string_view upper_name) {
  while (!text.empty()) {
    const NamedValue attribute = TakeAttribute(text);
    if (EqualsKeyword(attribute.name, upper_name)) return Unbraced(attribute.value);
  }
  return std::nullopt;
}

bool WantsApplicationLock(std::string_view connection_string) {
  const auto value = Attribute(connection_string.substr(std::min(kPrefix.size(), connection_string.size())),
                               kApplicationLock);
  return !value || !(EqualsKeyword(*value, "NO") || EqualsKeyword(*value, "0"));
}

std::string DriverText(std::string_view connection_string) {
  if (!StartsWithKeyword(connection_string, kPrefix))
    throw DatabaseError(kErrorConnection, "Der Verbindungstext muss mit \"odbc:\" beginnen: " +
                                              WithoutPassword(connection_string));
  std::string text = Without(Trimmed(connection_string.substr(kPrefix.size())), kApplicationLock);
  if (!IsFreeTds(text)) return text;
  for (const auto& [name, attribute] : kFreeTdsDefaults) {
    if (Attribute(text, name)) continue;
    if (!text.ends_with(';')) text += ';';
    text += attribute;
  }
  return text;
}

}  // namespace tarvoni::odbc
