#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QTemporaryDir>
#include <fstream>
#include <regex>

#include "platform/qt/dialogs/print_pages.h"
#include "platform/qt/dialogs/print_preview.h"
#include "platform/qt/xlsx_file.h"
#include "tests/qt_dialogs/dialog_testing.h"

namespace tarvoni::qt {
namespace {

PrintDocument Journal(int rows) {
  PrintDocument document{.issuer = "Betrieb Hochwald",
                         .title = "Löhne",
                         .facts = {{"Monat", "März 2024"}, {"Forstjahr", "2024"}},
                         .tables = {{.columns = {{"Name"}, {"Betrag", Alignment::kRight, "0.00"}}}},
                         .remarks = {"Summe 1,00"}};
  for (int i = 0; i < rows; ++i)
    document.tables[0].rows.push_back({{"Müller " + std::to_string(i), std::int64_t{1}}});
  return document;
}

constexpr QSize kPaper(600, 850);

QImage Paper() {
  QImage image(kPaper, QImage::Format_RGB32);
  image.setDotsPerMeterX(2835);  // 72 dots an inch
  image.setDotsPerMeterY(2835);
  image.fill(Qt::white);
  return image;
}

int PagesOf(const PrintDocument& document) {
  QImage image = Paper();
  return PrintPages(document, QRectF(QPointF(), kPaper), &image).Count();
}

QImage Printed(const PrintDocument& document, int page) {
  QImage image = Paper();
  QPainter painter(&image);
  PrintPages(document, QRectF(QPointF(), kPaper), &image).Paint(painter, page);
  return image;
}

// The lowest line of a page on which something is printed, without the page number's line.
int LowestInk(const PrintDocument& document, int page) {
  const QImage image = Printed(document, page);
  for (int y = kPaper.height() - 30; y > 0; --y) {
    for (int x = 0; x < kPaper.width(); ++x) {
      if (qGray(image.pixel(x, y)) < 128) return y;
    }
  }
  return 0;
}

TEST(PrintPagesTest, RowsFillPages) {
  EXPECT_EQ(PagesOf(Journal(0)), 1);
  EXPECT_EQ(PagesOf(Journal(20)), 1);
  const int few = PagesOf(Journal(200));
  EXPECT_GT(few, 2);
  EXPECT_GT(PagesOf(Journal(400)), few);
  // A row more is lower on the page, until the page is full.
  EXPECT_GT(LowestInk(Journal(11), 0), LowestInk(Journal(10), 0));
}

TEST(PrintPagesTest, LongCellsAreWrapped) {
  PrintDocument document = Journal(1);
  const int one_line = LowestInk(document, 0);
  for (int i = 0; i < 60; ++i)
    std::get<std::string>(document.tables[0].rows[0].cells[0]) += " Holzernte im Steilhang";
  EXPECT_GT(LowestInk(document, 0), one_line + 50);
}

// How many lines of text begin at the left edge of a row, of a table so wide.
int LinesAtTheLeft(const std::vector<std::string>& cells, double width) {
  PrintDocument::Table table{.columns = std::vector<PrintDocument::Column>(cells.size()), .rows = {{}}};
  for (const std::string& cell : cells) table.rows[0].cells.emplace_back(cell);
  QImage image = Paper();
  QPainter painter(&image);
  const PrintedTable printed(table, 0, width, &image);
  printed.PaintRow(painter, 0, 0);
  int lines = 0;
  bool ink = false;
  for (int y = 0; y < static_cast<int>(printed.RowHeight(0)) - 1; ++y) {
    bool any = false;
    for (int x = 0; x < 15; ++x) any = any || qGray(image.pixel(x, y)) < 128;
    lines += any && !ink ? 1 : 0;
    ink = any;
  }
  return lines;
}

TEST(PrintPagesTest, AWordHasItsRoomOrIsBrokenNeverCut) {
  const std::string word = "Borkenkäferbekämpfung";
  std::string words;
  for (int i = 0; i < 30; ++i) words += " im Revier";
  EXPECT_EQ(LinesAtTheLeft({word, words, words}, 220), 1) << "the others give way";
  EXPECT_GE(LinesAtTheLeft({word + word}, 100), 2);
  EXPECT_GE(LinesAtTheLeft(std::vector<std::string>(12, word), 300), 3);
}

TEST(PrintPagesTest, CaptionsGiveWayBeforeTextsDo) {
  const PrintDocument::Table table{
      .columns = {{"Stunden direkter Lohn"}, {"Waldort"}},
      .rows = {{{std::int64_t{1}, std::string("Kaltenwald Ahornboden Waldteil")}}}};
  QImage image = Paper();
  const PrintedTable printed(table, 0, 230, &image);
  EXPECT_GT(printed.CaptionHeight(), 1.5 * printed.RowHeight(0));
}

TEST(PrintPagesTest, WhatWasCancelledIsStruckThrough) {
  PrintDocument document = Journal(1);
  const QImage counted = Printed(document, 0);
  document.tables[0].rows[0].struck = true;
  EXPECT_NE(Printed(document, 0), counted);
}

TEST(PrintPagesTest, AFootNeverStandsAlone) {
  PrintDocument document = Journal(30);
  document.remarks.assign(5, "Summe");
  const int pages = PagesOf(document);
  while (PagesOf(document) == pages) document.tables[0].rows.push_back({{"Name", std::int64_t{1}}});
  PrintDocument changed = document;
  changed.tables[0].rows.back().cells[0] = "Anders";
  EXPECT_NE(Printed(document, pages), Printed(changed, pages)) << "the last row stands with it";
}

TEST(PrintPagesTest, ASumStandsWithARowAndAHeadingWithItsFirst) {
  using enum PrintDocument::RowKind;
  for (int rows = 20; rows < 70; ++rows) {
    PrintDocument document = Journal(rows);
    document.remarks.clear();
    auto& table = document.tables[0].rows;
    table.push_back({{"Liste 2"}, kGroup});
    table.push_back({{"Erste", std::int64_t{1}}});
    table.push_back({{"Summe", std::int64_t{1}}, kSum});
    if (PagesOf(document) == 1) continue;
    // What would stand alone goes with the others: the page ends where it does without the three.
    const int lowest = LowestInk(document, 0);
    table.resize(table.size() - 3);
    EXPECT_EQ(LowestInk(document, 0), lowest) << rows;
    return;
  }
  FAIL() << "the page never turned";
}

TEST(PrintPagesTest, RowsThatGoOnStandBelowTheirHeadingAgain) {
  using enum PrintDocument::RowKind;
  PrintDocument document = Journal(100);
  auto& table = document.tables[0].rows;
  table.insert(table.begin(), {{"Liste 1"}, kGroup});
  PrintDocument other = document;
  other.tables[0].rows.front().cells[0] = "Liste 2";
  EXPECT_NE(Printed(document, 1), Printed(other, 1));
  // Behind the sum the heading is over.
  for (PrintDocument* ended : {&document, &other})
    ended->tables[0].rows.insert(ended->tables[0].rows.begin() + 2, {{"Summe", std::int64_t{1}}, kSum});
  EXPECT_EQ(Printed(document, 1), Printed(other, 1));
}

TEST(PrintPagesTest, TablesFollowEachOtherAndSignaturesTheLast) {
  PrintDocument document = Journal(3);
  const int one = LowestInk(document, 0);
  document.tables.push_back(document.tables[0]);
  document.tables.back().heading = "Noch einmal";
  const int two = LowestInk(document, 0);
  EXPECT_GT(two, one + 40);
  document.signatures = {"Lohnverrechnung", "Forstbetrieb"};
  EXPECT_GT(LowestInk(document, 0), two + 30) << "room to write on";
}

// The document as a PDF file.
std::string Pdf(const PrintDocument& document) {
  const QTemporaryDir folder;
  const QString file = folder.filePath("löhne.pdf");
  EXPECT_TRUE(WritePdf(document, file));
  std::ifstream stream(FromQt(file), std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

auto PdfPages(const std::string& pdf) {
  const std::regex page("/Type /Page\\b(?!s)");
  return std::distance(std::sregex_iterator(pdf.begin(), pdf.end(), page), {});
}

TEST(PrintPagesTest, GoesToAPdfFile) {
  PrintDocument document = Journal(200);
  document.landscape = true;
  const std::string pdf = Pdf(document);
  EXPECT_THAT(pdf, testing::StartsWith("%PDF-"));
  EXPECT_GT(PdfPages(pdf), 3);
  std::smatch box;
  ASSERT_TRUE(std::regex_search(pdf, box, std::regex("/MediaBox \\[0 0 ([0-9]+)\\S* ([0-9]+)")));
  EXPECT_GT(std::stoi(box[1]), std::stoi(box[2])) << "landscape";
  EXPECT_FALSE(WritePdf(document, "/fehlt/löhne.pdf"));
}

TEST(PrintPagesTest, GoesToAWorkbookWithASheetForEachTable) {
  const QTemporaryDir folder;
  const std::string file = FromQt(folder.filePath("löhne.xlsx"));
  PrintDocument document = Journal(2);
  document.tables.push_back({.heading = "Summen: nach [Lohnart]",
                             .columns = {{"Lohn", Alignment::kRight, "0.00"}},
                             .rows = {{{Decimal(1250, 2)}, PrintDocument::RowKind::kTotal}}});
  WriteXlsx(document, file);
  const auto part = [&](const char* name) {
    std::string text;
    FILE* pipe = popen(("unzip -p '" + file + "' " + name).c_str(), "r");
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) text += static_cast<char>(c);
    pclose(pipe);
    return text;
  };
  EXPECT_THAT(part("xl/workbook.xml"), testing::HasSubstr("\"Summen nach Lohnart\""))
      << "what a name can't hold is left out";
  EXPECT_THAT(part("xl/worksheets/sheet2.xml"), testing::HasSubstr("<v>12.5</v>"));
  EXPECT_THAT(part("xl/worksheets/sheet2.xml"), testing::HasSubstr("Seite &amp;P von &amp;N"));
}

TEST(PrintPreviewTest, ShowsThePagesOfTheFileWithoutAPrinter) {
  const PrintDocument document = Journal(200);
  const std::string pages = " von " + std::to_string(PdfPages(Pdf(document)));
  WhenOpen([&](QDialog& dialog) {
    EXPECT_EQ(FromQt(Part<QLabel>(dialog, "page").text()), "Seite 1" + pages);
    EXPECT_LE(dialog.minimumSizeHint().width(), 640) << "its bar wraps where the screen is narrow";
    Click(dialog, "next");
    EXPECT_EQ(FromQt(Part<QLabel>(dialog, "page").text()), "Seite 2" + pages);
    EXPECT_TRUE(Part(dialog, "pdf").isEnabled());
    Press(dialog, Qt::Key_Escape);
  });
  ShowPrintPreview(nullptr, document);
}

}  // namespace
}  // namespace tarvoni::qt
