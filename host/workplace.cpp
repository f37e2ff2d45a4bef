#include "host/workplace.h"

#include <utility>

#include "host/open_database.h"
#include "src/context/data/database_error.h"
#include "src/context/data/password.h"
#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni::host {
namespace {

std::int32_t Whole(const Value& value) {
  const auto number = NumberOf(value, CurrentLocale());
  return number ? ToInt32(number->ToDouble()) : 0;
}

std::string Shown(const Value& value) {
  return FieldText(value, "", CurrentLocale());
}

constexpr int kNoSuchTable = 208;  // a server's number

void CheckIsOurs(Connection& connection, const std::string& database) {
  try {
    connection.Open("SELECT NUMBER_VALUE FROM OPTIONEN WHERE 1 = 0");
    connection.Open("SELECT NUMMER FROM PERSONAL WHERE 1 = 0");
  } catch (const DatabaseError& error) {
    if (error.Number() != kNoSuchTable) throw;
    throw CallError("„" + WithoutPassword(database) +
                    "“ ist keine Datenbank von Tarvoni Lohn: Ihre Tabellen fehlen darin.");
  }
}

}  // namespace

void Workplace::Open(const std::string& database) {
  auto connection = OpenDatabase(database);
  CheckIsOurs(*connection, database);
  record_.dbAdo = std::move(connection);
  record_.strConString = record_.dbAdo->ConnectionString();
  name_ = WithoutPassword(database);
}

void Workplace::Close() {
  record_.dbAdo.reset();
  record_.strConString.clear();
  name_.clear();
}

Recordset Workplace::Read(const SqlText& statement) const {
  return record_.dbAdo->Open(statement);
}

std::vector<Client> Workplace::Clients() const {
  std::vector<Client> clients;
  for (Recordset rows = Read(R"(
SELECT ID_PERSONAL, NUMMER, KURZBEZEICHNUNG, NAME
FROM PERSONAL
WHERE MANDANTEN = 1 AND ISNULL(DISABLE, 0) = 0
ORDER BY NUMMER)");
       !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList& fields = rows.Fields();
    clients.push_back({.id = Whole(fields[0].Value()),
                       .number = Shown(fields[1].Value()),
                       .short_name = Shown(fields[2].Value()),
                       .name = Shown(fields[3].Value())});
  }
  return clients;
}

std::int32_t Workplace::FirstKey(const SqlText& statement) const {
  const Recordset rows = Read(statement);
  return rows.EndOfFile() ? 0 : Whole(rows.Fields()[0].Value());
}

std::int32_t Workplace::StandardClient() const {
  return FirstKey("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'STANDARDMANDANTEN'");
}

std::string Workplace::FirstText(const SqlText& statement) const {
  const Recordset rows = Read(statement);
  return rows.EndOfFile() ? std::string() : Shown(rows.Fields()[0].Value());
}

std::string Workplace::StandardForestYear() const {
  return FirstText("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'STANDARD_FWJ'");
}

std::string Workplace::LocalCurrency() const {
  return FirstText("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = 'LANDESWAEHRUNG'");
}

std::vector<Choice> Workplace::Choices(const SqlText& statement) const {
  std::vector<Choice> choices;
  for (Recordset rows = Read(statement); !rows.EndOfFile(); rows.MoveNext()) {
    Choice& choice = choices.emplace_back(Choice{.id = Whole(rows.Fields()[0].Value()), .text = {}});
    for (int i = 1; i < rows.Fields().Count(); ++i) {
      const std::string text = Shown(rows.Fields()[i].Value());
      if (!text.empty()) choice.text += (choice.text.empty() ? "" : " · ") + text;
    }
  }
  return choices;
}

}  // namespace tarvoni::host
