#include "src/common/column_writer.h"

#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

bool ReadsZero(std::string_view typed) {
  const auto number = ParseNumber(typed, CurrentLocale());
  return number && number->Unscaled() == 0;
}

}  // namespace

ColumnWriter::ColumnWriter(const TvnVar_Dll& context, std::string table, std::int32_t key,
                           std::string key_column)
    : context_(context), table_(std::move(table)), key_(key), key_column_(std::move(key_column)) {}

void ColumnWriter::Number(std::string_view column, std::string_view typed, Zero zero) const {
  const bool null = zero == Zero::kIsNull && ReadsZero(typed);
  Write(column, NumberOrNull(null ? std::string_view() : typed));
}

void ColumnWriter::Number(std::string_view column, std::int32_t number, Zero zero) const {
  Write(column, zero == Zero::kIsNull ? IdOrNull(number) : Id(number));
}

void ColumnWriter::Text(std::string_view column, std::string_view text) const {
  Write(column, TextOrNull(text));
}

void ColumnWriter::Date(std::string_view column, const std::optional<DateTime>& date) const {
  Write(column, DateOrNull(date, context_.strSqlDateFormat));
}

void ColumnWriter::Flag(std::string_view column, bool flag) const {
  Write(column, tarvoni::Flag(flag));
}

void ColumnWriter::Write(std::string_view column, const SqlText& value) const {
  ExecuteOnRow(DbOf(context_), Compose("UPDATE {} SET {} = {} WHERE {} = {}", Name(table_), Name(column),
                                       value, Name(key_column_), Id(key_)));
}

}  // namespace tarvoni
