#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvoni::tsql {

enum class TypeKind {
  kNull,  // of a bare NULL, until something else decides
  kBit,
  kTinyInt,
  kSmallInt,
  kInt,
  kBigInt,
  kDecimal,
  kMoney,
  kFloat,
  kDateTime,
  kChar,     // CHAR and NCHAR: padded with blanks
  kVarChar,  // VARCHAR and NVARCHAR
};

// A T-SQL type. In the file whole numbers and flags are integers, decimals and money integers in units of
// their last place (12.35 as MONEY is 123500), floats are REAL, texts are TEXT, dates are ISO text.
struct Type {
  static constexpr int kMaxPrecision = 38;
  static constexpr int kRealPrecision = 24;     // bits of a REAL; a FLOAT has 53
  static constexpr int kDayPrecision = 10;      // characters of a DATE, which has no time
  static constexpr int kMinutesPrecision = 16;  // of a SMALLDATETIME
  static constexpr int kMoneyScale = 4;
  static constexpr int kMaxLength = 1'000'000'000;  // of NVARCHAR(MAX) and of texts of unknown length

  TypeKind kind = TypeKind::kNull;
  int precision = 0;  // of a decimal
  int scale = 0;      // of a decimal; 4 of money
  int length = 0;     // of a text, in characters
  bool ansi = false;  // a text of CHAR or VARCHAR, not of NCHAR or NVARCHAR

  static Type Int() { return {TypeKind::kInt, 10, 0, 0}; }
  static Type Bit() { return {TypeKind::kBit, 1, 0, 0}; }
  static Type BigInt() { return {TypeKind::kBigInt, 19, 0, 0}; }
  static Type Float() { return {TypeKind::kFloat, 53, 0, 0}; }
  static Type Real() { return {TypeKind::kFloat, kRealPrecision, 0, 0}; }
  static Type Money() { return {TypeKind::kMoney, 19, kMoneyScale, 0}; }
  static Type DateTime() { return {TypeKind::kDateTime, 23, 3, 0}; }
  static Type Date() { return {TypeKind::kDateTime, kDayPrecision, 0, 0}; }
  static Type SmallDateTime() { return {TypeKind::kDateTime, kMinutesPrecision, 0, 0}; }
  static Type Decimal(int precision, int scale) { return {TypeKind::kDecimal, precision, scale, 0}; }
  static Type VarChar(int length) { return {TypeKind::kVarChar, 0, 0, length}; }
  static Type Char(int length) { return {TypeKind::kChar, 0, 0, length}; }

  bool IsInteger() const {
    return kind == TypeKind::kBit || kind == TypeKind::kTinyInt || kind == TypeKind::kSmallInt ||
           kind == TypeKind::kInt || kind == TypeKind::kBigInt;
  }
  bool IsExact() const { return IsInteger() || kind == TypeKind::kDecimal || kind == TypeKind::kMoney; }
  bool IsNumeric() const { return IsExact() || kind == TypeKind::kFloat; }
  bool IsText() const { return kind == TypeKind::kChar || kind == TypeKind::kVarChar; }
  bool IsDate() const { return kind == TypeKind::kDateTime; }
  bool IsDay() const { return IsDate() && precision == kDayPrecision; }
  bool IsReal() const { return kind == TypeKind::kFloat && precision == kRealPrecision; }
  bool IsNull() const { return kind == TypeKind::kNull; }

  friend bool operator==(const Type&, const Type&) = default;
};

// The type as it is declared: "INT", "DECIMAL(9,4)", "NVARCHAR(20)", "NVARCHAR(MAX)", "CHAR(5)", "DATETIME".
std::string ToSql(const Type& type);
// For messages: "int", "numeric", "money", "nvarchar", "datetime".
std::string_view NameOf(TypeKind kind);
// The same, by the declared name: "varchar", "smalldatetime".
std::string NameOf(const Type& type);
// Reads a declared type (also INTEGER, NUMERIC, NCHAR, TEXT, REAL, SMALLDATETIME …); nothing if it is none.
std::optional<Type> ParseType(std::string_view declared);
// The type of a name and its bracketed numbers: -1 where there is none, kMaxLength for MAX. Nothing if there is
// no such type, or it takes no such numbers.
std::optional<Type> TypeFromName(std::string_view name, int first, int second);

}  // namespace tarvoni::tsql
