#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <variant>

#include "platform/sqlite/date_text.h"
#include "platform/sqlite/exact.h"
#include "platform/tsql/public/lexer.h"
#include "platform/tsql/public/type.h"
#include "src/context/values/value.h"

namespace tarvoni::sqlite {

// A value as the file holds it.
using StoredValue = std::variant<Null, std::int64_t, double, std::string, WideExact>;

// A literal of a batch as a value of `target`; fails with a server's numbers. Texts are neither cut nor padded.
StoredValue LiteralToStored(const tsql::LiteralToken& literal, const tsql::Type& target, DateFormat format);
// Gives SQLite's result code; SQLite keeps a copy of the value.
int BindStored(sqlite3_stmt* statement, int parameter, const StoredValue& value);

// A cell of the current row. What no value of the type can be comes as a text: as it stands, behind a mark. A
// REAL where an exact value or a whole number was calculated is error 8115.
Value FromStored(sqlite3_stmt* statement, int column, const tsql::Type& type);
inline constexpr std::string_view kDamagedMark = "⚠ ";
// What a cell of the current row holds, as far as it can be shown.
std::string ShownCell(sqlite3_stmt* statement, int column);

FieldType FieldTypeOf(const tsql::Type& type);
// Characters of a text, else 0.
int DefinedSizeOf(const tsql::Type& type);

}  // namespace tarvoni::sqlite
