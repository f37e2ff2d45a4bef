#include "platform/tsql/public/catalogue.h"

#include <algorithm>

namespace tarvoni::tsql {
namespace {

constexpr unsigned char kLatinLead = 0xC3;  // UTF-8 of À to ÿ begins with it

// One byte of a name in upper case; `before` is the byte in front of it. ÷ stands where a letter would be.
unsigned char Upper(unsigned char before, unsigned char c) {
  if (c >= 'a' && c <= 'z') return static_cast<unsigned char>(c - 0x20);
  const bool small_umlaut = before == kLatinLead && c >= 0xA0 && c <= 0xBE && c != 0xB7;
  return small_umlaut ? static_cast<unsigned char>(c - 0x20) : c;
}

}  // namespace

bool SameLetters(std::string_view a, std::string_view b) {
  if (a == b) return true;  // names are mostly spelled alike
  unsigned char before = 0;
  for (size_t i = 0; i < a.size(); ++i) {
    const auto left = static_cast<unsigned char>(a[i]);
    if (Upper(before, left) != Upper(before, static_cast<unsigned char>(b[i]))) return false;
    before = left;
  }
  return true;
}

bool IsConstraintIndex(std::string_view name) {
  const size_t end = name.find_last_not_of("0123456789") + 1;
  return end < name.size() && name.substr(0, end).ends_with("." + std::string(kConstraintIndex));
}

int TableDefinition::Find(std::string_view column) const {
  const auto found =
      std::ranges::find_if(columns, [&](const ColumnDefinition& c) { return SameName(c.name, column); });
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

int TableDefinition::IdentityColumn() const {
  const auto found = std::ranges::find_if(columns, &ColumnDefinition::identity);
  return found == columns.end() ? -1 : static_cast<int>(found - columns.begin());
}

}  // namespace tarvoni::tsql
