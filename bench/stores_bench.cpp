#include <benchmark/benchmark.h>

#include <functional>
#include <stdexcept>

#include "bench/shown_screen.h"
#include "src/context/data/statement.h"
#include "src/entry/c_lohn.h"
#include "src/entry/neighbours.h"
#include "src/entry/screens.h"
#include "src/stores/f_lager_sql.h"
#include "src/stores/f_positionen.h"
#include "src/stores/f_positionen_sql.h"

// The stores and the machine book on the large enterprise, without windows: each Screen is shown and closed at once.
// Client, object and machine -1 are made for the measurement and taken away again: 5,000 documents with 15,000 goods,
// 1,500 of them on one document, 60,000 withdrawals, 2,000 of them from its first goods, and 20,000 bookings on the
// machine.
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
    document = Number("SELECT MAX(ID) FROM LAGER WHERE PERSONAL_ID = -1");
    goods = Number(Compose("SELECT MIN(ID) FROM LAGER_POS WHERE LAGER_ID = {}", Id(document)));
    Database().Execute(Compose(R"(
UPDATE ARBEITSAUFTRAG
SET ID_LAGER_POS = {}, ARBEITSAUFTRAG_KOPF_ID = (SELECT MIN(ID) FROM ARBEITSAUFTRAG_KOPF)
WHERE ID IN (SELECT TOP 2000 ID FROM ARBEITSAUFTRAG WHERE QUELLE = 'L' ORDER BY ID DESC))",
                               Id(goods)));
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
  std::int32_t goods = 0;     // its first ones

 private:
  static std::int32_t Number(const SqlText& statement) {
    return static_cast<std::int32_t>(
        std::get<std::int64_t>(Database().Open(statement).GetRows().at(0).at(0)));
  }
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
  for (auto _ : state) {
    benchmark::DoNotOptimize(Database().Open(positionen_sql::PositionsOf(stores.document, "")).RecordCount());
    benchmark::DoNotOptimize(Database().Open(positionen_sql::WithdrawalsOf(stores.goods)).RecordCount());
  }
  state.SetLabel("1.500 Waren und 2.000 Ausbuchungen, verglichen mit den zwei bloßen Anweisungen");
}

// One Screen in which all repetitions happen. `steps` does one of them; what it leads to is the user's way through the
// buttons, with the lists read anew.
void WithScreen(benchmark::State& state, const std::function<void(const Shown&)>& open,
                const std::function<void(UserActions&, int)>& steps) {
  Shown shown;
  shown.toolkit.script = [&state, &steps](UserActions& user) {
    int count = 0;
    for (auto _ : state) steps(user, ++count);
    user.Close();
  };
  open(shown);
  if (!shown.toolkit.prompts.empty()) throw std::runtime_error(shown.toolkit.prompts.front());
}

Control& Named(UserActions& user, const char* name, int index = Control::kNoIndex) {
  return *user.Screen().Find(name, index);
}

// The first document: nothing in force is drawn from its goods.
void SaveDocument(benchmark::State& state) {
  const Stores stores;
  Database().Execute(R"(
UPDATE ARBEITSAUFTRAG
SET STORNODATUM = '20240301'
WHERE ID_LAGER_POS IN (
  SELECT ID FROM LAGER_POS WHERE LAGER_ID = (SELECT MIN(ID) FROM LAGER WHERE PERSONAL_ID = -1)))");
  auto* lohn = new c_Lohn<Screens>;
  std::string selection, formula;
  WithScreen(
      state, [&](const Shown& shown) { lohn->Lager(shown.context, "-1", 0, selection, formula); },
      [](UserActions& user, int count) {
        user.Click(Named(user, "btnBearbeiten"));
        user.ReplaceText(dynamic_cast<TextBox&>(Named(user, "txtHul")), std::to_string(count));
        user.Click(Named(user, "btnSpeichern"));
        user.RunTimers();
      });
  lohn->Release();
  state.SetLabel("mit der Liste der 5.000, die danach neu gelesen wird");
}

// Of goods on a document of the usual size.
void SaveGoods(benchmark::State& state) {
  const Stores stores;
  Database().Execute(Compose(R"(
DELETE FROM ARBEITSAUFTRAG WHERE ID_LAGER_POS = {}
UPDATE LAGER_POS SET LAGER_ID = -1 WHERE ID = {})",
                             Id(stores.goods), Id(stores.goods)));
  WithScreen(
      state, [](const Shown& shown) { F_Positionen().Run(shown.context, -1, -1, 0); },
      [](UserActions& user, int count) {
        user.Click(Named(user, "btnBearbeiten"));
        user.ReplaceText(dynamic_cast<TextBox&>(Named(user, "txtKosten")), std::to_string(count));
        user.Click(Named(user, "btnSpeichern", 0));
      });
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
BENCHMARK(SaveDocument)->Name("Lagerbeleg speichern")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SaveGoods)->Name("Lagerposition speichern")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(OpenMachine)->Name("c_Lohn.Maschinenbuch")->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
