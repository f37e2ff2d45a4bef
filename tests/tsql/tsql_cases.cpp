#include <filesystem>
#include <fstream>
#include <iostream>
#include <memory>
#include <regex>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/odbc/public/odbc_database.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "tests/support/sql.h"

// tsql_cases [--database URL] FILE…: runs conformance cases (tests/tsql/cases), each file on one connection to an
// empty database: a new one in memory unless told. At a file's end the tables it made are dropped again.
namespace tarvoni {
namespace {

struct Case {
  std::string name;
  int line = 0;
  std::string batch;
  std::string expected;  // what follows "--- ", with the rows in lines of their own
};

void AppendLine(std::string& text, const std::string& line) {
  if (!text.empty()) text += '\n';
  text += line;
}

std::vector<Case> ReadCases(const std::string& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path + ": cannot be read");
  enum class Place { kBetween, kBatch, kExpectation } place = Place::kBetween;
  std::vector<Case> cases;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with("=== ")) {
      cases.push_back({line.substr(4), number, "", ""});
      place = Place::kBatch;
    } else if (line.starts_with("--- ")) {
      cases.back().expected = line.substr(4);
      place = Place::kExpectation;
    } else if (place == Place::kBatch) {
      AppendLine(cases.back().batch, line);
    } else if (line.empty()) {
      place = Place::kBetween;
    } else if (place == Place::kExpectation) {
      AppendLine(cases.back().expected, line);
    }
  }
  return cases;
}

std::string Joined(Recordset& rows) {
  std::string text = "rows\n";
  const int count = rows.Fields().Count();
  for (int i = 0; i < count; ++i) {
    const std::string& name = rows.Fields()[i].Name();
    text += (i > 0 ? " | " : "") + (name.empty() ? "(none)" : name);
  }
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    for (int i = 0; i < count; ++i) text += (i > 0 ? " | " : "\n") + ToDisplayText(rows.Fields()[i].Value());
  }
  return text;
}

// What the batch gives, in the words of the expectation.
std::string Outcome(Connection& connection, const Case& test) {
  try {
    if (test.expected.starts_with("count"))
      return "count " + std::to_string(connection.Execute(Sql(test.batch)));
    Recordset rows = connection.Open(Sql(test.batch));
    return rows.IsOpen() ? Joined(rows) : "ok";
  } catch (const DatabaseError& error) {
    const std::string found = "error " + std::to_string(error.Number());
    return found == test.expected ? found : found + ": " + error.what();
  }
}

std::shared_ptr<Connection> OpenEmpty(const std::string& database) {
  if (database.starts_with("odbc:")) return odbc::OpenOdbc(database);
  return sqlite::OpenDatabase(database, {.create = true});
}

// The names behind CREATE TABLE, the last one first: it may refer to those before it.
std::vector<std::string> CreatedTables(const std::vector<Case>& cases) {
  static const std::regex kCreate(R"(CREATE TABLE (\[[^\]]+\]|[^\s(#]+))");
  std::vector<std::string> names;
  for (const Case& test : cases) {
    const std::sregex_iterator end;
    for (std::sregex_iterator found(test.batch.begin(), test.batch.end(), kCreate); found != end; ++found) {
      names.insert(names.begin(), found->str(1));
    }
  }
  return names;
}

void DropTables(Connection& connection, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    try {
      connection.Execute(Sql("DROP TABLE " + name));
    } catch (const DatabaseError&) {
      // A case was about its not being there.
    }
  }
}

std::string OneLine(std::string text) {
  for (auto at = text.find('\n'); at != std::string::npos; at = text.find('\n', at))
    text.replace(at, 1, " / ");
  return text;
}

struct Tally {
  int passed = 0;
  int failed = 0;
};

void RunFile(const std::string& path, const std::string& database, Tally& tally) {
  const auto connection = OpenEmpty(database);
  const auto cases = ReadCases(path);
  for (const Case& test : cases) {
    const std::string found = Outcome(*connection, test);
    if (found == test.expected) {
      ++tally.passed;
      continue;
    }
    ++tally.failed;
    std::cout << path << ':' << test.line << ": " << test.name << ": expected " << OneLine(test.expected)
              << ", found " << OneLine(found) << '\n';
  }
  DropTables(*connection, CreatedTables(cases));
}

int Main(const std::vector<std::string>& arguments) {
  std::string database = ":memory:";
  Tally tally;
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (arguments[i] == "--database" && i + 1 < arguments.size()) {
      database = arguments[++i];
    } else {
      RunFile(arguments[i], database, tally);
    }
  }
  std::cout << tally.passed << " passed, " << tally.failed << " failed\n";
  return tally.failed == 0 && tally.passed > 0 ? 0 : 1;
}

}  // namespace
}  // namespace tarvoni

int main(int count, char** arguments) {
  try {
    return tarvoni::Main({arguments + 1, arguments + count});
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
