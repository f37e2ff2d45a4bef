#pragma once

#include <functional>
#include <vector>

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::sqlite {

// The prepared parts of a statement, which ts_part runs.
class PreparedParts {
 public:
  using Bind = std::function<void(Statement&, const tsql::Sql&)>;

  PreparedParts() = default;
  PreparedParts(Handle& handle, const tsql::Sql& whole);

  // Fills all but the arguments: once for each run of the statement.
  void BindAll(const Bind& bind);
  // Gives the value of a part, or fails as it does.
  void Run(std::size_t part, sqlite3_context* context, sqlite3_value** arguments);

 private:
  struct Part;
  std::vector<Part> parts_;
};

struct PreparedParts::Part {
  const tsql::Sql* sql;
  Statement statement;
  PreparedParts inner;
};

}  // namespace tarvoni::sqlite
