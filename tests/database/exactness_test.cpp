#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <vector>

#include "src/context/values/decimal.h"
#include "tests/database/function_testing.h"

// Money to the cent: a million random lines of work are multiplied, rounded and summed by statements, and beside them by
// arithmetic that shares nothing with the functions.
namespace tarvoni::sqlite {
namespace {

constexpr int kLines = 1'000'000;

// One line in units of the last place: hours and percentages have two places, rates four, amounts two.
struct Line {
  std::int64_t hours;
  std::int64_t rate;
  std::int64_t percent;
  std::int64_t amount;
};

// What the statements are to give for a line, in cents.
struct Result {
  std::int64_t wage;
  std::int64_t share;
};

std::int64_t HalfAwayFromZero(std::int64_t value, std::int64_t unit) {
  const std::int64_t size = value < 0 ? -value : value;
  const std::int64_t rounded = size / unit + (size % unit * 2 >= unit ? 1 : 0);
  return value < 0 ? -rounded : rounded;
}

Result Expected(const Line& line) {
  // The share of 99,999,999.99 at 999.99 % still fits 64 bits.
  return {HalfAwayFromZero(line.hours * line.rate, 10'000),
          HalfAwayFromZero(line.amount * line.percent, 10'000)};
}

// Every third line ends in a half cent, where floating point errs.
Line RandomLine(std::mt19937_64& random) {
  const auto number = [&random](std::int64_t limit) {
    return static_cast<std::int64_t>(random() % (2 * static_cast<std::uint64_t>(limit) + 1)) - limit;
  };
  Line line = {number(999'999), number(9'999'999), number(99'999), number(9'999'999'999)};
  if (random() % 3 == 0) {
    line.hours = line.hours / 100 * 100 + 50;
    line.rate = line.rate / 100 * 100 + 100 * (line.rate % 2);
    line.percent = 50;
  }
  return line;
}

// The lines, in a table of their own.
struct Work {
  Work() {
    database.Run("CREATE TABLE work (hours, rate, percent, amount); BEGIN");
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(database.Raw(), "INSERT INTO work VALUES (?1,?2,?3,?4)", -1, &insert, nullptr);
    std::mt19937_64 random(9);
    lines.reserve(kLines);
    for (int i = 0; i < kLines; ++i) {
      const Line& line = lines.emplace_back(RandomLine(random));
      int place = 0;
      for (const std::int64_t value : {line.hours, line.rate, line.percent, line.amount}) {
        sqlite3_bind_int64(insert, ++place, value);
      }
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
  }

  FunctionDatabase database;
  std::vector<Line> lines;
};

class ExactnessTest : public ::testing::Test {
 protected:
  static void SetUpTestSuite() { work = std::make_unique<Work>(); }
  static void TearDownTestSuite() { work.reset(); }

  static std::unique_ptr<Work> work;
};

std::unique_ptr<Work> ExactnessTest::work;

TEST_F(ExactnessTest, NoLineDiffersByACent) {
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(
      work->database.Raw(),
      "SELECT ts_round(hours*rate,6,2,38)/10000,ts_exact_mul(hours,rate,4),"
      "ts_round(ts_exact_div(ts_exact_mul(amount,percent,0),100,2),6,2,38)/10000 FROM work ORDER BY rowid",
      -1, &statement, nullptr);
  int halves = 0;
  for (const Line& line : work->lines) {
    ASSERT_EQ(sqlite3_step(statement), SQLITE_ROW);
    const Result expected = Expected(line);
    ASSERT_EQ(sqlite3_column_int64(statement, 0), expected.wage) << line.hours << '*' << line.rate;
    ASSERT_EQ(sqlite3_column_int64(statement, 1), expected.wage) << line.hours << '*' << line.rate;
    ASSERT_EQ(sqlite3_column_int64(statement, 2), expected.share) << line.amount << '*' << line.percent;
    halves += line.hours * line.rate % 10'000 * 2 % 10'000 == 0 && line.hours * line.rate % 10'000 != 0;
  }
  sqlite3_finalize(statement);
  EXPECT_GT(halves, kLines / 10) << "the lines hold what rounding is about";
}

TEST_F(ExactnessTest, SumsAreExact) {
  std::int64_t wages = 0, shares = 0, products = 0, amounts = 0;
  for (const Line& line : work->lines) {
    wages += Expected(line).wage;
    shares += Expected(line).share;
    products += line.hours * line.rate;
    amounts += line.amount;
  }
  const auto texts = [](std::initializer_list<std::int64_t> numbers) {
    std::string row;
    for (const std::int64_t number : numbers) row += (row.empty() ? "" : " ") + std::to_string(number);
    return row;
  };
  EXPECT_EQ(work->database.Ask(
                "SELECT SUM(ts_round(hours*rate,6,2,38))/10000,ts_exact_sum(ts_exact_mul(amount,percent,4)),"
                "SUM(hours*rate),ts_exact_sum(hours*rate),SUM(amount),ts_round(SUM(hours*rate),6,2,38)/10000 "
                "FROM work"),
            texts({wages, shares, products, products, amounts, HalfAwayFromZero(products, 10'000)}));
}

}  // namespace
}  // namespace tarvoni::sqlite
