#include "platform/odbc/row_reader.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>
#include <limits>

#include "platform/odbc/column_type.h"
#include "platform/odbc/driver_text.h"

namespace tarvoni::odbc {
namespace {

constexpr SQLSMALLINT kNameUnits = 512;
constexpr std::size_t kPieceUnits = std::size_t{16} * 1024;

DateTime ToDateTime(const SQL_TIMESTAMP_STRUCT& stamp) {
  constexpr unsigned kNanosecondsPerMillisecond = 1'000'000;
  const unsigned rounded = (stamp.fraction + kNanosecondsPerMillisecond / 2) / kNanosecondsPerMillisecond;
  const int seconds = (stamp.hour * 60 + stamp.minute) * 60 + stamp.second;
  return {stamp.year, stamp.month, stamp.day, seconds * 1000 + static_cast<int>(std::min(rounded, 999U))};
}

template <typename T>
Value ToValue(const std::optional<T>& read) {
  return read ? Value(*read) : Value(Null{});
}

}  // namespace

RowReader::RowReader(const Respondent& statement, SQLSMALLINT columns)
    : statement_(statement), count_(columns), piece_(kPieceUnits) {}

bool RowReader::Check(SQLRETURN result) {
  if (!failure_) failure_ = FailureOf(result, statement_);
  return SQL_SUCCEEDED(result);
}

RowSet RowReader::Read() {
  RowSet rows;
  for (SQLSMALLINT i = 1; i <= count_; ++i) rows.columns.push_back(Describe(static_cast<SQLUSMALLINT>(i)));
  while (!failure_ && Check(SQLFetch(statement_.handle))) {
    SQLUSMALLINT number = 0;
    for (const Column& column : rows.columns) rows.cells.push_back(Cell(++number, column.type));
  }
  return rows;
}

Column RowReader::Describe(SQLUSMALLINT number) {
  SQLSMALLINT type = 0, digits = 0, nullable = 0;
  SQLULEN size = 0;
  const SQLHANDLE statement = statement_.handle;
  TextBuffer name(statement_.wide_text, kNameUnits);
  Check(name.Fill(
      [&](SQLCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
        return SQLDescribeCol(statement, number, text, room, length, &type, &size, &digits, &nullable);
      },
      [&](SQLWCHAR* text, SQLSMALLINT room, SQLSMALLINT* length) {
        return SQLDescribeColW(statement, number, text, room, length, &type, &size, &digits, &nullable);
      }));
  std::array<char, 128> type_name{};
  SQLColAttribute(statement, number, SQL_DESC_TYPE_NAME, type_name.data(),
                  static_cast<SQLSMALLINT>(type_name.size()), nullptr, nullptr);
  const FieldType field = FieldTypeOf(type, type_name.data());
  const auto limit = static_cast<SQLULEN>(std::numeric_limits<int>::max());
  return {name.Text(), field, IsText(field) ? static_cast<int>(std::min(size, limit)) : 0};
}

Value RowReader::Cell(SQLUSMALLINT number, FieldType type) {
  switch (type) {
    case FieldType::kBoolean: {
      const auto flag = Fixed<unsigned char>(number, SQL_C_BIT);
      return flag ? Value(*flag != 0) : Value(Null{});
    }
    case FieldType::kUnsignedTinyInt:
    case FieldType::kSmallInt:
    case FieldType::kInteger:
    case FieldType::kBigInt:
      return ToValue(Fixed<std::int64_t>(number, SQL_C_SBIGINT));
    case FieldType::kSingle:
    case FieldType::kDouble:
      return ToValue(Fixed<double>(number, SQL_C_DOUBLE));
    case FieldType::kCurrency:
    case FieldType::kNumeric:
      return Number(number);
    case FieldType::kDbTimeStamp:
      return Date(number);
    default:
      return Text(number);
  }
}

template <typename T>
std::optional<T> RowReader::Fixed(SQLUSMALLINT number, SQLSMALLINT c_type) {
  T value{};
  SQLLEN length = SQL_NULL_DATA;
  Check(SQLGetData(statement_.handle, number, c_type, &value, sizeof value, &length));
  return length == SQL_NULL_DATA ? std::nullopt : std::optional(value);
}

// Piece after piece until the driver has nothing more; each piece ends with a zero.
template <typename Unit>
std::optional<std::basic_string<Unit>> RowReader::Pieces(SQLUSMALLINT number, SQLSMALLINT c_type) {
  std::basic_string<Unit> text;
  const auto room = static_cast<SQLLEN>(piece_.size() * sizeof(char16_t));
  for (;;) {
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(statement_.handle, number, c_type, piece_.data(), room, &length);
    if (result == SQL_NO_DATA) return text;
    if (length == SQL_NULL_DATA) return std::nullopt;
    if (!SQL_SUCCEEDED(result)) return Check(result), std::nullopt;
    const bool cut = length == SQL_NO_TOTAL || length >= room;
    const SQLLEN units = (cut ? room : length) / static_cast<SQLLEN>(sizeof(Unit)) - cut;
    text.append(reinterpret_cast<const Unit*>(piece_.data()), static_cast<std::size_t>(units));
    if (!cut) return text;
  }
}

Value RowReader::Text(SQLUSMALLINT number) {
  if (!statement_.wide_text) return ToValue(Pieces<char>(number, SQL_C_CHAR));
  const auto text = Pieces<char16_t>(number, SQL_C_WCHAR);
  return text ? Value(FromWide(*text)) : Value(Null{});
}

// Decimals come as text, which alone is exact; what is none stays as the driver gives it.
Value RowReader::Number(SQLUSMALLINT number) {
  const auto text = Pieces<char>(number, SQL_C_CHAR);
  if (!text) return Null{};
  if (const auto decimal = Decimal::Parse(*text)) return *decimal;
  return *text;
}

Value RowReader::Date(SQLUSMALLINT number) {
  const auto stamp = Fixed<SQL_TIMESTAMP_STRUCT>(number, SQL_C_TYPE_TIMESTAMP);
  return stamp ? Value(ToDateTime(*stamp)) : Value(Null{});
}

}  // namespace tarvoni::odbc
