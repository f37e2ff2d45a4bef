#include <benchmark/benchmark.h>

#include <filesystem>

#include "bench/bench_database.h"
#include "platform/sqlite/file_catalogue.h"
#include "platform/sqlite/plan_cache.h"
#include "platform/sqlite/public/sqlite_database.h"
#include "platform/tsql/public/compile.h"
#include "platform/tsql/public/parser.h"
#include "tests/schema/statement_blocks.h"
#include "tests/support/sql.h"

// From text to plan, and from nothing to an open database.
namespace tarvoni::bench {
namespace {

constexpr const char* kSimple = "SELECT NAME FROM KOSTENSTELLE WHERE ID = 17";

tsql::Plan CompileText(const std::string& text, const tsql::Catalogue& catalogue) {
  const tsql::LexedBatch lexed = tsql::Lex(text);
  auto batch = std::make_shared<const tsql::Batch>(tsql::Parse(lexed));
  return tsql::Compile(lexed, std::move(batch), catalogue, {});
}

void MeasureCold(benchmark::State& state, const std::string& text) {
  sqlite::FileCatalogue catalogue(HandWritten());
  CompileText(text, catalogue);  // the tables it names are known
  for (auto _ : state) benchmark::DoNotOptimize(CompileText(text, catalogue));
}

void ColdSimple(benchmark::State& state) {
  MeasureCold(state, kSimple);
}

void ColdLongest(benchmark::State& state) {
  std::string longest;
  for (const StatementBlock& block : ReadStatementFolder(TARVONI_STATEMENTS))
    if (block.text.size() > longest.size()) longest = block.text;
  state.SetLabel(std::to_string(longest.size()) + " Zeichen");
  MeasureCold(state, longest);
}

void KnownSimple(benchmark::State& state) {
  sqlite::FileCatalogue catalogue(HandWritten());
  sqlite::IdentityValues identities(HandWritten());
  sqlite::PlanCache plans(512);
  const tsql::LexedBatch first = tsql::Lex(kSimple);
  plans.Add(first, "",
            std::make_shared<sqlite::PreparedPlan>(HandWritten(), identities, CompileText(kSimple, catalogue),
                                                   first));
  for (auto _ : state) {
    const tsql::LexedBatch lexed = tsql::Lex("SELECT NAME FROM KOSTENSTELLE WHERE ID = 4");
    benchmark::DoNotOptimize(plans.Find(lexed, ""));
  }
}

std::string AllTables() {
  std::string text;
  sqlite::Statement tables(HandWritten(),
                           "SELECT name FROM sqlite_schema WHERE type = 'table' AND name NOT LIKE 'sqlite%' "
                           "AND name NOT LIKE 'tarvoni%'");
  while (tables.Step()) text += "SELECT TOP 0 * FROM [" + tables.Text(0) + "]\n";
  return text;
}

// A copy, since a file that is open already would be shared and not opened.
void OpenDatabaseAndCatalogue(benchmark::State& state) {
  const std::string copy = DatabaseFile() + ".opened";
  sqlite::Backup(Database(), copy);
  const std::string all_tables = AllTables();
  for (auto _ : state) {
    const auto connection = sqlite::OpenDatabase(copy);
    benchmark::DoNotOptimize(connection->Open(Sql(all_tables)));
  }
  std::filesystem::remove(copy);
}

BENCHMARK(ColdSimple)->Name("Text zu Plan, einfach, kalt");
BENCHMARK(KnownSimple)->Name("Text zu Plan, einfach, Form bekannt");
BENCHMARK(ColdLongest)->Name("Text zu Plan, längste Anweisung, kalt");
BENCHMARK(OpenDatabaseAndCatalogue)->Name("Datenbank öffnen mit Katalog")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvoni::bench
