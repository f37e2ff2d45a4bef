#pragma once

#include <string_view>

#include "platform/tsql/public/error.h"
#include "src/context/data/database_error.h"

namespace tarvoni::sqlite {

// What a failed SQLite call means: its extended result code and message as the number and text of a T-SQL
// server, or as one of our own.
DatabaseError ErrorOf(int extended_code, std::string_view message);

// What the front end refused of a batch.
DatabaseError ErrorOf(const tsql::Error& error, std::string_view batch);

// True for a value that a key or a unique index refuses.
inline bool IsDuplicate(int number) {
  return number == 2627 || number == 2601;
}

// True for the errors after which nothing more of a batch runs; after the others it goes on with the next
// statement.
bool EndsBatch(int number);

}  // namespace tarvoni::sqlite
