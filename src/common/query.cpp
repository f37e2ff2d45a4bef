#include "src/common/query.h"

#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"

namespace tarvoni {

Connection& DbOf(const TvnVar_Dll& context) {
  if (!context.dbAdo) throw CallError("Es ist keine Datenbank geöffnet.");
  return *context.dbAdo;
}

Value ReadValue(Connection& connection, const SqlText& statement) {
  const Recordset rows = connection.Open(statement);
  return rows.EndOfFile() ? Value(Null{}) : rows.Fields()[0].Value();
}

std::int32_t ReadNumber(Connection& connection, const SqlText& statement) {
  return ToLong(ReadValue(connection, statement));
}

std::string ReadText(Connection& connection, const SqlText& statement) {
  return ToText(ReadValue(connection, statement));
}

bool HasRow(Connection& connection, const SqlText& statement) {
  return !connection.Open(statement).EndOfFile();
}

RowGoneError::RowGoneError()
    : std::runtime_error(
          "Diesen Eintrag gibt es nicht mehr; er wurde vermutlich an einem anderen Arbeitsplatz gelöscht.") {}

void ExecuteOnRow(Connection& connection, const SqlText& statement) {
  if (connection.Execute(statement) == 0) throw RowGoneError();
}

void TryExecute(Connection& connection, const SqlText& statement) {
  try {
    connection.Execute(statement);
  } catch (const DatabaseError&) {
  }
}

std::int32_t ToLong(const Value& value) {
  return ToInt32(CurrentSuite().Values().ToNumber(value));
}

bool ToFlag(const Value& value) {
  return CurrentSuite().Values().ToNumber(value) != 0;
}

std::string ToText(const Value& value) {
  return CurrentSuite().Values().ToText(value, true, false);
}

}  // namespace tarvoni
