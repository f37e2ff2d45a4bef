#include "platform/sqlite/rewrite.h"

#include <memory>
#include <vector>

#include "platform/sqlite/savepoint.h"
#include "platform/sqlite/server_error.h"
#include "src/context/data/database_error.h"

namespace tarvoni::sqlite {
namespace {

// References may be broken while rows are out. The setting is made before statements that heed it are prepared.
class DeferredReferences {
 public:
  explicit DeferredReferences(Handle& handle) : handle_(handle) {
    handle.Execute("PRAGMA defer_foreign_keys = ON");
  }
  DeferredReferences(const DeferredReferences&) = delete;
  DeferredReferences& operator=(const DeferredReferences&) = delete;
  ~DeferredReferences() {
    sqlite3_exec(handle_.Raw(), "PRAGMA defer_foreign_keys = OFF", nullptr, nullptr, nullptr);
  }

  void Require() const {
    int broken = 0, highest = 0;
    sqlite3_db_status(handle_.Raw(), SQLITE_DBSTATUS_DEFERRED_FKS, &broken, &highest, 0);
    if (broken != 0) handle_.Fail(SQLITE_CONSTRAINT_FOREIGNKEY);
  }

 private:
  Handle& handle_;
};

struct FreeValue {
  void operator()(sqlite3_value* value) const { sqlite3_value_free(value); }
};
using KeptValue = std::unique_ptr<sqlite3_value, FreeValue>;

std::vector<KeptValue> ReadCells(Statement& rows, int width) {
  std::vector<KeptValue> cells;
  while (rows.Step()) {
    for (int column = 0; column < width; ++column) {
      cells.emplace_back(sqlite3_value_dup(sqlite3_column_value(rows.Raw(), column)));
    }
  }
  return cells;
}

}  // namespace

long long RewriteRows(Handle& handle, Statement& rows, const tsql::RowRewrite& rewrite) {
  const auto width = static_cast<std::size_t>(sqlite3_column_count(rows.Raw()));
  const std::vector<KeptValue> cells = ReadCells(rows, static_cast<int>(width));
  Savepoint savepoint(handle, "row_rewrite");
  const DeferredReferences references(handle);
  Statement erase(handle, rewrite.erase);
  for (std::size_t row = 0; row < cells.size(); row += width) {
    sqlite3_bind_value(erase.Raw(), 1, cells[row].get());
    erase.Run();
  }
  Statement insert(handle, rewrite.insert);
  for (std::size_t row = 0; row < cells.size(); row += width) {
    // Parameters of the insert bear the number of their column; that of the row may be missing.
    for (std::size_t column = 0; column < width; ++column) {
      sqlite3_bind_value(insert.Raw(), static_cast<int>(column + 1), cells[row + column].get());
    }
    insert.Run();
  }
  references.Require();
  savepoint.Keep();
  return static_cast<long long>(cells.size() / width);
}

}  // namespace tarvoni::sqlite
