#include "src/context/data/password.h"

#include <algorithm>
#include <array>
#include <utility>

#include "src/context/values/keywords.h"

namespace tarvoni {
namespace {

using Piece = std::pair<std::size_t, std::size_t>;  // where it begins and ends

constexpr std::string_view kMark = "***";
constexpr std::string_view kBlanks = " \t\r\n";

constexpr std::array<std::string_view, 4> kPasswordKeys = {"PWD", "PASSWORD", "KENNWORT", "PASSWORT"};
constexpr std::array<std::string_view, 19> kOtherKeys = {
    "DRIVER",     "SERVER",  "SERVERNAME", "ADDRESS",     "PORT",           "DATABASE",      "UID",
    "USER",       "DSN",     "FILEDSN",    "APP",         "WSID",           "CLIENTCHARSET", "TIMEOUT",
    "ENCRYPTION", "ENCRYPT", "LANGUAGE",   "TDS_VERSION", "APPLICATIONLOCK"};

// Also as a bracketed column of a statement.
bool EndsWithPasswordKey(std::string_view text) {
  const auto last = text.find_last_not_of(" \t\r\n]}\"");
  if (last == std::string_view::npos) return false;
  text = text.substr(0, last + 1);
  return std::ranges::any_of(kPasswordKeys, [&](auto key) { return EndsWithKeyword(text, key); });
}

bool BeginsAttribute(std::string_view text) {
  const auto equals = text.find('=');
  if (equals == std::string_view::npos) return false;
  const std::string_view name = Trimmed(text.substr(0, equals));
  return std::ranges::any_of(kOtherKeys, [&](auto key) { return EqualsKeyword(name, key); }) ||
         std::ranges::any_of(kPasswordKeys, [&](auto key) { return EqualsKeyword(name, key); });
}

// Whether the attributes of a connection text go on, or end, behind a semicolon.
bool GoesOn(std::string_view text) {
  return BeginsAttribute(text) || Trimmed(text).empty();
}

// The mark that stands for a password already; one that begins like it goes on otherwise.
bool IsMarked(std::string_view value) {
  if (!value.starts_with(kMark)) return false;
  value.remove_prefix(kMark.size());
  if (value.starts_with(';')) return GoesOn(value.substr(1));
  return value.empty() || value.starts_with('\n') || value.starts_with("“");
}

std::size_t ValueEnd(std::string_view text, std::size_t at) {
  if (text[at] == '{') {
    at = QuotedEnd(text, at, '}');
  } else if (text[at] == '\'' || text[at] == '"') {
    at = QuotedEnd(text, at, text[at]);
  }
  at = text.find(';', at);
  while (at != std::string_view::npos && !GoesOn(text.substr(at + 1))) at = text.find(';', at + 1);
  return std::min(at, text.size());
}

// Where passwords stand, with the blanks before them.
std::vector<Piece> FindPasswords(std::string_view text) {
  std::vector<Piece> found;
  for (std::size_t at = text.find('='); at != std::string_view::npos; at = text.find('=', at)) {
    const std::size_t begin = ++at;
    if (!EndsWithPasswordKey(text.substr(0, begin - 1))) continue;
    const auto first = text.find_first_not_of(kBlanks, begin);
    if (first != std::string_view::npos && IsMarked(text.substr(first))) continue;
    at = first == std::string_view::npos ? text.size() : ValueEnd(text, first);
    found.emplace_back(begin, at);
  }
  return found;
}

// Without its braces or quotes, a doubled mark taken for one.
std::string Plain(std::string_view value) {
  const char closing = value.front() == '{' ? '}' : value.front();
  std::string plain;
  for (std::size_t i = 1; i + 1 < value.size(); ++i) {
    plain += value[i];
    if (value[i] == closing && value[i + 1] == closing) ++i;
  }
  return plain;
}

bool IsWordSign(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

// Inside other words a short one would be found everywhere, and its letters would be told by what is missing.
bool MayStandAt(std::string_view text, std::size_t at, std::size_t size) {
  constexpr std::size_t kLong = 4;
  if (size >= kLong) return true;
  const bool begins = at == 0 || !IsWordSign(text[at - 1]) || !IsWordSign(text[at]);
  const std::size_t end = at + size;
  return begins && (end == text.size() || !IsWordSign(text[end]) || !IsWordSign(text[end - 1]));
}

std::string Replaced(std::string text, const std::string& password) {
  for (std::size_t at = text.find(password); at != std::string::npos; at = text.find(password, at)) {
    if (MayStandAt(text, at, password.size())) {
      text.replace(at, password.size(), kMark);
      at += kMark.size();
    } else {
      ++at;
    }
  }
  return text;
}

}  // namespace

std::string WithoutPassword(std::string_view text) {
  std::string shown;
  std::size_t at = 0;
  for (const auto& [begin, end] : FindPasswords(text)) {
    shown.append(text.substr(at, begin - at)).append(kMark);
    at = end;
  }
  return shown.append(text.substr(at));
}

bool HoldsPassword(std::string_view text) {
  return !FindPasswords(text).empty();
}

std::vector<std::string> PasswordsIn(std::string_view connection_text) {
  std::vector<std::string> passwords;
  const auto add = [&](std::string password) {
    const std::string_view plain = Trimmed(password);
    if (!plain.empty() && std::ranges::find(passwords, plain) == passwords.end())
      passwords.emplace_back(plain);
  };
  for (const auto& [begin, end] : FindPasswords(connection_text)) {
    const std::string_view value = Trimmed(connection_text.substr(begin, end - begin));
    if (value.empty()) continue;
    add(std::string(value));
    if (std::string_view("{'\"").find(value.front()) != std::string_view::npos) add(Plain(value));
    // A driver that knows no braces ends it at the first semicolon.
    add(std::string(value.substr(0, value.find(';'))));
  }
  std::ranges::sort(passwords, std::greater(), &std::string::size);
  return passwords;
}

std::string WithoutPassword(std::string_view text, const std::vector<std::string>& passwords) {
  std::string shown = WithoutPassword(text);
  for (const std::string& password : passwords) shown = Replaced(std::move(shown), password);
  return shown;
}

}  // namespace tarvoni
