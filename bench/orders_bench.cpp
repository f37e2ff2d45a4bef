#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench/shown_screen.h"
#include "src/common/column_writer.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/entry/neighbours.h"
#include "src/entry/screens.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// A work order of 500 positions on the large enterprise, without windows.
namespace tarvoni::bench {
namespace {

constexpr std::int32_t kOrder = -1;

// The order exists while a measurement runs: its rows are those of others.
class LargeOrder {
 public:
  LargeOrder() {
    Database().Execute(Compose(R"(
SET IDENTITY_INSERT ARBEITSAUFTRAG_KOPF ON
INSERT INTO ARBEITSAUFTRAG_KOPF (ID, NAME, PERSONAL_ID, PRODUKT_ID)
SELECT TOP 1 {}, 'Messung', PERSONAL_ID, PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = {}
SET IDENTITY_INSERT ARBEITSAUFTRAG_KOPF OFF
INSERT INTO ARBEITSAUFTRAG (ORDERS, ARBEITSAUFTRAG_KOPF_ID, DATUM_NR, KOSTENSTELLE_ID, LEISTUNGSART_ID, VERFAHREN_ID,
  KOSTENART_ID, WO_ID, FLAECHE, MENGE, KOSTEN, GESAMT, EURO)
SELECT TOP 500 1, {}, DATUM_NR, KOSTENSTELLE_ID, LEISTUNGSART_ID, VERFAHREN_ID,
  KOSTENART_ID, WO_ID, FLAECHE, MENGE, KOSTEN, GESAMT, EURO
FROM ARBEITSAUFTRAG WHERE KOSTENART_ID IS NOT NULL AND QUELLE IS NULL)",
                               Id(kOrder), Id(TheKeys().client), Id(kOrder)));
  }
  LargeOrder(const LargeOrder&) = delete;
  LargeOrder& operator=(const LargeOrder&) = delete;
  ~LargeOrder() {
    Database().Execute(Compose(R"(
DELETE FROM ARBEITSAUFTRAG WHERE ARBEITSAUFTRAG_KOPF_ID = {}
DELETE FROM ARBEITSAUFTRAG_KOPF WHERE ID = {})",
                               Id(kOrder), Id(kOrder)));
  }
};

void Show(Shown& shown) {
  F_Arbeitsauftrag screen;
  screen.Run(shown.context, std::to_string(TheKeys().client), kOrder, false);
}

void Open(benchmark::State& state) {
  const LargeOrder order;
  Shown shown;
  AnswerNeighbours();
  for (auto _ : state) {
    shown.Next();
    Show(shown);
  }
  state.SetLabel("500 Positionen");
}

void Bare(benchmark::State& state) {
  const LargeOrder order;
  const SqlText text = work_order_sql::OrderPositions(kOrder);
  for (auto _ : state) benchmark::DoNotOptimize(Database().Open(text).RecordCount());
  state.SetLabel("die bloße Anweisung der Liste");
}

// From row to row within one Screen, round and round.
void Move(benchmark::State& state) {
  const LargeOrder order;
  Shown shown;
  AnswerNeighbours();
  shown.toolkit.script = [&state](UserActions& user) {
    auto& grid = dynamic_cast<DataGrid&>(*user.Screen().Find("DataGrid1"));
    int row = 0;
    for (auto _ : state) user.MoveRow(grid, ++row % grid.RowCount());
    user.Close();
  };
  Show(shown);
}

// The 34 updates of a position and the seven of its head in one handler.
void Save(benchmark::State& state) {
  const LargeOrder order;
  const Shown shown;
  const auto newest = Database().Open("SELECT MAX(ID) FROM ARBEITSAUFTRAG").GetRows().at(0).at(0);
  const ColumnWriter position(shown.context, "ARBEITSAUFTRAG",
                              static_cast<std::int32_t>(std::get<std::int64_t>(newest)));
  const ColumnWriter head(shown.context, "ARBEITSAUFTRAG_KOPF", kOrder);
  int text = 0;
  for (auto _ : state) {
    HandlerScope handler(Database());
    for (int i = 0; i < 34; ++i) position.Text("T_FREI" + std::to_string(i % 5 + 1), std::to_string(++text));
    for (int i = 0; i < 7; ++i) head.Text("BESCHREIBUNG", std::to_string(++text));
    handler.Finish();
  }
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(Open)->Name("F_Arbeitsauftrag öffnen")->Unit(kMilliseconds);
BENCHMARK(Bare)->Name("F_Arbeitsauftrag/Liste")->Unit(kMilliseconds);
BENCHMARK(Move)->Name("F_Arbeitsauftrag, andere Zeile")->Unit(kMilliseconds);
BENCHMARK(Save)->Name("Position speichern")->UseRealTime()->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
