#include <benchmark/benchmark.h>

#include <QApplication>
#include <QLineEdit>
#include <QPdfWriter>
#include <QTemporaryDir>
#include <memory>
#include <string>

#include "platform/qt/dialogs/print_pages.h"
#include "platform/qt/public/pick_dialog.h"
#include "platform/qt/public/table_view.h"

// What a user waits for at long lists, without a screen. A longer wait than 100 ms for a list, 16 ms for a key and
// 300 ms for a table is felt.
namespace tarvoni::qt {
namespace {

constexpr int kListRows = 10'000, kTableRows = 50'000;
constexpr PickDialog::Words kWords{.filter = "&Suchen:", .placeholder = "", .none = "Kein Eintrag passt."};

void StartApplication() {
  static int argc = 1;
  static char name[] = "bench";
  static char* argv[] = {name, nullptr};
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  static const QApplication application(argc, argv);
}

PickRequest ManyOrders() {
  RowSet rows{.columns = {{"ID", FieldType::kInteger},
                          {"NUMMER", FieldType::kVarChar, 10},
                          {"NAME", FieldType::kVarChar, 40},
                          {"ORT", FieldType::kVarChar, 40},
                          {"BETRAG", FieldType::kNumeric}},
              .cells = {}};
  const char* names[] = {"Käferholz", "Jungbestandspflege", "Wegebau", "Rückung", "Zäune und Gatter"};
  for (int i = 0; i < kListRows; ++i) {
    rows.cells.insert(
        rows.cells.end(),
        {std::int64_t{i}, std::to_string(10'000 + i), names[i % 5] + (" im Jahr " + std::to_string(i % 97)),
         "Revier Süd/ Abteilung " + std::to_string(i % 431), Decimal(i * 37, 2)});
  }
  return {.caption = "Aufträge",
          .rows = Recordset(std::move(rows)),
          .code_column = 1,
          .hidden_columns = 1,
          .start_text = "17000",
          .option = "",
          .extra_button = ""};
}

void PickListOpens(benchmark::State& state) {
  StartApplication();
  const PickRequest request = ManyOrders();
  for (auto _ : state) {
    PickDialog dialog(nullptr, request, Locale::German(), kWords);
    dialog.show();
    QCoreApplication::processEvents();
  }
  state.SetLabel("10.000 Zeilen");
}

// Each key of a word, from one letter to the whole and back, until the list is painted again.
void PickListKey(benchmark::State& state) {
  StartApplication();
  const PickRequest request = ManyOrders();
  PickDialog dialog(nullptr, request, Locale::German(), kWords);
  dialog.show();
  auto* filter = dialog.findChild<QLineEdit*>("filter");
  const QString word = "käferholz im jahr 12";
  filter->setText("k");  // the first key makes the rows searchable
  int length = 0;
  for (auto _ : state) {
    length = length % static_cast<int>(word.size()) + 1;
    filter->setText(word.left(length));
    QCoreApplication::processEvents();
  }
  state.SetLabel("10.000 Zeilen");
}

// The first key after opening.
void PickListFirstKey(benchmark::State& state) {
  const PickRequest request = ManyOrders();
  for (auto _ : state) {
    PickRows rows(request, Locale::German());
    benchmark::DoNotOptimize(rows.Filter("k"));
  }
  state.SetLabel("10.000 Zeilen");
}

void TableOpens(benchmark::State& state) {
  StartApplication();
  constexpr int kColumns = 12;
  Form form("F_BENCH");
  FlexGrid grid(form, "grid");
  grid.SetCols(kColumns);
  for (int i = 0; i < kTableRows; ++i)
    grid.AddItem(std::vector<std::string>(kColumns, std::to_string(i) + ",50"));
  grid.SetRow(kTableRows / 2);
  for (auto _ : state) {
    TableView view(grid);
    view.resize(900, 600);
    view.show();
    QCoreApplication::processEvents();
  }
  state.SetLabel("50.000 Zeilen");
}

// A report of forty pages, as the journal of a large enterprise's year would be.
void ReportAsPdf(benchmark::State& state) {
  StartApplication();
  constexpr int kReportRows = 1'500, kColumns = 12;
  PrintDocument document{
      .issuer = "2010 FB Kaltenwald", .title = "Bericht", .tables = {{}}, .landscape = true};
  PrintDocument::Table& table = document.tables[0];
  for (int i = 0; i < kColumns; ++i)
    table.columns.push_back(
        {"Spalte " + std::to_string(i), i < 3 ? Alignment::kLeft : Alignment::kRight, "0.00"});
  for (int row = 0; row < kReportRows; ++row) {
    auto& cells = table.rows.emplace_back().cells;
    for (int i = 0; i < kColumns; ++i) {
      cells.emplace_back(i < 3 ? Value("Kaltenwald/ Abteilung " + std::to_string(row + i))
                               : Value(Decimal(row * 37 + i, 2)));
    }
  }
  const QTemporaryDir folder;
  for (auto _ : state) WritePdf(document, folder.filePath("bericht.pdf"));
  QPdfWriter paper(folder.filePath("zahl.pdf"));
  SetUpPage(paper, document);
  const PrintPages pages(document, QRectF(0, 0, paper.width(), paper.height()), &paper);
  state.SetLabel(std::to_string(pages.Count()) + " Seiten");
}

BENCHMARK(PickListOpens)->Unit(benchmark::kMillisecond);
BENCHMARK(PickListKey)->Unit(benchmark::kMillisecond);
BENCHMARK(PickListFirstKey)->Unit(benchmark::kMillisecond);
BENCHMARK(TableOpens)->Unit(benchmark::kMillisecond);
BENCHMARK(ReportAsPdf)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tarvoni::qt
