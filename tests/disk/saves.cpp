#include "tests/disk/saves.h"

#include <set>

#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"

namespace tarvoni::disktest {
namespace {

constexpr int kRowsOfASave = 3;

std::set<long long> Keys(Connection& connection, const SqlText& statement) {
  std::set<long long> keys;
  for (Recordset rows = connection.Open(statement); !rows.EndOfFile(); rows.MoveNext())
    keys.insert(std::get<std::int64_t>(rows.Fields()[0].Value()));
  return keys;
}

void FindFaults(Connection& connection, const std::vector<long long>& acknowledged,
                std::vector<std::string>& faults) {
  const auto heads = Keys(connection, "SELECT ID FROM KOPF");
  for (const long long key : acknowledged) {
    if (!heads.contains(key))
      faults.push_back("save " + std::to_string(key) + " was acknowledged and is gone");
  }
  const auto halved = Keys(connection, Compose(R"(
SELECT K.ID
FROM KOPF K
WHERE (SELECT COUNT(*) FROM ZEILE Z WHERE Z.KOPF = K.ID) <> {}
UNION
SELECT KOPF
FROM ZEILE
WHERE KOPF NOT IN (SELECT ID FROM KOPF))",
                                               Id(kRowsOfASave)));
  for (const long long key : halved) faults.push_back("save " + std::to_string(key) + " is halved");
  for (const long long number :
       Keys(connection, "SELECT NUMMER FROM KOPF GROUP BY NUMMER HAVING COUNT(*) > 1"))
    faults.push_back("number " + std::to_string(number) + " is there twice");
}

}  // namespace

void MakeSavesFile(const std::string& path) {
  sqlite::OpenDatabase(path, {.create = true})->Execute(R"(
CREATE TABLE KOPF (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, NUMMER INT NOT NULL)
CREATE TABLE ZEILE (ID INT IDENTITY(1,1) NOT NULL PRIMARY KEY, KOPF INT NOT NULL, T NVARCHAR(900)))");
}

long long Save(Connection& connection) {
  HandlerScope handler(connection);
  const Recordset made = connection.Open(R"(
SET NOCOUNT ON
INSERT INTO KOPF (NUMMER) SELECT ISNULL((SELECT MAX(NUMMER) FROM KOPF),0)+1
SELECT IDENT_CURRENT('KOPF') AS ID)");
  const std::string key = ToDisplayText(made.Fields()[0].Value());
  const std::string text(800, 'x');
  connection.Execute(Compose("INSERT INTO ZEILE (KOPF,T) VALUES ({},'{}')", Id(key), Quoted(text)));
  // More than one row in a statement: SQLite takes it back alone when the disk is full.
  connection.Execute(Compose("INSERT INTO ZEILE (KOPF,T) VALUES ({},'{}'),({},'{}')", Id(key), Quoted(text),
                             Id(key), Quoted(text)));
  handler.Finish();
  return std::stoll(key);
}

std::vector<long long> SaveUntilItFails(const std::string& path, int saves) {
  std::vector<long long> acknowledged;
  try {
    const auto connection = sqlite::OpenDatabase(path);
    for (int i = 0; i < saves; ++i) acknowledged.push_back(Save(*connection));
  } catch (const DatabaseError&) {  // it is the disk's turn
  }
  return acknowledged;
}

std::vector<std::string> FaultsOf(const std::string& path, const std::vector<long long>& acknowledged) {
  std::vector<std::string> faults;
  try {
    const auto connection = sqlite::OpenDatabase(path);
    faults = sqlite::CheckIntegrity(*connection);
    FindFaults(*connection, acknowledged, faults);
  } catch (const std::exception& error) {
    faults.emplace_back(error.what());
  }
  return faults;
}

}  // namespace tarvoni::disktest
