#include "platform/qt/pick_rows.h"

#include "tests/qt_dialogs/dialog_testing.h"

namespace tarvoni::qt {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PickRowsTest : public testing::Test {
 protected:
  // The codes of the rows a filter shows.
  std::vector<std::string> Shown(const char* typed) {
    best_ = rows_.Filter(typed);
    return Codes();
  }
  std::vector<std::string> Codes() const {
    std::vector<std::string> codes;
    for (int row = 0; row < rows_.RowCount(); ++row) codes.push_back(rows_.TextAt(row, 0));
    return codes;
  }

  PickRows rows_{OrdersToPick(), Locale::German()};
  int best_ = -1;
};

TEST_F(PickRowsTest, TheBestFitStandsFirst) {
  // The code itself, codes that begin so, then inside a cell; "Pflege 12" has it inside only.
  EXPECT_THAT(Shown("12"), ElementsAre("12", "120", "1"));
  // The code, codes that begin so, another cell's front, inside.
  EXPECT_THAT(Shown("1"), ElementsAre("1", "12", "120", "X1"));
  EXPECT_THAT(Shown("w"), ElementsAre("X1", "120"));
  EXPECT_THAT(Shown(" pfl "), ElementsAre("1"));
  EXPECT_THAT(Shown("pflege  12"), ElementsAre("1")) << "words apart";
  EXPECT_THAT(Shown("gatter mueller"), ElementsAre("2"));
  EXPECT_THAT(Shown("gatter käfer"), IsEmpty());
  EXPECT_EQ(best_, -1);
  EXPECT_THAT(Shown("901"), IsEmpty()) << "a hidden column";
  EXPECT_EQ(Shown("").size(), rows_.AllRows());
}

TEST_F(PickRowsTest, CaseAndUmlautsDoNotMatter) {
  EXPECT_THAT(Shown("KÄFER"), ElementsAre("12"));
  EXPECT_THAT(Shown("kaefer"), ElementsAre("12"));
  EXPECT_THAT(Shown("kafer"), ElementsAre("12"));
  EXPECT_THAT(Shown("müller"), ElementsAre("120", "2"));
  EXPECT_THAT(Shown("mueller"), ElementsAre("120", "2"));
  EXPECT_THAT(Shown("muller"), ElementsAre("120"));
}

TEST_F(PickRowsTest, NumbersShareTheirPlaces) {
  EXPECT_EQ(rows_.TextAt(0, 2), "12,55");
  EXPECT_EQ(rows_.TextAt(1, 2), "7,50");
  EXPECT_EQ(rows_.TextAt(3, 2), "-3,00");
  EXPECT_EQ(rows_.ColumnAt(2).alignment, Alignment::kRight);
}

TEST_F(PickRowsTest, SortingByAHeadKeepsRowsOfTheStatement) {
  rows_.SortBy(2);
  EXPECT_THAT(Codes(), ElementsAre("120", "2", "1", "12", "X1")) << "NULL first, then by value";
  EXPECT_EQ(rows_.StatementRow(0), 2U);
  rows_.SortBy(2);
  EXPECT_THAT(Codes(), ElementsAre("X1", "12", "1", "2", "120"));
  // The order the user chose holds, and the best fit is where to stand.
  EXPECT_THAT(Shown("1"), ElementsAre("X1", "12", "1", "120"));
  EXPECT_EQ(rows_.StatementRow(best_), 1U);
  EXPECT_EQ(rows_.ShownRow(2), 3);
  EXPECT_EQ(rows_.ShownRow(3), std::nullopt);
}

TEST_F(PickRowsTest, CodesFindTheirRows) {
  EXPECT_EQ(rows_.StartRow("120"), 2U);
  EXPECT_EQ(rows_.StartRow(" x1 "), 4U);
  EXPECT_EQ(rows_.StartRow("x"), 4U) << "the first that begins so";
  EXPECT_EQ(rows_.StartRow("77"), 0U);
  EXPECT_EQ(rows_.RowOfCode("x1 "), 4U);
  EXPECT_EQ(rows_.RowOfCode("x"), std::nullopt);
  EXPECT_EQ(rows_.RowOfCode(" "), std::nullopt);

  PickRequest by_id = OrdersToPick();
  by_id.code_column = 0;
  const PickRows rows(by_id, Locale::German());
  EXPECT_EQ(rows.StartRow("903"), 2U);
  EXPECT_EQ(rows.RowOfCode("903"), std::nullopt) << "nobody types what he can't see";

  EXPECT_EQ(PickRows({}, Locale::German()).StartRow("1"), std::nullopt);
}

}  // namespace
}  // namespace tarvoni::qt
