#include "tests/odbc/engine_server.h"

#include <algorithm>

#include "platform/odbc/session.h"
#include "platform/sqlite/connection.h"
#include "platform/sqlite/public/sqlite_database.h"

namespace tarvoni::odbc {
namespace {

using Type = TdsAnswer::Type;

constexpr std::string_view kOwnScope = "EXEC sp_executesql N'";
constexpr int kLongestText = 4000;

int ScaleOf(const Recordset& rows, std::size_t column) {
  const auto cells = rows.Clone().GetRows();
  for (const auto& row : cells)
    if (const auto* number = std::get_if<Decimal>(&row[column])) return number->Scale();
  return 0;
}

TdsAnswer::Column Described(const Recordset& rows, std::size_t index) {
  const Column& column = rows.Columns()[index];
  switch (column.type) {
    case FieldType::kBoolean:
      return {column.name, Type::kBit};
    case FieldType::kUnsignedTinyInt:
      return {column.name, Type::kTinyInt};
    case FieldType::kSmallInt:
      return {column.name, Type::kSmallInt};
    case FieldType::kInteger:
      return {column.name, Type::kInt};
    case FieldType::kBigInt:
      return {column.name, Type::kBigInt};
    case FieldType::kSingle:
      return {column.name, Type::kReal};
    case FieldType::kDouble:
      return {column.name, Type::kFloat};
    case FieldType::kCurrency:
      return {column.name, Type::kMoney};
    case FieldType::kNumeric:
      return {column.name, Type::kDecimal, Decimal::kMaxDigits, ScaleOf(rows, index)};
    case FieldType::kDbTimeStamp:
      return {column.name, Type::kDateTime};
    case FieldType::kChar:
    case FieldType::kVarChar:
      if (column.size > 0 && column.size <= kLongestText) return {column.name, Type::kVarChar, column.size};
      return {column.name, Type::kNVarCharMax};
    default:
      if (column.size > 0 && column.size <= kLongestText) return {column.name, Type::kNVarChar, column.size};
      return {column.name, Type::kNVarCharMax};
  }
}

void AddCell(TdsAnswer& answer, const Value& value) {
  if (IsNull(value)) {
    answer.Null();
  } else if (const auto* flag = std::get_if<bool>(&value)) {
    answer.Whole(*flag ? 1 : 0);
  } else if (const auto* whole = std::get_if<std::int64_t>(&value)) {
    answer.Whole(*whole);
  } else if (const auto* number = std::get_if<double>(&value)) {
    answer.Float(*number);
  } else if (const auto* decimal = std::get_if<Decimal>(&value)) {
    answer.Whole(static_cast<std::int64_t>(decimal->Unscaled()));
  } else if (const auto* date = std::get_if<DateTime>(&value)) {
    answer.DateTime(date->Days(),
                    static_cast<std::uint32_t>((std::int64_t{date->milliseconds} * 3 + 5) / 10));
  } else {
    answer.Text(std::get<std::string>(value));
  }
}

void AddRows(TdsAnswer& answer, Recordset rows) {
  std::vector<TdsAnswer::Column> columns;
  for (std::size_t i = 0; i < rows.Columns().size(); ++i) columns.push_back(Described(rows, i));
  answer.Columns(columns);
  const auto count = static_cast<long long>(rows.RecordCount());
  for (const auto& row : count == 0 ? std::vector<std::vector<Value>>() : rows.GetRows()) {
    answer.Row();
    for (const Value& value : row) AddCell(answer, value);
  }
  answer.Done(count);
}

std::string Whole(std::int64_t number) {
  return TdsAnswer().Columns({{"", Type::kInt}}).Row().Whole(number).Done(1).Bytes();
}

// What stands in a call of sp_executesql, whose statements are the batch's own for the engine.
std::string WithoutOwnScope(const std::string& batch) {
  const auto begin = batch.find(kOwnScope);
  std::string inner = batch.substr(0, begin);
  for (std::size_t i = begin + kOwnScope.size(); i + 1 < batch.size(); ++i) {
    inner += batch[i];
    if (batch[i] == '\'') ++i;
  }
  return inner;
}

}  // namespace

EngineServer::EngineServer(bool reversed)
    : database_(sqlite::OpenDatabase(":memory:", {.create = true})),
      server_(TdsServer::SessionAnswer(
          [this](const std::string& batch, int session) { return Answer(batch, session); })) {
  auto& file = dynamic_cast<sqlite::SqliteConnection&>(*database_).Shared().File();
  if (reversed) file.Execute("PRAGMA reverse_unordered_selects = ON");
}

std::string EngineServer::ConnectionText() const {
  return "odbc:Driver=" FREETDS_ODBC_DRIVER ";Server=127.0.0.1;Port=" + std::to_string(server_.Port()) +
         ";UID=sa;PWD=geheim";
}

Connection& EngineServer::SessionOf(int session) {
  auto& connection = sessions_[session];
  if (!connection) connection = sqlite::OpenDatabase(database_->ConnectionString());
  return *connection;
}

std::string EngineServer::Answer(const std::string& batch, int session) {
  const std::lock_guard lock(mutex_);
  if (batch == kSessionBatch || batch.find("sp_releaseapplock") != std::string::npos)
    return TdsAnswer().Done().Bytes();
  if (batch.find("sp_getapplock") != std::string::npos) return Whole(0);
  if (batch.find(kOwnScope) == std::string::npos) return AnswerOfEngine(SessionOf(session), batch);
  std::string answer = AnswerOfEngine(SessionOf(session), WithoutOwnScope(batch));
  SessionOf(session).Execute("SET NOCOUNT OFF");  // what it sets ends with the call
  return answer;
}

std::string EngineServer::AnswerOfEngine(Connection& connection, const std::string& batch) {
  TdsAnswer answer;
  bool any = false;
  try {
    connection.OpenAll(SqlText::Verbatim(batch), [&](const BatchPart& part) {
      any = true;
      if (part.rows.IsOpen())
        AddRows(answer, part.rows.Clone());
      else
        answer.Done(part.affected);
    });
  } catch (const DatabaseError& error) {
    any = true;
    constexpr int kSeverity = 16;
    answer.Error(error.Number(), kSeverity, error.what(), error.Line()).Done(-1, true);
  }
  if (!any) answer.Done();
  return answer.Bytes();
}

}  // namespace tarvoni::odbc
