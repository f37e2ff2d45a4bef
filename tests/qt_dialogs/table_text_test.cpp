#include "platform/qt/table_text.h"

#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <regex>

#include "platform/qt/cell_type.h"
#include "platform/qt/file_export.h"
#include "platform/qt/selection_sum.h"
#include "src/context/services/environment.h"
#include "src/context/values/field_text.h"
#include "tests/qt_dialogs/dialog_testing.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni::qt {
namespace {

const Locale kGerman = Locale::German();

// A table out of values, as a data grid would show them.
class Table : public TableSource {
 public:
  Table(std::vector<TableColumn> columns, std::vector<Value> cells)
      : columns_(std::move(columns)), cells_(std::move(cells)) {}
  int RowCount() const override { return static_cast<int>(cells_.size() / columns_.size()); }
  int ColumnCount() const override { return static_cast<int>(columns_.size()); }
  TableColumn ColumnAt(int column) const override { return columns_[static_cast<std::size_t>(column)]; }
  std::string TextAt(int row, int column) const override {
    return FieldText(ValueAt(row, column), ColumnAt(column).format, kGerman);
  }
  Value ValueAt(int row, int column) const override {
    return cells_[static_cast<std::size_t>(row * ColumnCount() + column)];
  }

 private:
  std::vector<TableColumn> columns_;
  std::vector<Value> cells_;
};

Value Text(const char* text) {
  return std::string(text);
}

Table Wages() {
  return Table(
      {{"Name"}, {"Nr."}, {"Betrag", Alignment::kRight, "#0.00"}, {"ID", {}, "", false}, {"Tag"}, {"Fest"}},
      {Text("Müller; \"Hans\""), Text("007"), Decimal(12345, 3), std::int64_t{1}, DateTime{2024, 3, 5}, true,
       Text("=1+1\nzwei"), Text("12"), Decimal(-5, 1), std::int64_t{2}, DateTime{2024, 3, 6, 13 * 3'600'000},
       false,  //
       Null{}, Text(" 3"), 0.1, std::int64_t{3}, Null{}, Null{}});
}

TEST(CellTypeTest, TextsAreWhatTheyReadAs) {
  EXPECT_EQ(TypedText("-12,50", kGerman), Value(Decimal(-1250, 2)));
  EXPECT_EQ(TypedText("0,5", kGerman), Value(Decimal(5, 1)));
  EXPECT_EQ(TypedText("0", kGerman), Value(Decimal(0, 0)));
  EXPECT_EQ(TypedText("05.03.2024", kGerman), Value(DateTime{2024, 3, 5}));
  EXPECT_EQ(TypedText("", kGerman), Value(Null{}));
  for (const char* text :
       {"007", "-01", "12.50", "1.2", "1.2.24", "2024-03-05", "+49", "12 €", "31.02.2024"}) {
    EXPECT_EQ(TypedText(text, kGerman), Text(text)) << text;
  }
}

TEST(CellTypeTest, FormatsOfASpreadsheet) {
  EXPECT_EQ(SheetFormat(Decimal(1, 2), "-#0.00"), "#0.00");
  EXPECT_EQ(SheetFormat(Decimal(125, 1), ""), "0.0");
  EXPECT_EQ(SheetFormat(std::int64_t{3}, ""), "");
  EXPECT_EQ(SheetFormat(DateTime{2024, 3, 5}, ""), "dd.mm.yyyy");
  EXPECT_EQ(SheetFormat(DateTime{2024, 3, 5}, "dd.mm.yy hh:nn"), "dd.mm.yy hh:mm");
  EXPECT_TRUE(FitsSheet(*Decimal::Parse("-123456789012.345")));
  EXPECT_FALSE(FitsSheet(*Decimal::Parse("1234567890123.456")));
}

TEST(SelectionSumTest, IsExactAndLeavesOutWhatIsNoNumber) {
  const Table wages = Wages();
  EXPECT_EQ(SumText(wages, {{0, 2, 2, 2}}, kGerman), "Summe 11,945 (3 Zahlen)");
  EXPECT_EQ(SumText(wages, {{0, 0, 9, 5}}, kGerman), "Summe 11,945 (3 Zahlen)")
      << "texts, days, flags and the hidden column do not count";
  EXPECT_EQ(SumText(wages, {{0, 2, 0, 2}}, kGerman), "") << "a number is its own sum";
  EXPECT_EQ(SumText(wages, {}, kGerman), "");
  // Ten times 0.1 as floating point would not be 1.
  const Table tenths({{"Betrag"}}, std::vector<Value>(10, 0.1));
  EXPECT_EQ(SumText(tenths, {{0, 0, 9, 0}}, kGerman), "Summe 1,0 (10 Zahlen)");
  const Decimal huge(PowerOfTen(38) - 1, 0);
  EXPECT_EQ(SumText(Table({{"Zahl"}}, {huge, huge}), {{0, 0, 1, 0}}, kGerman), "Summe zu groß (2 Zahlen)");
}

TEST(SelectionSumTest, EachColumnHasItsOwnAndCodesHaveNone) {
  const Table hours({{.caption = "Lohnart", .sums = false}, {"Stunden"}, {"Betrag"}},
                    {Decimal(1010, 0), Decimal(75, 1), Decimal(11130, 2), Decimal(1020, 0), Decimal(8, 0),
                     Decimal(11872, 2)});
  EXPECT_EQ(SumText(hours, {{0, 0, 1, 2}}, kGerman), "Summen: Stunden 15,5 · Betrag 230,02");
  EXPECT_EQ(SumText(hours, {{0, 0, 1, 0}}, kGerman), "");
  const Table gaps({{"Stunden"}, {"Betrag"}}, {Null{}, Decimal(8, 0), Decimal(15, 1), Decimal(9, 0)});
  EXPECT_EQ(SumText(gaps, {{0, 0, 1, 1}}, kGerman), "Summen: Stunden 1,5 · Betrag 17")
      << "also where one row alone has hours";
  const Table units({{.caption = "Menge", .unit = 1}, {.caption = "ME", .sums = false}},
                    {Decimal(8, 0), Text("Stk"), Decimal(15, 1), Text("Stk"), Decimal(9, 0), Text("km"),
                     Null{}, Text("fm")});
  EXPECT_EQ(SumText(units, {{0, 0, 1, 1}, {3, 0, 3, 1}}, kGerman), "Summe 9,5 (2 Zahlen)");
  EXPECT_EQ(SumText(units, {{0, 0, 3, 1}}, kGerman), "") << "pieces and kilometres have none";
}

TEST(ClipboardTextTest, CarriesTheCaptions) {
  const Table wages = Wages();
  EXPECT_EQ(ClipboardText(wages, {{0, 1, 1, 4}}),
            "Nr.\tBetrag\tTag\r\n007\t12,35\t05.03.2024\r\n12\t-0,50\t06.03.2024 13:00:00\r\n");
  EXPECT_EQ(ClipboardText(wages, {{0, 1, 0, 1}}), "007") << "one cell stands alone";
  EXPECT_EQ(ClipboardText(wages, {{0, 1, 0, 1}, {1, 2, 1, 2}}), "Nr.\tBetrag\r\n007\t\r\n\t-0,50\r\n")
      << "between two ranges nothing";
}

TEST(CsvTextTest, BlanksAloneAreNothing) {
  EXPECT_EQ(CsvText(Table({{"Status"}, {"Nr."}}, {Text(" "), Text("7")})),
            "\xEF\xBB\xBFStatus;Nr.\r\n;7\r\n");
}

TEST(CsvTextTest, IsReadByASpreadsheet) {
  EXPECT_EQ(CsvText(Wages()),
            "\xEF\xBB\xBFName;Nr.;Betrag;Tag;Fest\r\n"
            "\"Müller; \"\"Hans\"\"\";007;12,35;05.03.2024;Ja\r\n"
            "\"=1+1\nzwei\";12;-0,50;06.03.2024 13:00:00;Nein\r\n"
            ";\" 3\";0,10;;\r\n");
}

class TableFileTest : public testing::Test {
 protected:
  TableFileTest() : folder_(std::filesystem::temp_directory_path() / ("tables" + std::to_string(getpid()))) {
    std::filesystem::create_directories(folder_);
  }
  ~TableFileTest() override { std::filesystem::remove_all(folder_); }

