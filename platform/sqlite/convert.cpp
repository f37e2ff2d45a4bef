#include "platform/sqlite/convert.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "platform/sqlite/number_text.h"
#include "platform/sqlite/server_error.h"
#include "platform/sqlite/utf8_text.h"
#include "platform/sqlite/whole.h"

namespace tarvoni::sqlite {
namespace {

using tsql::LiteralToken;
using tsql::TokenKind;
using tsql::Type;
using tsql::TypeKind;

// The number that stands in a batch, with all its places.
Decimal ReadExact(const std::string& digits) {
  const std::size_t point = digits.find('.');
  const std::size_t places = point == std::string::npos ? 0 : digits.size() - point - 1;
  const int scale = static_cast<int>(std::min<std::size_t>(places, Decimal::kMaxDigits));
  return {ExactFromText(digits, Decimal::kMaxDigits, scale), scale};
}

std::int64_t WholeFromLiteral(const LiteralToken& literal, TypeKind kind) {
  if (literal.kind == TokenKind::kText) return WholeFromText(literal.text, kind);
  if (literal.kind == TokenKind::kFloat) return WholeFromFloat(FloatFromText(literal.text), kind);
  const Decimal number = ReadExact(literal.text);
  if (literal.kind == TokenKind::kInteger && FitsKind(number.Unscaled(), TypeKind::kBigInt)) {
    return CastWhole(static_cast<std::int64_t>(number.Unscaled()), kind);
  }
  return WholeFromExact(number.Unscaled(), number.Scale(), kind, false);
}

Int128 ExactFromLiteral(const LiteralToken& literal, int precision, int scale) {
  if (literal.kind != TokenKind::kFloat) return ExactFromText(literal.text, precision, scale);
  return ExactFromFloat(FloatFromText(literal.text), precision, scale);
}

std::int64_t MoneyFromLiteral(const LiteralToken& literal) {
  if (literal.kind == TokenKind::kText) return MoneyFromText(literal.text);
  return RequireMoney(ExactFromLiteral(literal, Decimal::kMaxDigits, Type::kMoneyScale));
}

std::string DateFromLiteral(const LiteralToken& literal, const Type& target, DateFormat format) {
  DateTime date = literal.kind == TokenKind::kText ? DateFromText(literal.text, format)
                                                   : DateFromDays(FloatFromText(literal.text));
  if (target.IsDay()) date.milliseconds = 0;
  return (target == Type::SmallDateTime() ? ToMinutes(date) : date).ToIso();
}

double FloatFromLiteral(const LiteralToken& literal, const Type& target) {
  const double value = FloatFromText(literal.text);
  return target.IsReal() ? static_cast<double>(static_cast<float>(value)) : value;
}

std::string TextFromLiteral(const LiteralToken& literal) {
  if (literal.kind == TokenKind::kText) return literal.text;
  if (literal.kind == TokenKind::kFloat) return TextFromFloat(FloatFromText(literal.text));
  return ReadExact(literal.text).ToString();
}

StoredValue StoredExact(Int128 value) {
  if (FitsKind(value, TypeKind::kBigInt)) return static_cast<std::int64_t>(value);
  return EncodeWide(value);
}

struct Binder {
  sqlite3_stmt* statement;
  int parameter;

  int operator()(Null) const { return sqlite3_bind_null(statement, parameter); }
  int operator()(std::int64_t number) const { return sqlite3_bind_int64(statement, parameter, number); }
  int operator()(double number) const { return sqlite3_bind_double(statement, parameter, number); }
  int operator()(const std::string& text) const {
    return sqlite3_bind_text64(statement, parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8);
  }
  int operator()(const WideExact& bytes) const {
    return sqlite3_bind_blob64(statement, parameter, bytes.data(), bytes.size(), SQLITE_TRANSIENT);
  }
};

bool IsWhole(sqlite3_stmt* statement, int column) {
  return sqlite3_column_type(statement, column) == SQLITE_INTEGER;
}

bool IsWide(sqlite3_stmt* statement, int column) {
  return sqlite3_column_type(statement, column) == SQLITE_BLOB &&
         sqlite3_column_bytes(statement, column) == static_cast<int>(WideExact().size());
}

std::string_view TextOf(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return {text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))};
}

// SQLite gives a REAL where its integers overflow; in a column that is read as it stands it is damage.
Value Damaged(sqlite3_stmt* statement, int column, TypeKind kind) {
  const bool calculated = sqlite3_column_origin_name(statement, column) == nullptr;
  if (calculated && sqlite3_column_type(statement, column) == SQLITE_FLOAT) RaiseOverflow(kind);
  return std::string(kDamagedMark) + ShownCell(statement, column);
}

