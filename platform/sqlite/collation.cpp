#include "platform/sqlite/collation.h"

#include <sqlite3.h>
#include <utf8proc.h>

#include <cassert>

#include "platform/sqlite/functions.h"
#include "platform/tsql/public/runtime.h"
#include "src/context/values/text.h"

namespace tarvoni::sqlite {
namespace {

// Lower case, with the accents taken apart: "ế" as e, circumflex and acute.
FoldedCharacter Decompose(char32_t character) {
  const auto code = static_cast<utf8proc_int32_t>(character);
  FoldedCharacter folded = {character};
  std::array<utf8proc_int32_t, folded.size()> parts{};
  if (!utf8proc_codepoint_valid(code)) return folded;
  constexpr auto kOptions = static_cast<utf8proc_option_t>(UTF8PROC_DECOMPOSE | UTF8PROC_CASEFOLD);
  int boundary = 0;
  const auto count = utf8proc_decompose_char(code, parts.data(), parts.size(), kOptions, &boundary);
  if (count <= 0 || count > static_cast<utf8proc_ssize_t>(parts.size())) return folded;
  for (std::size_t i = 0; i < parts.size(); ++i) folded[i] = static_cast<char32_t>(parts[i]);
  return folded;
}

int Compare(void* /*unused*/, int a_size, const void* a, int b_size, const void* b) {
  return Collate({static_cast<const char*>(a), static_cast<std::size_t>(a_size)},
                 {static_cast<const char*>(b), static_cast<std::size_t>(b_size)});
}

}  // namespace

int Collate(std::string_view a, std::string_view b) {
  return CompareText(a, b, Decompose);
}

void RegisterCollation(sqlite3* db) {
  [[maybe_unused]] const int code =
      sqlite3_create_collation_v2(db, tsql::kCollation, SQLITE_UTF8, nullptr, Compare, nullptr);
  assert(code == SQLITE_OK);
}

}  // namespace tarvoni::sqlite
