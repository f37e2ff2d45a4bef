#include "platform/sqlite/function_layer.h"

#include <cmath>

namespace tarvoni::sqlite {

using tsql::TypeKind;

namespace {

// Which cell it is only a look at the tables can tell.
[[noreturn]] void RaiseDamaged() {
  Raise(kErrorDamaged, "In der Datenbank steht ein Wert, den es nicht geben kann.");
}

[[noreturn]] void RaiseNotExact(sqlite3_value* value, TypeKind kind) {
  if (sqlite3_value_type(value) == SQLITE_FLOAT) RaiseOverflow(kind);
  RaiseDamaged();
}

}  // namespace

template <>
Raw ReadArgument(sqlite3_value* value) {
  return value;
}

template <>
std::int64_t ReadArgument(sqlite3_value* value) {
  if (sqlite3_value_type(value) != SQLITE_INTEGER) RaiseNotExact(value, TypeKind::kBigInt);
  return sqlite3_value_int64(value);
}

template <>
int ReadArgument(sqlite3_value* value) {
  return sqlite3_value_int(value);
}

template <>
bool ReadArgument(sqlite3_value* value) {
  return sqlite3_value_int(value) != 0;
}

template <>
TypeKind ReadArgument(sqlite3_value* value) {
  return static_cast<TypeKind>(sqlite3_value_int(value));
}

template <>
double ReadArgument(sqlite3_value* value) {
  return sqlite3_value_double(value);
}

template <>
Int128 ReadArgument(sqlite3_value* value) {
  const bool wide = sqlite3_value_type(value) == SQLITE_BLOB &&
                    sqlite3_value_bytes(value) == static_cast<int>(WideExact().size());
  if (wide) return DecodeWide(sqlite3_value_blob(value));
  if (sqlite3_value_type(value) != SQLITE_INTEGER) RaiseNotExact(value, TypeKind::kDecimal);
  return sqlite3_value_int64(value);
}

template <>
std::string_view ReadArgument(sqlite3_value* value) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
  if (text == nullptr) throw std::bad_alloc();
  return {text, static_cast<std::size_t>(sqlite3_value_bytes(value))};
}

template <>
DateTime ReadArgument(sqlite3_value* value) {
  const auto date = DateTime::FromIso(ReadArgument<std::string_view>(value));
  if (!date) RaiseDamaged();
  return *date;
}

void ReturnValue(sqlite3_context* context, std::int64_t value) {
  sqlite3_result_int64(context, value);
}

void ReturnValue(sqlite3_context* context, double value) {
  if (!std::isfinite(value)) RaiseOverflow(TypeKind::kFloat);
  sqlite3_result_double(context, value);
}

void ReturnValue(sqlite3_context* context, Int128 value) {
  const auto narrow = static_cast<std::int64_t>(value);
  if (narrow == value) return sqlite3_result_int64(context, narrow);
  ReturnValue(context, EncodeWide(value));
}

void ReturnValue(sqlite3_context* context, const WideExact& value) {
  sqlite3_result_blob(context, value.data(), static_cast<int>(value.size()), SQLITE_TRANSIENT);
}

void ReturnValue(sqlite3_context* context, std::string_view value) {
  sqlite3_result_text64(context, value.data(), value.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
}

void ReturnValue(sqlite3_context* context, const DateTime& value) {
  ReturnValue(context, std::string_view(value.ToIso()));
}

void Fail(sqlite3_context* context, int number, const char* message) {
  ContextOf(context).error = FunctionError{number, message};
  sqlite3_result_error(context, message, -1);
}

}  // namespace tarvoni::sqlite
