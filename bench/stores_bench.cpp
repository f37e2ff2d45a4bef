#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench/shown_screen.h"
#include "src/common/column_writer.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/entry/c_lohn.h"
#include "src/entry/neighbours.h"
#include "src/entry/screens.h"
#include "src/stores/f_lager_sql.h"
#include "src/stores/f_positionen.h"
#include "src/stores/f_positionen_sql.h"

// The stores and the machine book on the large enterprise, without windows: each Screen is shown and closed at once.
// Client, object and machine -1 are made for the measurement and taken away again: 5,000 documents with 15,000 goods,
// 1,500 of them on one document, 60,000 withdrawals, and 20,000 bookings on the machine.
namespace tarvoni::bench {
namespace {

class Stores {
 public:
  Stores() {
    Database().Execute(R"(
INSERT INTO LAGER (NUMMER, PERSONAL_ID, BUCHUNGSDAT, RECHNUMER, RECHDATUM, RECHBERTRAG, RECHEURO)
SELECT TOP 5000 NAME, -1, '20240301', NAME, '20240301', 100, 1 FROM ARA_KOPF
INSERT INTO LAGER_POS (LAGER_ID, KOSTENE, MENGE, GESAMT, EURO, BEZEICHNUNG)
SELECT LAGER.ID, 0.62, 1000, 620, 1, 'Messung'
FROM LAGER
INNER JOIN (SELECT TOP 3 ID FROM KOSTENART) DREI ON 1 = 1
WHERE PERSONAL_ID = -1
UPDATE LAGER_POS
SET LAGER_ID = (SELECT MAX(ID) FROM LAGER WHERE PERSONAL_ID = -1)
WHERE BEZEICHNUNG = 'Messung' AND ID % 10 = 0
INSERT INTO ARBEITSAUFTRAG (QUELLE, ID_LAGER_POS, LAGERMENGE, GESAMT)
SELECT 'L', LAGER_POS.ID, 10, 6.2
FROM LAGER_POS
INNER JOIN (SELECT TOP 4 ID FROM KOSTENART) VIER ON 1 = 1
WHERE BEZEICHNUNG = 'Messung')");
    document = static_cast<std::int32_t>(std::get<std::int64_t>(
        Database().Open("SELECT MAX(ID) FROM LAGER WHERE PERSONAL_ID = -1").GetRows().at(0).at(0)));
  }
  Stores(const Stores&) = delete;
  Stores& operator=(const Stores&) = delete;
  ~Stores() {
    Database().Execute(R"(
DELETE FROM ARBEITSAUFTRAG WHERE ID_LAGER_POS IN (SELECT ID FROM LAGER_POS WHERE BEZEICHNUNG = 'Messung')
DELETE FROM LAGER_POS WHERE BEZEICHNUNG = 'Messung'
DELETE FROM LAGER WHERE PERSONAL_ID = -1)");
  }

  std::int32_t document = 0;  // the one with 1,500 goods
};

void OpenStores(benchmark::State& state) {
  Shown shown;
  auto* lohn = new c_Lohn<Screens>;
  std::string selection, formula;
  for (auto _ : state) {
    shown.Next();
    if (lohn->Lager(shown.context, "-1", 0, selection, formula) != kResultOk) {
      throw std::runtime_error("F_Lager: " + LastFailure().text);
    }
  }
  lohn->Release();
}

void OpenAll(benchmark::State& state) {
  const Stores stores;
  OpenStores(state);
}

void Bare(benchmark::State& state, const SqlText& text) {
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Zeilen, verglichen mit der bloßen Anweisung");
}

void BareAll(benchmark::State& state) {
  const Stores stores;
  Bare(state, lager_sql::DocumentsOf(-1));
}

// Every second document goes to another client meanwhile: the time must halve.
void OpenHalf(benchmark::State& state) {
  const Stores stores;
  Database().Execute("UPDATE LAGER SET PERSONAL_ID = -2 WHERE PERSONAL_ID = -1 AND ID % 2 = 0");
  OpenStores(state);
  Database().Execute("UPDATE LAGER SET PERSONAL_ID = -1 WHERE PERSONAL_ID = -2");
}

void OpenGoods(benchmark::State& state) {
  const Stores stores;
  Shown shown;
  for (auto _ : state) {
    shown.Next();
    F_Positionen screen;
    screen.Run(shown.context, -1, stores.document, 0);
  }
}

void BareGoods(benchmark::State& state) {
  const Stores stores;
  Bare(state, positionen_sql::PositionsOf(stores.document, ""));
}

// What btnSpeichern of a new document sends, in one handler.
void Save(benchmark::State& state) {
  const Stores stores;
  const Shown shown;
  const ColumnWriter document(shown.context, "LAGER", stores.document);
  const DateTime day{2024, 3, 15};
  for (auto _ : state) {
    HandlerScope handler(Database());
    Database().Open(lager_sql::FindNumber("Messung"));
    for (const char* column : {"BUCHUNGSDAT", "TAGANORD", "RECHDATUM"}) document.Date(column, day);
    for (const char* column : {"KAPITEL_ID", "TITEL_ID", "ZAHLUNGSART", "ZAHLUNGSGRUND", "ZAHLUNGSEMF"}) {
      document.Number(column, 1);
    }
    for (const char* column : {"HULNR", "RECHNUMER"}) document.Text(column, "Messung");
    document.Number("RECHBERTRAG", "100", ColumnWriter::Zero::kIsValue);
    document.Flag("RECHEURO", true);
    handler.Finish();
  }
}

void OpenMachine(benchmark::State& state) {
  Database().Execute(R"(
INSERT INTO OBJEKT (NUMBER, NAME) VALUES (999999, 'Messung')
INSERT INTO MASCHINENBUCH (NUMMER, OBJEKT_ID) SELECT -1, ID FROM OBJEKT WHERE NUMBER = 999999
INSERT INTO ARBEITSAUFTRAG (QUELLE, OBJEKT_ID, KOSTENART_ID, GESAMT)
SELECT TOP 20000 'Messung', (SELECT ID FROM OBJEKT WHERE NUMBER = 999999), KOSTENART_ID, 12.5 FROM ARBEITSAUFTRAG)");
  Shown shown;
  auto* lohn = new c_Lohn<Screens>;
  for (auto _ : state) {
    shown.Next();
    if (lohn->Maschinenbuch(-1, false, shown.context) != kResultOk) {
      throw std::runtime_error("F_Maschinenbuch: " + LastFailure().text);
    }
  }
  lohn->Release();
  Database().Execute(R"(
DELETE FROM ARBEITSAUFTRAG WHERE QUELLE = 'Messung'
DELETE FROM MASCHINENBUCH WHERE NUMMER = -1
DELETE FROM OBJEKT WHERE NUMBER = 999999)");
  state.SetLabel("20.000 Buchungen");
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(OpenAll)->Name("c_Lohn.Lager/T-SQL")->Unit(kMilliseconds);
BENCHMARK(BareAll)->Name("c_Lohn.Lager/Hand")->Unit(kMilliseconds);
BENCHMARK(OpenHalf)->Name("c_Lohn.Lager, halbe Menge")->Unit(kMilliseconds);
BENCHMARK(OpenGoods)->Name("F_Positionen/T-SQL")->Unit(kMilliseconds);
BENCHMARK(BareGoods)->Name("F_Positionen/Hand")->Unit(kMilliseconds);
BENCHMARK(Save)->Name("Lagerbeleg speichern")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(OpenMachine)->Name("c_Lohn.Maschinenbuch")->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
