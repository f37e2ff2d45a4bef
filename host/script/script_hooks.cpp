#include "host/script/script_hooks.h"

#include <fmt/format.h>

#include <charconv>
#include <functional>

#include "host/demo/demo.h"
#include "host/methods.h"
#include "host/new_database.h"
#include "host/open_database.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/context/values/call_error.h"
#include "src/entry/screen_runs.h"
#include "src/schema/schema.h"

namespace tarvoni::host {
namespace {

int ScaleOf(const std::string& text) {
  int scale = 1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
  const bool whole = error == std::errc() && end == text.data() + text.size() && scale >= 1;
  if (!text.empty() && !whole) throw CallError("\"" + text + "\" ist keine Größe des Musterbetriebs.");
  return scale;
}

// A sum over the rows, since a server gives them in any order.
std::string ContentsOf(Connection& connection, const std::string& table) {
  const auto rows = connection.Open(Compose("SELECT * FROM {}", Name(table))).GetRows();
  std::size_t sum = 0;
  for (const auto& row : rows) {
    std::string text;
    for (const Value& value : row) text += ToDisplayText(value) + '\x1f';
    sum += std::hash<std::string>()(text);
  }
  return fmt::format("{} Zeilen, Summe {:x}", rows.size(), sum);
}

ScriptHooks::Values ContentsOfTables(Connection& connection) {
  ScriptHooks::Values contents;
  for (const std::string& table : SchemaTables()) contents[table] = ContentsOf(connection, table);
  return contents;
}

// Only what is in a file can be copied.
std::shared_ptr<Connection> Copy(Connection& connection) {
  return IsServer(connection.ConnectionString()) ? nullptr : sqlite::CopyToMemory(connection);
}

// On a server each batch counts by itself: there is no commit that a handler's end could fail in.
std::function<bool()> FailCommit(Connection& connection, int nth) {
  return IsServer(connection.ConnectionString()) ? std::function<bool()>()
                                                 : sqlite::FailCommit(connection, nth);
}

}  // namespace

ScriptHooks MakeScriptHooks() {
  return {.demo =
              [](Connection& connection, const std::string& scale) {
                demo::BuildDemo(connection, {.scale = ScaleOf(scale), .progress = {}});
              },
          .call = [](const std::string& method, const ScriptHooks::Values& arguments,
                     TvnVar_Dll& context) { return CallMethod(MethodNamed(method), arguments, context); },
          .run = RunScreen,
          .contents = ContentsOfTables,
          .schema =
              [](Connection& connection) {
                HandlerScope together(connection);
                MakeTables(connection);
                together.Finish();
              },
          .copy = Copy,
          .fail_commit = FailCommit,
          .fixtures = std::make_shared<std::map<std::string, std::shared_ptr<Connection>>>()};
}

}  // namespace tarvoni::host
