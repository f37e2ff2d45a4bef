#include <benchmark/benchmark.h>

#include <stdexcept>

#include "bench/shown_screen.h"
#include "platform/sqlite/statement.h"
#include "src/context/data/handler_scope.h"
#include "src/context/data/statement.h"
#include "src/entry/c_lohn.h"
#include "src/entry/screens.h"
#include "src/vouchers/f_belege_new_sql.h"

// Vouchers on the large enterprise, without windows. Client -1 is made for the measurement and taken away again: 5,000
// vouchers with 20,000 rows in 100 orders, each of one voucher in the same order.
namespace tarvoni::bench {
namespace {

class Vouchers {
 public:
  Vouchers() {
    Database().Execute(R"(
INSERT INTO ARBEITSAUFTRAG_KOPF (NAME, PERSONAL_ID, PRODUKT_ID)
SELECT TOP 100 'Messung', -1, PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF
INSERT INTO BELEGE (NUMMER, BUCHUNGSDAT, KAPITEL_ID, TITEL_ID, HULNR, RECHNUMER, RECHDATUM, RECHBERTRAG, RECHEURO,
  ZAHLUNGSART, ZAHLUNGSGRUND, ZAHLUNGSEMF)
SELECT TOP 5000 'Messung', BUCHUNGSDAT, KAPITEL_ID, TITEL_ID, HULNR, RECHNUMER, RECHDATUM, RECHBERTRAG, RECHEURO,
  ZAHLUNGSART, ZAHLUNGSGRUND, ZAHLUNGSEMF
FROM BELEGE
INNER JOIN (SELECT TOP 4 ID FROM KOSTENART) VIER ON 1 = 1
INSERT INTO ARBEITSAUFTRAG (ORDERS, DATUM_NR, ARBEITSAUFTRAG_KOPF_ID, BELEGE_ID, KOSTENSTELLE_ID, LEISTUNGSART_ID,
  KOSTENART_ID, SONDERMERKMAL_ID, MENGE, PRO_MENGE, EINH_ID, KOSTEN, GESAMT, EURO, ID_MWST, WO_ID)
SELECT 1, '20240301', (SELECT MIN(ID) FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = -1) + BELEGE.ID % 100, BELEGE.ID,
  KOSTENSTELLE_ID, LEISTUNGSART_ID, KOSTENART_ID, SONDERMERKMAL_ID, MENGE, PRO_MENGE, EINH_ID, KOSTEN, GESAMT, EURO,
  ID_MWST, WO_ID
FROM BELEGE
INNER JOIN (SELECT TOP 4 * FROM ARBEITSAUFTRAG WHERE BELEGE_ID IS NOT NULL) VIER ON 1 = 1
WHERE BELEGE.NUMMER = 'Messung')");
  }
  Vouchers(const Vouchers&) = delete;
  Vouchers& operator=(const Vouchers&) = delete;
  ~Vouchers() {
    Database().Execute(R"(
DELETE FROM ARBEITSAUFTRAG WHERE BELEGE_ID IN (SELECT ID FROM BELEGE WHERE NUMMER = 'Messung')
DELETE FROM BELEGE WHERE NUMMER = 'Messung'
DELETE FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = -1)");
  }
};

std::int32_t Number(const SqlText& statement) {
  return static_cast<std::int32_t>(std::get<std::int64_t>(Database().Open(statement).GetRows().at(0).at(0)));
}

void Show(Shown& shown) {
  auto* lohn = new c_Lohn<Screens>;
  const Result result = lohn->Belege(shown.context, "-1", 0);
  lohn->Release();
  if (result != kResultOk) throw std::runtime_error("F_Belege_New: " + LastFailure().text);
}

void OpenVouchers(benchmark::State& state) {
  Shown shown;
  for (auto _ : state) {
    shown.Next();
    Show(shown);
  }
}

void OpenAll(benchmark::State& state) {
  const Vouchers vouchers;
  OpenVouchers(state);
}

void Bare(benchmark::State& state) {
  const Vouchers vouchers;
  const SqlText text = voucher_sql::VouchersOfClient(-1, "ATS");
  std::size_t rows = 0;
  for (auto _ : state) rows = Database().Open(text).RecordCount();
  state.SetLabel(std::to_string(rows) + " Belege, verglichen mit der bloßen Anweisung");
}

// Every second order, and with it every second voucher, is another client's meanwhile: the time must halve.
void OpenHalf(benchmark::State& state) {
  const Vouchers vouchers;
  Database().Execute("UPDATE ARBEITSAUFTRAG_KOPF SET PERSONAL_ID = -2 WHERE PERSONAL_ID = -1 AND ID % 2 = 0");
  OpenVouchers(state);
  Database().Execute("UPDATE ARBEITSAUFTRAG_KOPF SET PERSONAL_ID = -1 WHERE PERSONAL_ID = -2");
}

// From voucher to voucher within one Screen, each with its four rows.
void Move(benchmark::State& state) {
  const Vouchers vouchers;
  Shown shown;
  shown.toolkit.script = [&state](UserActions& user) {
    auto& grid = dynamic_cast<DataGrid&>(*user.Screen().Find("DataGridBelege"));
    int row = 0;
    for (auto _ : state) user.MoveRow(grid, ++row % grid.RowCount());
    user.Close();
  };
  Show(shown);
}

voucher_sql::Row SomeRow() {
  const std::string header =
      std::to_string(Number("SELECT MIN(ID) FROM ARBEITSAUFTRAG_KOPF WHERE PERSONAL_ID = -1"));
  voucher_sql::Row row{};
  row.header = header;
  row.voucher = Number("SELECT MAX(ID) FROM BELEGE WHERE NUMMER = 'Messung'");
  row.activity = row.cost_type = 1;
  row.cost_centre = row.feature = row.vat = "1";
  row.unit_cost = "3,13";
  row.quantity = "8";
  row.by_quantity = row.euro = true;
  row.unit = 1;
  row.cost = "25";
  row.day = {2024, 3, 15};
  return row;
}

// What btnSpeichern of a row sends before the lists are read anew.
void Save(benchmark::State& state) {
  const Vouchers vouchers;
  const Shown shown;
  voucher_sql::Row row = SomeRow();
  for (auto _ : state) {
    HandlerScope handler(Database());
    benchmark::DoNotOptimize(Database().Open(voucher_sql::VoucherInForce(row.voucher)).RecordCount());
    row.orders = Number(voucher_sql::HighestOrders(row.header)) + 1;
    Database().Execute(voucher_sql::InsertRow(row, shown.context.strSqlDateFormat));
    benchmark::DoNotOptimize(Database().Open(voucher_sql::LastRow()).RecordCount());
    handler.Finish();
  }
}

void SaveByHand(benchmark::State& state) {
  const Vouchers vouchers;
  const voucher_sql::Row row = SomeRow();
  using Use = sqlite::Statement::Use;
  sqlite::Statement in_force(HandWritten(), "SELECT ID FROM BELEGE WHERE ID = ?1 AND ifnull(STORNO,0) = 0",
                             Use::kOften);
  sqlite::Statement highest(
      HandWritten(), "SELECT ifnull(max(ORDERS),0) FROM ARBEITSAUFTRAG WHERE ARBEITSAUFTRAG_KOPF_ID = ?1",
      Use::kOften);
  sqlite::Statement insert(HandWritten(), R"(
INSERT INTO ARBEITSAUFTRAG (ARBEITSAUFTRAG_KOPF_ID,BELEGE_ID,ORDERS,LEISTUNGSART_ID,KOSTENSTELLE_ID,KOSTENART_ID,
  SONDERMERKMAL_ID,KOSTEN,MENGE,PRO_MENGE,EINH_ID,EURO,GESAMT,DATUM_NR,ID_MWST)
VALUES (?1,?2,?3,1,1,1,1,31300,80000,1,1,1,250000,'2024-03-15',1))",
                           Use::kOften);
  for (auto _ : state) {
    HandWritten().Execute("BEGIN IMMEDIATE");
    in_force.BindInteger(1, row.voucher);
    in_force.Step();
    in_force.Reset();
    highest.BindInteger(1, std::stoll(row.header));
    highest.Step();
    const std::int64_t orders = highest.Integer(0) + 1;
    highest.Reset();
    insert.BindInteger(1, std::stoll(row.header));
    insert.BindInteger(2, row.voucher);
    insert.BindInteger(3, orders);
    insert.Run();
    HandWritten().Execute("COMMIT");
  }
}

constexpr auto kMilliseconds = benchmark::kMillisecond;
BENCHMARK(OpenAll)->Name("c_Lohn.Belege/T-SQL")->Unit(kMilliseconds);
BENCHMARK(Bare)->Name("c_Lohn.Belege/Hand")->Unit(kMilliseconds);
BENCHMARK(OpenHalf)->Name("c_Lohn.Belege, halbe Menge")->Unit(kMilliseconds);
BENCHMARK(Move)->Name("F_Belege_New, anderer Beleg")->Unit(kMilliseconds);
BENCHMARK(Save)->Name("Kostenzeile speichern/T-SQL")->UseRealTime()->Unit(kMilliseconds);
BENCHMARK(SaveByHand)->Name("Kostenzeile speichern/Hand")->UseRealTime()->Unit(kMilliseconds);

}  // namespace
}  // namespace tarvoni::bench
