#include "platform/tsql/public/type.h"

#include <algorithm>
#include <charconv>

#include "platform/tsql/public/catalogue.h"

namespace tarvoni::tsql {
namespace {

constexpr int kLongestDeclared = 8000;  // characters of a text with a declared length
constexpr int kDefaultPrecision = 18;

// What may stand in brackets behind a type's name.
enum class Numbers { kNone, kDigits, kPrecisionAndScale, kLength, kLengthOrMax };

struct NamedType {
  std::string_view name;
  Type type;
  Numbers numbers = Numbers::kNone;
};

constexpr Type kSmallInt{TypeKind::kSmallInt, 5, 0, 0};
constexpr Type kTinyInt{TypeKind::kTinyInt, 3, 0, 0};
constexpr Type kInt{TypeKind::kInt, 10, 0, 0};
constexpr Type kDecimal{TypeKind::kDecimal, kDefaultPrecision, 0, 0};
constexpr Type kMoney{TypeKind::kMoney, 19, Type::kMoneyScale, 0};
constexpr Type kFloat{TypeKind::kFloat, 53, 0, 0};
constexpr Type kDateTime{TypeKind::kDateTime, 23, 3, 0};
constexpr Type kReal{TypeKind::kFloat, Type::kRealPrecision, 0, 0};
constexpr Type kDate{TypeKind::kDateTime, Type::kDayPrecision, 0, 0};
constexpr Type kSmallDateTime{TypeKind::kDateTime, Type::kMinutesPrecision, 0, 0};
constexpr Type kNChar{TypeKind::kChar, 0, 0, 1};
constexpr Type kNVarChar{TypeKind::kVarChar, 0, 0, 1};
constexpr Type kNText{TypeKind::kVarChar, 0, 0, Type::kMaxLength};

constexpr Type Ansi(Type text) {
  text.ansi = true;
  return text;
}

constexpr NamedType kTypes[] = {
    {"INT", kInt},
    {"INTEGER", kInt},
    {"SMALLINT", kSmallInt},
    {"TINYINT", kTinyInt},
    {"BIGINT", {TypeKind::kBigInt, 19, 0, 0}},
    {"BIT", {TypeKind::kBit, 1, 0, 0}},
    {"DECIMAL", kDecimal, Numbers::kPrecisionAndScale},
    {"NUMERIC", kDecimal, Numbers::kPrecisionAndScale},
    {"DEC", kDecimal, Numbers::kPrecisionAndScale},
    {"MONEY", kMoney},
    {"SMALLMONEY", kMoney},
    {"FLOAT", kFloat, Numbers::kDigits},
    {"REAL", kReal},
    {"DOUBLE PRECISION", kFloat},
    {"DATETIME", kDateTime},
    {"SMALLDATETIME", kSmallDateTime},
    {"DATE", kDate},
    {"DATETIME2", kDateTime, Numbers::kDigits},
    {"CHAR", Ansi(kNChar), Numbers::kLength},
    {"NCHAR", kNChar, Numbers::kLength},
    {"VARCHAR", Ansi(kNVarChar), Numbers::kLengthOrMax},
    {"NVARCHAR", kNVarChar, Numbers::kLengthOrMax},
    {"TEXT", Ansi(kNText)},
    {"NTEXT", kNText},
};

std::optional<Type> WithPrecision(Type type, int precision, int scale) {
  if (precision < 1 || precision > Type::kMaxPrecision || scale > precision) return std::nullopt;
  type.precision = precision;
  type.scale = std::max(scale, 0);
  return type;
}

std::optional<Type> WithLength(Type type, int length, bool max_allowed) {
  const bool max = max_allowed && length == Type::kMaxLength;
  if (!max && (length < 1 || length > kLongestDeclared)) return std::nullopt;
  type.length = length;
  return type;
}

std::string_view Trim(std::string_view text) {
  const size_t begin = std::min(text.find_first_not_of(' '), text.size());
  text.remove_prefix(begin);
  return text.substr(0, text.find_last_not_of(' ') + 1);
}

std::optional<int> ReadNumber(std::string_view text) {
  if (SameName(text, "MAX")) return Type::kMaxLength;
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

}  // namespace

std::string ToSql(const Type& type) {
  const auto numbered = [](std::string_view name, auto... numbers) {
    std::string text(name);
    char mark = '(';
    ((text += mark, text += std::to_string(numbers), mark = ','), ...);
    return text + ')';
  };
  switch (type.kind) {
    case TypeKind::kNull:
      return "NULL";
    case TypeKind::kBit:
      return "BIT";
    case TypeKind::kTinyInt:
      return "TINYINT";
    case TypeKind::kSmallInt:
      return "SMALLINT";
    case TypeKind::kInt:
      return "INT";
    case TypeKind::kBigInt:
      return "BIGINT";
    case TypeKind::kDecimal:
      return numbered("DECIMAL", type.precision, type.scale);
    case TypeKind::kMoney:
      return "MONEY";
    case TypeKind::kFloat:
      return type.IsReal() ? "REAL" : "FLOAT";
    case TypeKind::kDateTime:
      if (type.IsDay()) return "DATE";
      return type == kSmallDateTime ? "SMALLDATETIME" : "DATETIME";
    case TypeKind::kChar:
      return numbered(type.ansi ? "CHAR" : "NCHAR", type.length);
    case TypeKind::kVarChar: {
      const std::string name = type.ansi ? "VARCHAR" : "NVARCHAR";
      return type.length > kLongestDeclared ? name + "(MAX)" : numbered(name, type.length);
    }
  }
  return {};
}

std::string_view NameOf(TypeKind kind) {
  switch (kind) {
    case TypeKind::kNull:
      return "NULL";
    case TypeKind::kBit:
      return "bit";
    case TypeKind::kTinyInt:
      return "tinyint";
    case TypeKind::kSmallInt:
      return "smallint";
    case TypeKind::kInt:
      return "int";
    case TypeKind::kBigInt:
      return "bigint";
    case TypeKind::kDecimal:
      return "numeric";
    case TypeKind::kMoney:
      return "money";
    case TypeKind::kFloat:
      return "float";
    case TypeKind::kDateTime:
      return "datetime";
    case TypeKind::kChar:
      return "char";
    case TypeKind::kVarChar:
      return "nvarchar";
  }
  return {};
}

std::string NameOf(const Type& type) {
  if (!type.IsText() && !type.IsDate() && type.kind != TypeKind::kFloat)
    return std::string(NameOf(type.kind));
  std::string name = ToSql(type);
  name.resize(std::min(name.find('('), name.size()));
  for (char& c : name) c = static_cast<char>(c | 0x20);
  return name;
}

std::optional<Type> TypeFromName(std::string_view name, int first, int second) {
  const auto found = std::ranges::find_if(kTypes, [&](const NamedType& t) { return SameName(t.name, name); });
  if (found == std::end(kTypes)) return std::nullopt;
  if (first < 0) return found->type;
  if (second >= 0 && found->numbers != Numbers::kPrecisionAndScale) return std::nullopt;
  switch (found->numbers) {
    case Numbers::kNone:
      return std::nullopt;
    case Numbers::kDigits:
      if (first > found->type.precision) return std::nullopt;
      return found->type == kFloat && first <= Type::kRealPrecision ? kReal : found->type;
    case Numbers::kPrecisionAndScale:
      return WithPrecision(found->type, first, second);
    case Numbers::kLength:
      return WithLength(found->type, first, false);
    case Numbers::kLengthOrMax:
      return WithLength(found->type, first, true);
  }
  return std::nullopt;
}

std::optional<Type> ParseType(std::string_view declared) {
  declared = Trim(declared);
  const size_t bracket = declared.find('(');
  const std::string_view name = Trim(declared.substr(0, bracket));
  if (bracket == std::string_view::npos) return TypeFromName(name, -1, -1);
  if (declared.back() != ')') return std::nullopt;
  const std::string_view numbers = declared.substr(bracket + 1, declared.size() - bracket - 2);
  const size_t comma = numbers.find(',');
  const auto first = ReadNumber(Trim(numbers.substr(0, comma)));
  const auto second =
      comma == std::string_view::npos ? std::optional(-1) : ReadNumber(Trim(numbers.substr(comma + 1)));
  if (!first || !second) return std::nullopt;
  return TypeFromName(name, *first, *second);
}

}  // namespace tarvoni::tsql
