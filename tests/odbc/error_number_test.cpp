#include "platform/odbc/error_number.h"

#include <gtest/gtest.h>

#include "src/context/data/database_error.h"

namespace tarvoni::odbc {
namespace {

TEST(ErrorNumber, AServersOwnNumberStandsUnlessTheConnectionFailed) {
  EXPECT_EQ(ErrorNumber({"42000", 156, "Incorrect syntax", 1}, Dialect::kTsqlServer), 156);
  EXPECT_EQ(ErrorNumber({"23000", 2601, "duplicate", 1}, Dialect::kTsqlServer), 2601);
  EXPECT_EQ(ErrorNumber({"08S01", 20006, "Write failed"}, Dialect::kTsqlServer), kErrorConnection);
  EXPECT_EQ(ErrorNumber({"22003", 0, "the driver's own"}, Dialect::kTsqlServer), 8115);
}

TEST(ErrorNumber, OtherDriversAreUnderstoodByTheirState) {
  const auto number = [](const char* state, const char* message) {
    return ErrorNumber({state, 7, message}, Dialect::kOther);
  };
  EXPECT_EQ(number("23000", "duplicate key value"), 2627);
  EXPECT_EQ(number("23503", "violates foreign key constraint"), 547);
  EXPECT_EQ(number("23502", "null value in column"), 515);
  EXPECT_EQ(number("42S02", ""), 208);
  EXPECT_EQ(number("42S22", ""), 207);
  EXPECT_EQ(number("42S01", ""), 2714);
  EXPECT_EQ(number("42000", ""), 102);
  EXPECT_EQ(number("22012", ""), 8134);
  EXPECT_EQ(number("22018", ""), 245);
  EXPECT_EQ(number("22003", ""), 8115);
  EXPECT_EQ(number("08003", ""), kErrorConnection);
  EXPECT_EQ(number("HYT00", ""), kErrorBusy);
  EXPECT_EQ(number("XX000", "unheard of"), 7);
}

TEST(ErrorNumber, TheNamesOfDriverAndManagerAreNoPartOfTheMessage) {
  EXPECT_EQ(PlainMessage({"42000", 102, "[FreeTDS][SQL Server]Incorrect syntax near [x]."}),
            "Incorrect syntax near [x].");
  EXPECT_EQ(PlainMessage({"42000", 102, "[nur das"}), "[nur das");
  EXPECT_EQ(PlainMessage({"42000", 102, "[SQLite]"}), "[SQLite]");
}

}  // namespace
}  // namespace tarvoni::odbc
