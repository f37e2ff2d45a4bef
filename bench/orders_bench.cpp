#include <benchmark/benchmark.h>

#include <array>
#include <optional>
#include <string>

#include "bench/shown_screen.h"
#include "src/common/column_writer.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/entry/neighbours.h"
#include "src/entry/screens.h"
#include "src/orders/f_arbeitsauftrag_sql.h"
#include "src/orders/f_liste_select.h"

// A work order of 500 positions on the large enterprise, and a choice among 20,000 lists, without windows.
namespace tarvoni::bench {
namespace {

constexpr std::int32_t kOrder = -1;
constexpr std::int32_t kSilviculture = 2;  // PRODUKT.ID

// The order exists while a measurement runs: its rows are those of the client's other orders for silviculture.
class LargeOrder {
 public:
  LargeOrder() {
    Database().Execute(Compose(R"(
SET IDENTITY_INSERT ARBEITSAUFTRAG_KOPF ON
INSERT INTO ARBEITSAUFTRAG_KOPF (ID, NAME, PERSONAL_ID, PRODUKT_ID, ID_SONDERMERKMAL, FORSTAMT)
SELECT TOP 1 {}, 'Messung', PERSONAL_ID, PRODUKT_ID, 1, FORSTAMT
FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = {} AND PRODUKT_ID = {}
SET IDENTITY_INSERT ARBEITSAUFTRAG_KOPF OFF
INSERT INTO ARBEITSAUFTRAG (ORDERS, ARBEITSAUFTRAG_KOPF_ID, DATUM_NR, KOSTENSTELLE_ID, LEISTUNGSART_ID, VERFAHREN_ID,
  KOSTENART_ID, SONDERMERKMAL_ID, WO_ID, FLAECHE, MENGE, KOSTEN, GESAMT, EURO)
SELECT TOP 500 1, {}, DATUM_NR, KOSTENSTELLE_ID, LEISTUNGSART_ID, VERFAHREN_ID,
  KOSTENART_ID, SONDERMERKMAL_ID, WO_ID, FLAECHE, MENGE, KOSTEN, GESAMT, EURO
FROM ARBEITSAUFTRAG
WHERE QUELLE IS NULL AND BELEGE_ID IS NULL AND STORNODATUM IS NULL AND VERFAHREN_ID IS NOT NULL
  AND ARBEITSAUFTRAG_KOPF_ID IN (
    SELECT ID FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = {} AND PRODUKT_ID = {}))",
                               Id(kOrder), Id(TheKeys().client), Id(kSilviculture), Id(kOrder),
                               Id(TheKeys().client), Id(kSilviculture)));
  }
  LargeOrder(const LargeOrder&) = delete;
  LargeOrder& operator=(const LargeOrder&) = delete;
  ~LargeOrder() {
    Database().Execute(Compose(R"(
DELETE FROM ARBEITSAUFTRAG WHERE ARBEITSAUFTRAG_KOPF_ID = {}
DELETE FROM ARBEITSAUFTRAG_KOPF WHERE ID = {})",
                               Id(kOrder), Id(kOrder)));
  }
  // The newest of its positions.
  static std::int32_t Position() {
    const auto newest = Database().Open("SELECT MAX(ID) FROM ARBEITSAUFTRAG").GetRows().at(0).at(0);
    return static_cast<std::int32_t>(std::get<std::int64_t>(newest));
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
  state.SetLabel("500 Positionen, verglichen mit der bloßen Anweisung");
}

void Bare(benchmark::State& state) {
  const LargeOrder order;
  const SqlText text = work_order_sql::OrderPositions(kOrder);
  for (auto _ : state) benchmark::DoNotOptimize(Database().Open(text).RecordCount());
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

constexpr int kPositionColumns = 34, kHeadColumns = 7;
constexpr std::array kTexts = {"T_FREI1", "T_FREI2", "T_FREI3", "T_FREI4", "T_FREI5"};

// The 34 updates of a position and the seven of its head in one handler.
void Save(benchmark::State& state) {
  const LargeOrder order;
  const Shown shown;
  const ColumnWriter position(shown.context, "ARBEITSAUFTRAG", LargeOrder::Position());
  const ColumnWriter head(shown.context, "ARBEITSAUFTRAG_KOPF", kOrder);
  int text = 0;
  for (auto _ : state) {
    HandlerScope handler(Database());
    for (std::size_t i = 0; i < kPositionColumns; ++i)
      position.Text(kTexts.at(i % kTexts.size()), std::to_string(++text));
    for (int i = 0; i < kHeadColumns; ++i) head.Text("BESCHREIBUNG", std::to_string(++text));
    handler.Finish();
  }
}

sqlite::Statement Update(const std::string& table, const std::string& column) {
  return {HandWritten(), "UPDATE " + table + " SET " + column + " = ?1 WHERE ID = ?2",
          sqlite::Statement::Use::kOften};
}

// The same with prepared statements in one commit.
void SaveByHand(benchmark::State& state) {
  const LargeOrder order;
  const std::int32_t position = LargeOrder::Position();
  std::vector<sqlite::Statement> columns;
  for (const char* column : kTexts) columns.push_back(Update("ARBEITSAUFTRAG", column));
  sqlite::Statement head = Update("ARBEITSAUFTRAG_KOPF", "BESCHREIBUNG");
  int text = 0;
  const auto write = [&text](sqlite::Statement& statement, std::int32_t row) {
    const std::string typed = std::to_string(++text);
    statement.BindText(1, typed);
    statement.BindInteger(2, row);
    statement.Run();
  };
  for (auto _ : state) {
    HandWritten().Execute("BEGIN IMMEDIATE");
    for (std::size_t i = 0; i < kPositionColumns; ++i) write(columns.at(i % columns.size()), position);
    for (int i = 0; i < kHeadColumns; ++i) write(head, kOrder);
    HandWritten().Execute("COMMIT");
  }
}

// What the user waits for: the whole click, with the list read anew.
void SaveOnScreen(benchmark::State& state) {
  const LargeOrder order;
  Shown shown;
  AnswerNeighbours();
  shown.toolkit.script = [&state](UserActions& user) {
    auto& edit = *user.Screen().Find("btnBearbeiten");
    auto& save = *user.Screen().Find("btnSpeichern");
    for (auto _ : state) {
      user.Click(edit);
      user.Click(save);
    }
    if (!edit.Enabled()) state.SkipWithError("Die Position wurde nicht gespeichert.");
    user.Close();
  };
  Show(shown);
}

// Two lists are filled, one item moves, and OK makes the two texts.
void SelectLists(benchmark::State& state) {
  Shown shown;
  std::size_t items = 0;
  for (auto _ : state) {
    F_ListeSelect dialog;
    dialog.strSQLAll = "SELECT TOP 20000 NAME FROM ARA_KOPF";
    shown.toolkit.script = [&items](UserActions& user) {
      auto& all = dynamic_cast<ListBox&>(*user.Screen().Find("listeAll"));
      items = static_cast<std::size_t>(all.ListCount());
      all.SetListIndex(0);
      user.Click(*user.Screen().Find("cmdAdd"));
      user.Click(*user.Screen().Find("cmdOK"));
    };
    dialog.Run(shown.context);
    benchmark::DoNotOptimize(dialog.SelectListeDelete.size());
  }
  state.SetLabel(std::to_string(items) + " Listen im Angebot");
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(Open)->Name("F_Arbeitsauftrag öffnen/T-SQL")->Unit(kMilliseconds);
BENCHMARK(Bare)->Name("F_Arbeitsauftrag öffnen/Hand")->Unit(kMilliseconds);
BENCHMARK(Move)->Name("F_Arbeitsauftrag, andere Zeile")->Unit(kMilliseconds);
BENCHMARK(Save)->Name("Position speichern/T-SQL")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SaveByHand)->Name("Position speichern/Hand")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SaveOnScreen)->Name("F_Arbeitsauftrag speichern")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SelectLists)->Name("F_ListeSelect")->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