Value WholeOf(sqlite3_stmt* statement, int column, TypeKind kind) {
  if (!IsWhole(statement, column)) return Damaged(statement, column, kind);
  const std::int64_t number = sqlite3_column_int64(statement, column);
  if (kind == TypeKind::kBit) return number != 0;
  return number;
}

Value ExactOf(sqlite3_stmt* statement, int column, const Type& type) {
  if (IsWhole(statement, column)) return Decimal(sqlite3_column_int64(statement, column), type.scale);
  if (!IsWide(statement, column)) return Damaged(statement, column, type.kind);
  return Decimal(DecodeWide(sqlite3_column_blob(statement, column)), type.scale);
}

Value FloatOf(sqlite3_stmt* statement, int column) {
  const int found = sqlite3_column_type(statement, column);
  const double number = sqlite3_column_double(statement, column);
  if ((found == SQLITE_FLOAT || found == SQLITE_INTEGER) && std::isfinite(number)) return number;
  return Damaged(statement, column, TypeKind::kFloat);
}

Value DateOf(sqlite3_stmt* statement, int column) {
  const auto date = DateTime::FromIso(TextOf(statement, column));
  return date ? Value(*date) : Damaged(statement, column, TypeKind::kDateTime);
}

Value PlainTextOf(sqlite3_stmt* statement, int column) {
  const bool sound =
      sqlite3_column_type(statement, column) != SQLITE_BLOB && IsUtf8(TextOf(statement, column));
  return sound ? Value(std::string(TextOf(statement, column)))
               : Damaged(statement, column, TypeKind::kVarChar);
}

std::string HexDigits(std::string_view bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text = "0x";
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    text += kDigits[value >> 4];
    text += kDigits[value & 15];
  }
  return text;
}

}  // namespace

StoredValue LiteralToStored(const LiteralToken& literal, const Type& target, DateFormat format) {
  if (target.IsInteger()) return WholeFromLiteral(literal, target.kind);
  switch (target.kind) {
    case TypeKind::kDecimal:
      return StoredExact(ExactFromLiteral(literal, target.precision, target.scale));
    case TypeKind::kMoney:
      return MoneyFromLiteral(literal);
    case TypeKind::kFloat:
      return FloatFromLiteral(literal, target);
    case TypeKind::kDateTime:
      return DateFromLiteral(literal, target, format);
    default:
      return TextFromLiteral(literal);
  }
}

int BindStored(sqlite3_stmt* statement, int parameter, const StoredValue& value) {
  return std::visit(Binder{statement, parameter}, value);
}

Value FromStored(sqlite3_stmt* statement, int column, const Type& type) {
  if (sqlite3_column_type(statement, column) == SQLITE_NULL) return Null{};
  switch (type.kind) {
    case TypeKind::kBit:
    case TypeKind::kTinyInt:
    case TypeKind::kSmallInt:
    case TypeKind::kInt:
    case TypeKind::kBigInt:
      return WholeOf(statement, column, type.kind);
    case TypeKind::kDecimal:
    case TypeKind::kMoney:
      return ExactOf(statement, column, type);
    case TypeKind::kFloat:
      return FloatOf(statement, column);
    case TypeKind::kDateTime:
      return DateOf(statement, column);
    default:
      return PlainTextOf(statement, column);
  }
}

std::string ShownCell(sqlite3_stmt* statement, int column) {
  if (sqlite3_column_type(statement, column) != SQLITE_BLOB)
    return WithoutBrokenBytes(TextOf(statement, column));
  const auto* bytes = static_cast<const char*>(sqlite3_column_blob(statement, column));
  return HexDigits({bytes, static_cast<std::size_t>(sqlite3_column_bytes(statement, column))});
}

FieldType FieldTypeOf(const Type& type) {
  switch (type.kind) {
    case TypeKind::kBit:
      return FieldType::kBoolean;
    case TypeKind::kTinyInt:
      return FieldType::kUnsignedTinyInt;
    case TypeKind::kSmallInt:
      return FieldType::kSmallInt;
    case TypeKind::kNull:  // a bare NULL is an INT to a server
    case TypeKind::kInt:
      return FieldType::kInteger;
    case TypeKind::kBigInt:
      return FieldType::kBigInt;
    case TypeKind::kDecimal:
      return FieldType::kNumeric;
    case TypeKind::kMoney:
      return FieldType::kCurrency;
    case TypeKind::kFloat:
      return FieldType::kDouble;
    case TypeKind::kDateTime:
      return FieldType::kDbTimeStamp;
    case TypeKind::kChar:
      return FieldType::kChar;
    case TypeKind::kVarChar:
      return FieldType::kVarWChar;
  }
  return FieldType::kEmpty;
}

int DefinedSizeOf(const Type& type) {
  return type.IsText() ? type.length : 0;
}

}  // namespace tarvoni::sqlite
