#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

#include "src/context/data/database.h"
#include "src/context/data/tvn_var_dll.h"

// Reading single values. Errors of the database leave every function.
namespace tarvoni {

// The context record's connection; a CallError if the host gave none.
Connection& DbOf(const TvnVar_Dll& context);

// First column of the first row; NULL if there is no row.
Value ReadValue(Connection& connection, const SqlText& statement);
// As ValueHelper reads it, rounded to a Long; 0 for NULL and for no row.
std::int32_t ReadNumber(Connection& connection, const SqlText& statement);
// As ValueHelper reads it; "" for NULL and for no row.
std::string ReadText(Connection& connection, const SqlText& statement);
bool HasRow(Connection& connection, const SqlText& statement);

// The row that a statement names by its key is not there any more.
class RowGoneError : public std::runtime_error {
 public:
  RowGoneError();
};

// Runs an UPDATE or DELETE by key; a RowGoneError if it is known to have met no row.
void ExecuteOnRow(Connection& connection, const SqlText& statement);

// Runs a statement whose failure does not matter, because another one already did.
void TryExecute(Connection& connection, const SqlText& statement);

// Carries writes out and commits them; gives what they gave.
template <typename Writes>
auto Committed(Connection& connection, const Writes& writes) {
  if constexpr (std::is_void_v<std::invoke_result_t<const Writes&>>) {
    writes();
    connection.CommitHandler();
  } else {
    auto result = writes();
    connection.CommitHandler();
    return result;
  }
}

// Does work that goes on from a row just made; if it fails, `undo` takes that row away again.
template <typename Work>
auto OrUndo(Connection& connection, const Work& work, const SqlText& undo) {
  try {
    return work();
  } catch (...) {
    TryExecute(connection, undo);
    throw;
  }
}

std::int32_t ToLong(const Value& value);
std::string ToText(const Value& value);
// A truth value, or a number that is 0 for no; false for NULL.
bool ToFlag(const Value& value);

}  // namespace tarvoni