  // What a shell command prints.
  static std::string Output(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) output += static_cast<char>(c);
    pclose(pipe);
    return output;
  }
  std::string Member(const std::string& name) const {
    return Output("unzip -p " + (folder_ / "t.xlsx").string() + " " + name);
  }

  std::filesystem::path folder_;
};

TEST_F(TableFileTest, AWorkbookKeepsTypes) {
  WriteTableFile(Wages(), FileKind::kXlsx, folder_ / "t.xlsx");
  const std::string sheet = Member("xl/worksheets/sheet1.xml");
  const auto cell = [&](const char* place) {
    std::smatch found;
    const std::regex pattern("<c r=\"" + std::string(place) + "\"([^>]*)>(.*?)</c>");
    return std::regex_search(sheet, found, pattern) ? found[1].str() + found[2].str() : std::string("none");
  };
  EXPECT_EQ(cell("A2"), " t=\"s\"<v>5</v>") << "texts, in the order of their coming";
  EXPECT_EQ(cell("B2"), " t=\"s\"<v>6</v>") << "a code stays text";
  EXPECT_EQ(cell("C2"), " s=\"2\"<v>12.345</v>") << "a number with all its places, and a point";
  EXPECT_EQ(cell("C3"), " s=\"2\"<v>-0.5</v>");
  EXPECT_EQ(cell("C4"), " s=\"2\"<v>0.1</v>");
  EXPECT_EQ(cell("D2"), " s=\"3\"<v>45356</v>") << "a day, in the place of the hidden column";
  EXPECT_THAT(cell("D3"), testing::StartsWith(" s=\"4\"<v>45357.541666"));
  EXPECT_EQ(cell("E2"), " t=\"b\"<v>1</v>");
  EXPECT_EQ(cell("A4"), "none") << "NULL is no cell";
  EXPECT_THAT(Member("xl/sharedStrings.xml"), testing::HasSubstr("=1+1\nzwei"));
  const std::string styles = Member("xl/styles.xml");
  for (const char* format : {"#0.00", "dd.mm.yyyy", "dd.mm.yyyy hh:mm:ss"}) {
    EXPECT_THAT(styles, testing::HasSubstr("formatCode=\"" + std::string(format) + "\""));
  }
}

