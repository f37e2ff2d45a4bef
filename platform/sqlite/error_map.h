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

// Of a value that a key of the table, or else a unique index, refuses.
inline constexpr int kDuplicateKey = 2627;
inline constexpr int kDuplicateInIndex = 2601;
inline bool IsDuplicate(int number) {
  return number == kDuplicateKey || number == kDuplicateInIndex;
}

// True for the errors after which nothing more of a batch runs; after the others it goes on with the next
// statement.
bool EndsBatch(int number);

}  // namespace tarvoni::sqlite
