#include "host/output.h"

#include <gtest/gtest.h>

namespace tarvoni::host {
namespace {

Recordset Sample() {
  RowSet rows;
  rows.columns = {{"NUMMER", FieldType::kInteger, 0},
                  {"NAME", FieldType::kVarWChar, 40},
                  {"SATZ", FieldType::kNumeric, 0},
                  {"", FieldType::kDbTimeStamp, 0},
                  {"NAME", FieldType::kVarWChar, 40}};
  rows.cells = {std::int64_t{7},
                std::string("Öllinger, \"Franz\""),
                Decimal(1250, 2),
                DateTime{2024, 2, 29},
                std::string(),
                std::int64_t{1010},
                std::string("林道\n€ 3"),
                Null{},
                Null{},
                Null{}};
  return Recordset(std::move(rows));
}

TEST(Output, TableAlignsByWidthOnTheTerminal) {
  EXPECT_EQ(FormatTable(Sample()),
            "NUMMER | NAME              | SATZ |            | NAME\n"
            "-------+-------------------+------+------------+-----\n"
            "     7 | Öllinger, \"Franz\" | 12.5 | 2024-02-29 |\n"
            "  1010 | 林道\\n€ 3         | NULL | NULL       | NULL\n"
            "(2 Zeilen)\n");
}

TEST(Output, CsvQuotesWhatNeedsItAndTellsNullFromEmpty) {
  EXPECT_EQ(FormatCsv(Sample()),
            "NUMMER,NAME,SATZ,\"\",NAME\n"
            "7,\"Öllinger, \"\"Franz\"\"\",12.5,2024-02-29,\"\"\n"
            "1010,\"林道\n€ 3\",,,\n");
}

TEST(Output, JsonKeepsTypesAndNamesColumnsOnce) {
  EXPECT_EQ(
      FormatJson(Sample()),
      "[\n"
      "{\"NUMMER\": 7, \"NAME\": \"Öllinger, \\\"Franz\\\"\", \"SATZ\": 12.5, \"Spalte\": \"2024-02-29\", "
      "\"NAME_2\": \"\"},\n"
      "{\"NUMMER\": 1010, \"NAME\": \"林道\\n€ 3\", \"SATZ\": null, \"Spalte\": null, \"NAME_2\": null}\n"
      "]\n");
}

TEST(Output, EmptyResultStillShowsItsColumns) {
  const Recordset empty(RowSet{{{"ID", FieldType::kInteger, 0}}, {}});
  EXPECT_EQ(FormatTable(empty), "ID\n--\n(0 Zeilen)\n");
  EXPECT_EQ(FormatCsv(empty), "ID\n");
  EXPECT_EQ(FormatJson(empty), "[\n]\n");
}

TEST(Output, JsonEscapesControlCharactersAndWritesFloatsAndFlags) {
  const Recordset rows(
      RowSet{{{"T", FieldType::kVarWChar, 9}, {"F", FieldType::kDouble, 0}, {"B", FieldType::kBoolean, 0}},
             {std::string("a\\b\x01\t"), 0.1, true}});
  EXPECT_EQ(FormatJson(rows), "[\n{\"T\": \"a\\\\b\\u0001\\t\", \"F\": 0.1, \"B\": true}\n]\n");
}

}  // namespace
}  // namespace tarvoni::host