TEST_F(TableFileTest, WhatASheetCantHoldIsText) {
  const Table table({{"Wert"}}, {*Decimal::Parse("1234567890123.456"), DateTime{1850, 1, 2}, Text("a\x01z")});
  WriteTableFile(table, FileKind::kXlsx, folder_ / "t.xlsx");
  const std::string strings = Member("xl/sharedStrings.xml");
  EXPECT_THAT(strings, testing::HasSubstr("1234567890123.456"));
  EXPECT_THAT(strings, testing::HasSubstr("1850-01-02"));
  EXPECT_THAT(strings, testing::Not(testing::HasSubstr("\x01"))) << "no file with it could be read";
}

TEST_F(TableFileTest, AFailureLeavesTheFileAsItWas) {
  const auto file = folder_ / "t.xlsx";
  std::ofstream(file) << "alt";
  const Table too_long({{"Text"}}, {std::string(40'000, 'x')});
  EXPECT_THROW(WriteTableFile(too_long, FileKind::kXlsx, file), std::runtime_error);
  EXPECT_EQ(std::filesystem::file_size(file), 3U);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1) << "nothing half left over";
  for (const FileKind kind : {FileKind::kCsv, FileKind::kXlsx}) {
    EXPECT_THROW(WriteTableFile(Wages(), kind, folder_ / "fehlt" / "t"), std::runtime_error);
  }
}

TEST_F(TableFileTest, TheUserNamesTheFile) {
  const auto file = folder_ / "liste";
  WhenOpen([&](QDialog& dialog) {
    EXPECT_EQ(Part<QLineEdit>(dialog, "fileNameEdit").text(), "Löhne 3_2024.csv");
    Part<QLineEdit>(dialog, "fileNameEdit").setText(ToQt(file.string()));
    Press(dialog, Qt::Key_Return);
  });
  test::QuietToolkit toolkit;
  Environment environment{.toolkit = &toolkit};
  const EnvironmentScope scope(environment);
  ExportTable(nullptr, Wages(), "Löhne 3/2024", FileKind::kCsv);
  EXPECT_EQ(toolkit.LastTold(), "3 Zeilen in „" + file.string() + ".csv“ gespeichert.");
  EXPECT_GT(std::filesystem::file_size(folder_ / "liste.csv"), 50U);
}

}  // namespace
}  // namespace tarvoni::qt
