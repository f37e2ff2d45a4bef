#include <benchmark/benchmark.h>

#include "bench/bench_database.h"
#include "bench/hand_written.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "tests/support/sql.h"

// Pairs: the system's own T-SQL text through the connection, and hand-written SQLite code that does the same work
// with prepared statements on the same file. The names tell main.cpp which belong together.
namespace tarvoni::bench {
namespace {

SqlText ListText() {
  std::string text = StatementText("20_wage_orders.sql", "the wage orders of a client's year");
  const std::string client = std::to_string(TheKeys().client);
  text = Replaced(std::move(text), "PERSONAL_ID = 1", "PERSONAL_ID = " + client);
  return Sql(Replaced(std::move(text), "1 AS PERSONAL_ID", client + " AS PERSONAL_ID"));
}

void ListOurs(benchmark::State& state) {
  const SqlText text = ListText();
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Zeilen");
}

void ListByHand(benchmark::State& state) {
  sqlite::Statement statement(HandWritten(), kWageOrderList, sqlite::Statement::Use::kOften);
  std::size_t rows = 0;
  for (auto _ : state) {
    statement.BindText(1, TheKeys().year);
    statement.BindInteger(2, TheKeys().client);
    rows = ReadAll(statement, kWageOrderListTypes).RowCount();
  }
  state.SetLabel(std::to_string(rows) + " Zeilen");
}

SqlText PricingText() {
  return Sql(Replaced(StatementText("31_est_piecework.sql", "the logs of a wage order with tariff and wage"),
                      "ARA_KOPF.ID = 2", "ARA_KOPF.ID = " + std::to_string(TheKeys().log_order)));
}

void PricingOurs(benchmark::State& state) {
  const SqlText text = PricingText();
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Zeilen");
}

void PricingByHand(benchmark::State& state) {
  sqlite::Statement statement(HandWritten(), kPricing, sqlite::Statement::Use::kOften);
  std::size_t rows = 0;
  for (auto _ : state) {
    statement.BindInteger(1, TheKeys().log_order);
    rows = ReadAll(statement, kPricingTypes).RowCount();
  }
  state.SetLabel(std::to_string(rows) + " Zeilen");
}

// Half of the large order's lists go to another order meanwhile: the time must halve with the logs.
void PricingHalf(benchmark::State& state) {
  const SqlText order = Id(TheKeys().log_order);
  const SqlText text = PricingText();
  Database().Execute(
      Compose("UPDATE LISTENKOPF SET ID_ARA_KOPF = -1 WHERE ID%2 = 0 AND ID_ARA_KOPF = {}", order));
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  Database().Execute(Compose("UPDATE LISTENKOPF SET ID_ARA_KOPF = {} WHERE ID_ARA_KOPF = -1", order));
  state.SetLabel(std::to_string(rows) + " Zeilen");
}

constexpr int kUpdates = 41;

void SaveOurs(benchmark::State& state) {
  int value = 0;
  for (auto _ : state) {
    HandlerScope handler(Database());
    for (int i = 0; i < kUpdates; ++i)
      Database().Execute(
          Compose("UPDATE ARBEITSAUFTRAG SET MENGE = {} WHERE ID = {}", Id(++value % 1000), Id(i + 1)));
    handler.Finish();
  }
}

void SaveByHand(benchmark::State& state) {
  sqlite::Statement update(HandWritten(), "UPDATE ARBEITSAUFTRAG SET MENGE = ?1 WHERE ID = ?2",
                           sqlite::Statement::Use::kOften);
  int value = 0;
  for (auto _ : state) {
    HandWritten().Execute("BEGIN IMMEDIATE");
    for (int i = 0; i < kUpdates; ++i) {
      update.BindInteger(1, ++value % 1000 * 10000);
      update.BindInteger(2, i + 1);
      update.Run();
    }
    HandWritten().Execute("COMMIT");
  }
}

void RateOurs(benchmark::State& state) {
  const SqlText text = Compose(R"(
SELECT TOP 1 ONETODATE.RATE
FROM ONETODATE
WHERE ONETODATE.TABLE_COLUMN = 'LOHNARTEN.SATZ' AND ONETODATE.TABLE_ID = {} AND ONETODATE.DATUM <= '20240315'
ORDER BY ONETODATE.DATUM DESC)",
                               Id(TheKeys().rate_owner));
  for (auto _ : state) benchmark::DoNotOptimize(Database().Open(text).GetRows().at(0).at(0));
}

void RateByHand(benchmark::State& state) {
  sqlite::Statement statement(
      HandWritten(),
      "SELECT RATE FROM ONETODATE WHERE TABLE_COLUMN = ?1 AND TABLE_ID = ?2 AND DATUM <= ?3 ORDER "
      "BY DATUM DESC LIMIT 1",
      sqlite::Statement::Use::kOften);
  for (auto _ : state) {
    statement.BindText(1, "LOHNARTEN.SATZ");
    statement.BindInteger(2, TheKeys().rate_owner);
    statement.BindText(3, "2024-03-15");
    benchmark::DoNotOptimize(ReadAll(statement, "4"));
  }
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(ListOurs)->Name("Lohnauftragsliste/T-SQL")->Unit(kMilliseconds);
BENCHMARK(ListByHand)->Name("Lohnauftragsliste/Hand")->Unit(kMilliseconds);
BENCHMARK(PricingOurs)->Name("Stücklohn bewerten/T-SQL")->Unit(kMilliseconds);
BENCHMARK(PricingByHand)->Name("Stücklohn bewerten/Hand")->Unit(kMilliseconds);
BENCHMARK(PricingHalf)->Name("Stücklohn bewerten, halbe Menge")->Unit(kMilliseconds);
BENCHMARK(SaveOurs)->Name("41 Spalten speichern/T-SQL")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SaveByHand)->Name("41 Spalten speichern/Hand")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(RateOurs)->Name("Satz eines Tages/T-SQL");
BENCHMARK(RateByHand)->Name("Satz eines Tages/Hand");

}  // namespace
}  // namespace tarvoni::bench
