#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/public/type.h"

namespace tarvoni::tsql {

struct ColumnDefinition {
  std::string name;
  Type type;
  bool nullable = true;
  bool identity = false;
  long long seed = 1;
  long long step = 1;
  bool has_default = false;
};

// A table as the binder sees it.
struct TableDefinition {
  std::string name;
  std::vector<ColumnDefinition> columns;
  // Sets of columns (by index) of which a row has a combination of its own; the primary key, if any, first.
  std::vector<std::vector<int>> unique_keys;
  bool has_other_keys = false;    // there are unique keys that are not told here
  std::vector<int> indexed = {};  // columns with which an index begins

  int Find(std::string_view column) const;  // index without regard to case, -1 if there is none
  int IdentityColumn() const;               // index, -1 if there is none
};

// Keys of columns that may be NULL are indexes in the file, with a name made for them: "TABLE.UQ1".
inline constexpr const char* kConstraintIndex = "UQ";
bool IsConstraintIndex(std::string_view name);

// Where the binder looks up tables. Names compare without regard to case.
class Catalogue {
 public:
  virtual ~Catalogue() = default;
  // The table, or nothing. It stays valid until the catalogue changes.
  virtual std::shared_ptr<const TableDefinition> FindTable(std::string_view name) const = 0;
};

bool SameLetters(std::string_view a, std::string_view b);  // of names of the same length
// Compares names as T-SQL does: without regard to case.
inline bool SameName(std::string_view a, std::string_view b) {
  return a.size() == b.size() && SameLetters(a, b);
}

}  // namespace tarvoni::tsql
