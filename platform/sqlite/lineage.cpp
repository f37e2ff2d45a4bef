#include "platform/sqlite/lineage.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/runtime.h"

namespace tarvoni::sqlite {
namespace {

std::string RandomMark() {
  std::random_device random;
  std::string mark;
  for (int i = 0; i < 4; ++i) {
    std::array<char, 9> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", random());
    mark += digits.data();
  }
  return mark;
}

bool HasTable(Handle& handle, const char* name) {
  Statement query(handle, "SELECT 1 FROM main.sqlite_schema WHERE type = 'table' AND name = ?1");
  query.BindText(1, name);
  return query.Step();
}

}  // namespace

void LayDownMark(Handle& handle) {
  if (HasTable(handle, tsql::kMarkTable)) return;
  handle.Execute(std::string("CREATE TABLE main.") + tsql::kMarkTable + " (mark TEXT NOT NULL)");
  Statement insert(handle, std::string("INSERT INTO main.") + tsql::kMarkTable + " VALUES (?1)");
  insert.BindText(1, RandomMark());
  insert.Run();
}

bool Lineage::IsOlderCopyOf(const Lineage& other) const {
  if (mark.empty() || mark != other.mark) return false;
  // A table that the other one has no more says nothing.
  return std::ranges::all_of(given, [&other](const auto& table) {
    const auto found = other.given.find(table.first);
    return found == other.given.end() || table.second <= found->second;
  });
}

Lineage LineageOf(Handle& handle) {
  Lineage lineage;
  const bool marked = HasTable(handle, tsql::kMarkTable);
  const bool numbers = HasTable(handle, tsql::kIdentityTable);
  lineage.is_ours = marked || numbers;
  if (marked) {
    Statement mark(handle, std::string("SELECT mark FROM main.") + tsql::kMarkTable);
    if (mark.Step()) lineage.mark = mark.Text(0);
  }
  if (numbers) {
    Statement notes(handle, std::string("SELECT table_name, ifnull((last - seed) / step + 1, 0) FROM main.") +
                                tsql::kIdentityTable);
    while (notes.Step()) lineage.given[notes.Text(0)] = notes.Integer(1);
  }
  return lineage;
}

}  // namespace tarvoni::sqlite
