#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench/shown_screen.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/context/rules/wage_rules.h"
#include "src/entry/c_lohn.h"
#include "src/entry/neighbours.h"
#include "src/entry/screens.h"
#include "src/wage/f_ara_sql.h"
#include "src/wage/f_arbeitnehmer.h"

// The Screens of the wage orders on the large enterprise, without windows: each is shown and closed at once.
namespace tarvoni::bench {
namespace {

void Open(benchmark::State& state) {
  Shown shown;
  auto* lohn = new c_Lohn<Screens>;
  for (auto _ : state) {
    shown.Next();
    if (lohn->ARA(shown.context, std::to_string(TheKeys().client), 0) != kResultOk) {
      throw std::runtime_error("F_ARA: " + LastFailure().text);
    }
  }
  lohn->Release();
}

// The statement that the Screen sends, with the wage types it found.
SqlText BareList() {
  SqlText whens;
  for (Recordset types = Database().Open(DirectWageTypes()); !types.EndOfFile(); types.MoveNext()) {
    whens = Compose("{} WHEN {} THEN {}", whens, Id(ToDisplayText(types.Fields()["TYP"].Value())),
                    Id(ToDisplayText(types.Fields()["ID"].Value())));
  }
  return ara_sql::OrdersOfYear({static_cast<std::int32_t>(TheKeys().client), TheKeys().year},
                               Compose("CASE BBF_GRUPPE.NUMBER{} ELSE 0 END", whens), "", "");
}

void Bare(benchmark::State& state) {
  const SqlText text = BareList();
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Zeilen, verglichen mit der bloßen Anweisung");
}

// Every second order of the year goes to another year meanwhile: the time must halve.
void OpenHalf(benchmark::State& state) {
  const SqlText of_client = Compose(" AND PERSONAL_ID = {}", Id(TheKeys().client));
  Database().Execute(
      Compose("UPDATE ARA_KOPF SET NAME_FWJ = '9999' WHERE NAME_NUMMER%2 = 0 AND NAME_FWJ = '{}'{}",
              Quoted(TheKeys().year), of_client));
  Open(state);
  Database().Execute(Compose("UPDATE ARA_KOPF SET NAME_FWJ = '{}' WHERE NAME_FWJ = '9999'{}",
                             Quoted(TheKeys().year), of_client));
}

// What btnSpeichern sends for a new order, in one handler; the list it then reads anew is measured above.
void Save(benchmark::State& state) {
  const auto order =
      std::get<std::int64_t>(Database().Open("SELECT MAX(ID) FROM ARA_KOPF").GetRows().at(0).at(0));
  const auto id = static_cast<std::int32_t>(order);
  int number = 0;
  for (auto _ : state) {
    const std::string typed = std::to_string(900000 + ++number % 1000);
    HandlerScope handler(Database());
    Database().Open(ara_sql::TakeNumber(id, "1100" + TheKeys().year + typed, typed));
    Database().Open(ara_sql::IsOverhead("1"));
    Database().Execute(ara_sql::UpdateHeader(
        id, {.name = "1100" + TheKeys().year + typed, .description = "Messung", .total = "", .team = ""}));
    Database().Execute(ara_sql::UpdatePosition(id,
                                               {.product_order = "1",
                                                .service = "11",
                                                .date = DateTime{2024, 3, 15},
                                                .cost_centre = "1",
                                                .work_type = "1",
                                                .location = ""},
                                               "yyyymmdd"));
    handler.Finish();
  }
}

void Hours(benchmark::State& state) {
  constexpr int kOrder = -1;
  Database().Execute(R"(
SET IDENTITY_INSERT ARA_KOPF ON
INSERT INTO ARA_KOPF (ID, NAME) VALUES (-1, 'Messung')
SET IDENTITY_INSERT ARA_KOPF OFF
INSERT INTO ARA_STUNDEN (ID_ARA_KOPF, ID_PERSONAL, ID_LOHNARTEN, BEARBEITUNG, VERLOHNUNG, STUNDEN)
SELECT TOP 500 -1, ID_PERSONAL, ID_LOHNARTEN, BEARBEITUNG, VERLOHNUNG, STUNDEN FROM ARA_STUNDEN)");
  Shown shown;
  for (auto _ : state) {
    shown.Next();
    F_Arbeitnehmer screen;
    screen.Run(shown.context, kOrder);
  }
  Database().Execute(R"(
DELETE FROM ARA_STUNDEN WHERE ID_ARA_KOPF = -1
DELETE FROM ARA_KOPF WHERE ID = -1)");
  state.SetLabel("500 Stundenzeilen");
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(Open)->Name("c_Lohn.ARA/T-SQL")->Unit(kMilliseconds);
BENCHMARK(Bare)->Name("c_Lohn.ARA/Hand")->Unit(kMilliseconds);
BENCHMARK(OpenHalf)->Name("c_Lohn.ARA, halbe Menge")->Unit(kMilliseconds);
BENCHMARK(Save)->Name("Lohnauftrag speichern")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(Hours)->Name("F_Arbeitnehmer öffnen")->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
