#include <benchmark/benchmark.h>

#include "bench/shown_screen.h"
#include "src/context/data/statement.h"
#include "src/piecework/f_est_stucklohn.h"

// The Screen of EST piecework on the large enterprise, without a window: it is shown and closed at once. Of the order
// with the most logs only as many lists count as the measurement wants.
namespace tarvoni::bench {
namespace {

constexpr int kLogs = 2000;
constexpr est_pricing::Groupings kGroupings{.grade = 1, .species = 1};

std::int32_t Order() {
  return static_cast<std::int32_t>(TheKeys().log_order);
}

// The order has only its first lists, of so many logs together, as long as this lives.
class FewerLists {
 public:
  explicit FewerLists(int logs) {
    std::int64_t so_far = 0;
    Recordset lists = Database().Open(Compose(R"(
SELECT LISTENKOPF.ID, COUNT(*) AS LOGS
FROM LISTENKOPF
INNER JOIN LOGS ON LOGS.LISTE = LISTENKOPF.LISTE
WHERE LISTENKOPF.ID_ARA_KOPF = {}
GROUP BY LISTENKOPF.ID
ORDER BY 1)",
                                              Id(Order())));
    for (; !lists.EndOfFile(); lists.MoveNext()) {
      so_far += std::get<std::int64_t>(lists.Fields()["LOGS"].Value());
      if (so_far > logs) Give(std::get<std::int64_t>(lists.Fields()["ID"].Value()), -1);
    }
  }
  FewerLists(const FewerLists&) = delete;
  FewerLists& operator=(const FewerLists&) = delete;
  ~FewerLists() {
    Database().Execute(Compose("UPDATE LISTENKOPF SET ID_ARA_KOPF = {} WHERE ID_ARA_KOPF = -1", Id(Order())));
  }

 private:
  static void Give(std::int64_t list, std::int64_t order) {
    Database().Execute(Compose("UPDATE LISTENKOPF SET ID_ARA_KOPF = {} WHERE ID = {}", Id(order), Id(list)));
  }
};

void OpenWith(benchmark::State& state, int logs) {
  const FewerLists lists(logs);
  Shown shown;
  const auto client = static_cast<std::int32_t>(TheKeys().client);
  for (auto _ : state) {
    shown.Next();
    F_EST_Stucklohn screen;
    screen.Run(shown.context, client, Order());
  }
}

void Open(benchmark::State& state) {
  OpenWith(state, kLogs);
}

void Bare(benchmark::State& state) {
  const FewerLists lists(kLogs);
  const SqlText text = est_pricing::LogsOfOrder(Order(), kGroupings);
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Zeilen, verglichen mit der bloßen Anweisung");
}

// Half of the logs must take half of the time.
void OpenHalf(benchmark::State& state) {
  OpenWith(state, kLogs / 2);
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(Open)->Name("F_EST_Stucklohn öffnen/T-SQL")->Unit(kMilliseconds);
BENCHMARK(Bare)->Name("F_EST_Stucklohn öffnen/Hand")->Unit(kMilliseconds);
BENCHMARK(OpenHalf)->Name("F_EST_Stucklohn öffnen, halbe Menge")->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
