#include <benchmark/benchmark.h>

#include "bench/shown_screen.h"
#include "src/context/data/statement.h"
#include "src/piecework/f_zeilohn.h"
#include "src/piecework/f_zeilohn_sql.h"

// The Screen of time wage on the large enterprise, without a window: it is shown and closed at once.
namespace tarvoni::bench {
namespace {

constexpr std::int32_t kOrder = -1;

// A copy of an order of the demo, with 50 lines that each have a natural execution, for the length of a scope. Its work
// type takes timber, so that the free lists are looked for among all logs.
class LongOrder {
 public:
  LongOrder() {
    Database().Execute(Compose(R"(
SET IDENTITY_INSERT ARA_KOPF ON
INSERT INTO ARA_KOPF (ID, NAME) VALUES (-1, 'Messung')
SET IDENTITY_INSERT ARA_KOPF OFF
INSERT INTO ARBEITSAUFTRAG (ID_ARA_KOPF, ARBEITSAUFTRAG_KOPF_ID, LEISTUNG, LEISTUNGSART_ID, KOSTENSTELLE_ID, WO_ID)
SELECT -1, ARBEITSAUFTRAG_KOPF_ID, LEISTUNG, LEISTUNGSART_ID, KOSTENSTELLE_ID, WO_ID
FROM ARBEITSAUFTRAG
WHERE ID_ARA_KOPF = {}
INSERT INTO ARA_LOHN (ID_ARA_KOPF, ID_HOLZART, FLACHE, MENGEKLR)
SELECT TOP 50 -1, ID_HOLZART, FLACHE, MENGEKLR FROM ARA_LOHN ORDER BY ID
INSERT INTO NATURALVOLLZUG_KLR (ID_ARA_LOHN, ID_VM) SELECT ID, 1 FROM ARA_LOHN WHERE ID_ARA_KOPF = -1)",
                               Id(TheKeys().log_order)));
  }
  LongOrder(const LongOrder&) = delete;
  LongOrder& operator=(const LongOrder&) = delete;
  ~LongOrder() {
    Database().Execute(R"(
DELETE FROM NATURALVOLLZUG_KLR WHERE ID_ARA_LOHN IN (SELECT ID FROM ARA_LOHN WHERE ID_ARA_KOPF = -1)
DELETE FROM ARA_LOHN WHERE ID_ARA_KOPF = -1
DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_KOPF = -1
DELETE FROM ARA_KOPF WHERE ID = -1)");
  }
};

void Open(benchmark::State& state) {
  const LongOrder order;
  Shown shown;
  for (auto _ : state) {
    shown.Next();
    F_Zeilohn screen;
    screen.Run(shown.context, static_cast<std::int32_t>(TheKeys().client), kOrder);
  }
  state.SetLabel("50 Zeilen");
}

void Bare(benchmark::State& state) {
  const LongOrder order;
  const SqlText text = zeilohn_sql::LinesOfOrder(kOrder);
  for (auto _ : state) benchmark::DoNotOptimize(Database().Open(text).RecordCount());
  state.SetLabel("50 Zeilen, die bloße Anweisung");
}

BENCHMARK(Open)->Name("F_Zeilohn öffnen/T-SQL")->Unit(benchmark::kMillisecond);
BENCHMARK(Bare)->Name("F_Zeilohn öffnen/Hand")->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvoni::bench
