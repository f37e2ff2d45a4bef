#include <benchmark/benchmark.h>

#include "bench/shown_screen.h"
#include "src/context/data/statement.h"
#include "src/context/rules/wage_journal.h"
#include "src/wage/f_bruttolohn.h"

// The gross wage journal on the large enterprise, without windows: the Screen with 200 lines against its bare statement.
namespace tarvoni::bench {
namespace {

constexpr std::int32_t kHeader = -1;

// A journal of a worker of the demo with 200 of its lines, for the length of a scope.
class LongJournal {
 public:
  LongJournal() {
    Database().Execute(R"(
SET IDENTITY_INSERT STUNDENBUCH_HEADER ON
INSERT INTO STUNDENBUCH_HEADER (ID, ID_PERSONAL, JAHR, MONAT, FWJ)
SELECT TOP 1 -1, ID_PERSONAL, 2024, 3, '2024' FROM STUNDENBUCH_HEADER ORDER BY ID
SET IDENTITY_INSERT STUNDENBUCH_HEADER OFF
INSERT INTO STUNDENBUCH (ID_STUNDENBUCH, ID_LOHNARTEN, TAG, STUNDEN, VERLOHNUNG, AUSZAHLUNGSMONAT)
SELECT TOP 200 -1, ID_LOHNARTEN, TAG, STUNDEN, '20240301', '20240301' FROM STUNDENBUCH)");
  }
  LongJournal(const LongJournal&) = delete;
  LongJournal& operator=(const LongJournal&) = delete;
  ~LongJournal() {
    Database().Execute(R"(
DELETE FROM STUNDENBUCH WHERE ID_STUNDENBUCH = -1
DELETE FROM STUNDENBUCH_HEADER WHERE ID = -1)");
  }
};

void Open(benchmark::State& state) {
  const LongJournal journal;
  Shown shown;
  for (auto _ : state) {
    shown.Next();
    F_Bruttolohn screen;
    screen.Run(shown.context, kHeader);
  }
  state.SetLabel("200 Zeilen");
}

void Bare(benchmark::State& state) {
  const LongJournal journal;
  const SqlText text = LinesOfJournal(kHeader);
  for (auto _ : state) benchmark::DoNotOptimize(Database().Open(text).RecordCount());
  state.SetLabel("200 Zeilen, die bloße Anweisung");
}

BENCHMARK(Open)->Name("c_Lohn.BruttoLohn/T-SQL")->Unit(benchmark::kMillisecond);
BENCHMARK(Bare)->Name("c_Lohn.BruttoLohn/Hand")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvoni::bench
