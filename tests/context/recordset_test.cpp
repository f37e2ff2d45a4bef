#include "src/context/data/recordset.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/data/database.h"
#include "src/context/data/database_error.h"
#include "src/context/data/handler_scope.h"

namespace tarvoni {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

DateTime Day(const char* iso) {
  return DateTime::FromIso(iso).value();
}

// Fields of every kind, with NULL among them.
Recordset Trees() {
  RowSet rows;
  rows.columns = {{"NR", FieldType::kInteger, 0},     {"ART", FieldType::kVarWChar, 10},
                  {"HOEHE", FieldType::kNumeric, 0},  {"ALTER", FieldType::kDouble, 0},
                  {"AM", FieldType::kDbTimeStamp, 0}, {"SPERRE", FieldType::kBoolean, 0},
                  {"nr", FieldType::kInteger, 0}};
  const auto add = [&rows](int nr, Value art, Value height, Value age, Value day, Value locked) {
    rows.cells.insert(rows.cells.end(),
                      {std::int64_t{nr}, std::move(art), height, age, day, locked, std::int64_t{-nr}});
  };
  add(1, "Lärche", Decimal(315, 1), 80.5, Day("2024-02-29"), false);
  add(2, "larche", Decimal(2800, 2), 7.0, Day("2023-05-15"), true);
  add(3, Null{}, Null{}, Null{}, Null{}, Null{});
  add(4, "LÄRCHE  ", Decimal(-5, 0), 60.0, Day("2024-02-29 13:45:00"), true);
  add(5, "O'Ahorn", Decimal(280, 1), 7.0, Day("1900-01-01"), false);
  return Recordset(std::move(rows));
}

Recordset Nothing() {
  return Recordset(RowSet{{{"NR", FieldType::kInteger, 0}}, {}});
}

std::vector<int> Numbers(Recordset rows) {
  std::vector<int> numbers;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    numbers.push_back(static_cast<int>(std::get<std::int64_t>(rows.Fields()["NR"].Value())));
  }
  return numbers;
}

template <typename Action>
int ErrorOf(Action action) {
  try {
    action();
  } catch (const DatabaseError& error) {
    return error.Number();
  }
  return 0;
}

TEST(RecordsetTest, MovesStopAtBothEnds) {
  Recordset rows = Trees();
  EXPECT_EQ(rows.AbsolutePosition(), 1);
  EXPECT_FALSE(rows.BeginOfFile() || rows.EndOfFile());
  rows.MovePrevious();
  EXPECT_TRUE(rows.BeginOfFile());
  EXPECT_FALSE(rows.EndOfFile());
  EXPECT_EQ(rows.AbsolutePosition(), Recordset::kPositionBof);
  EXPECT_EQ(ErrorOf([&] { rows.MovePrevious(); }), kErrorNoCurrentRow);
  EXPECT_EQ(ErrorOf([&] { rows.Fields()["NR"].Value(); }), kErrorNoCurrentRow);
  rows.MoveNext();
  EXPECT_EQ(rows.AbsolutePosition(), 1);

  rows.MoveLast();
  EXPECT_EQ(rows.AbsolutePosition(), 5);
  rows.MoveNext();
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_EQ(rows.AbsolutePosition(), Recordset::kPositionEof);
  EXPECT_EQ(ErrorOf([&] { rows.MoveNext(); }), kErrorNoCurrentRow);
  EXPECT_EQ(ErrorOf([&] { rows.Fields()[0].Value(); }), kErrorNoCurrentRow);
  rows.MovePrevious();
  EXPECT_EQ(rows.AbsolutePosition(), 5);
}

TEST(RecordsetTest, MovesByMany) {
  Recordset rows = Trees();
  rows.Move(3);
  EXPECT_EQ(rows.AbsolutePosition(), 4);
  rows.Move(0);
  rows.Move(-2);
  EXPECT_EQ(rows.AbsolutePosition(), 2);
  rows.Move(std::numeric_limits<long>::max());
  EXPECT_TRUE(rows.EndOfFile());
  rows.Move(std::numeric_limits<long>::min());
  EXPECT_TRUE(rows.BeginOfFile());
  rows.SetAbsolutePosition(5);
  EXPECT_EQ(Numbers(rows), std::vector<int>{5});
  EXPECT_EQ(ErrorOf([&] { rows.SetAbsolutePosition(0); }), kErrorInvalidArgument);
  EXPECT_EQ(ErrorOf([&] { rows.SetAbsolutePosition(6); }), kErrorInvalidArgument);
}

TEST(RecordsetTest, EmptyHasBothEndsAtOnce) {
  Recordset rows = Nothing();
  EXPECT_TRUE(rows.BeginOfFile() && rows.EndOfFile());
  EXPECT_EQ(rows.Fields().Count(), 1);
  for (const auto move :
       {&Recordset::MoveFirst, &Recordset::MoveLast, &Recordset::MoveNext, &Recordset::MovePrevious}) {
    EXPECT_EQ(ErrorOf([&] { (rows.*move)(); }), kErrorNoCurrentRow);
  }
  rows.Find("NR = 1");
  rows.Sort("NR");
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_THAT(rows.GetRows(), IsEmpty());
}

TEST(RecordsetTest, ClosedRefusesEverything) {
  Recordset rows = Trees();
  rows.Close();
  EXPECT_FALSE(rows.IsOpen());
  EXPECT_EQ(ErrorOf([&] { rows.EndOfFile(); }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.MoveFirst(); }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.Find("NR = 1"); }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.Sort(""); }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.Clone(); }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.Fields()["NR"]; }), kErrorObjectClosed);
  EXPECT_EQ(ErrorOf([&] { rows.Close(); }), kErrorObjectClosed);
}

TEST(RecordsetTest, FieldsByNameAndNumber) {
  const Recordset rows = Trees();
  EXPECT_EQ(rows.Fields().Count(), 7);
  EXPECT_EQ(rows.Fields()["art"].Name(), "ART");
  EXPECT_EQ(rows.Fields()["Art"].DefinedSize(), 10);
  EXPECT_EQ(rows.Fields()[2].Type(), FieldType::kNumeric);
  EXPECT_EQ(rows.Fields()["nr"].Value(), Value(std::int64_t{1})) << "the first of two NR";
  EXPECT_EQ(ErrorOf([&] { rows.Fields()["NAME"]; }), kErrorItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows.Fields()[7]; }), kErrorItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows.Fields()[-1]; }), kErrorItemNotFound);
}

struct FindCase {
  const char* criterion;
  int position;
};

TEST(RecordsetTest, FindsFromTheCurrentRow) {
  constexpr int kNone = Recordset::kPositionEof;
  const FindCase cases[] = {
      {"NR = 4", 4},
      {"nr=4", 4},
      {"[NR] >= 2.5", 3},
      {"NR = '5'", 5},
      {"NR <> 1", 2},
      {"NR > 5", kNone},
      {"ART = 'lÄrche'", 1},
      {"ART = 'larche '", 2},
      {"ART = 'O''AHORN'", 5},
      {"ART > 'm'", 5},
      {"ART > 4", 1},
      {"ART = NULL", 3},
      {"ART <> null", 1},
      {"HOEHE = 28", 2},
      {"HOEHE < -4.99", 4},
      {"HOEHE = 'hoch'", kNone},
      {"ALTER = 6e1", 4},
      {"AM = '2024-02-29'", 1},
      {"AM > '2024-02-29'", 4},
      {"SPERRE = 1", 2},
  };
  for (const auto& [criterion, position] : cases) {
    Recordset rows = Trees();
    rows.Find(criterion);
    EXPECT_EQ(rows.AbsolutePosition(), position) << criterion;
  }
  Recordset rows = Trees();
  rows.MoveNext();
  rows.Find("ART = 'Lärche'");
  EXPECT_EQ(rows.AbsolutePosition(), 4) << "the search begins at the current row";
  rows.Find("ART = NULL");
  EXPECT_TRUE(rows.EndOfFile()) << "and does not turn back";
}

TEST(RecordsetTest, NullIsUnequalToNothing) {
  Recordset rows = Trees();
  rows.SetAbsolutePosition(3);
  rows.Find("ART <> 'x'");
  EXPECT_EQ(rows.AbsolutePosition(), 4);
}

TEST(RecordsetTest, RefusesWhatIsNoCriterion) {
  Recordset rows = Trees();
  for (const char* criterion :
       {"", "NR", "NR = ", "= 1", "NR = x", "ART = 'a", "ART = 'a'b'", "NR = 1 2", "NR == 1"}) {
    EXPECT_EQ(ErrorOf([&] { rows.Find(criterion); }), kErrorInvalidArgument) << criterion;
  }
  EXPECT_EQ(ErrorOf([&] { rows.Find("NAME = 1"); }), kErrorItemNotFound);
  EXPECT_EQ(ErrorOf([&] { rows.Find("[A<B] = 1"); }), kErrorItemNotFound);
  EXPECT_EQ(rows.AbsolutePosition(), 1);
}

TEST(RecordsetTest, SortsStably) {
  const std::pair<const char*, std::vector<int>> cases[] = {
      {"NR DESC", {5, 4, 3, 2, 1}},
      {"ART", {3, 2, 1, 4, 5}},
      {"art desc", {5, 1, 4, 2, 3}},
      {"HOEHE", {3, 4, 2, 5, 1}},
      {"ALTER ASC, NR DESC", {3, 5, 2, 4, 1}},
      {"[AM] DESC", {4, 1, 2, 5, 3}},
      {"SPERRE,ALTER", {3, 5, 1, 2, 4}},
  };
  Recordset rows = Trees();
  for (const auto& [columns, expected] : cases) {
    rows.MoveLast();
    rows.Sort(columns);
    EXPECT_EQ(Numbers(rows), expected) << columns;
  }
  EXPECT_EQ(ErrorOf([&] { rows.Sort("NR UP"); }), kErrorItemNotFound);
  rows.Sort("");
  EXPECT_THAT(Numbers(rows), ElementsAre(1, 2, 3, 4, 5));
}

TEST(RecordsetTest, SortsByNumberWhereAColumnHasNoName) {
  Recordset rows(
      RowSet{{{"NR", FieldType::kInteger, 0}, {"", FieldType::kInteger, 0}, {"", FieldType::kInteger, 0}},
             {std::int64_t{1}, std::int64_t{7}, std::int64_t{5},  //
              std::int64_t{2}, std::int64_t{7}, std::int64_t{9},  //
              std::int64_t{3}, std::int64_t{4}, std::int64_t{8}}});
  rows.MoveLast();
  rows.Sort(2);
  EXPECT_EQ(rows.AbsolutePosition(), 1);
  EXPECT_THAT(Numbers(rows), ElementsAre(1, 3, 2));
  rows.Sort(1, SortOrder::kDescending);
  EXPECT_THAT(Numbers(rows), ElementsAre(1, 2, 3)) << "equals stay in the statement's order";
  EXPECT_EQ(ErrorOf([&] { rows.Sort(3); }), kErrorItemNotFound);
  EXPECT_EQ(ErrorOf([] { Recordset().Sort(0); }), kErrorObjectClosed);
}

template <typename Rows>
concept GivesFields = requires(Rows&& rows) {
  std::forward<Rows>(rows).Fields();
};

static_assert(GivesFields<const Recordset&>);
static_assert(!GivesFields<Recordset>, "the fields of a temporary would dangle");

TEST(RecordsetTest, SortingKeepsTheOrderOfEquals) {
  RowSet many{{{"NR", FieldType::kInteger, 0}, {"GRUPPE", FieldType::kInteger, 0}}, {}};
  for (int i = 0; i < 100; ++i) many.cells.insert(many.cells.end(), {std::int64_t{i}, std::int64_t{i % 2}});
  Recordset rows(std::move(many));
  rows.Sort("GRUPPE");
  const std::vector<int> numbers = Numbers(rows);
  EXPECT_TRUE(std::is_sorted(numbers.begin(), numbers.begin() + 50));
  EXPECT_TRUE(std::is_sorted(numbers.begin() + 50, numbers.end()));
}

TEST(RecordsetTest, ClonesStandOnTheirOwn) {
  Recordset rows = Trees();
  rows.Sort("NR DESC");
  rows.MoveLast();
  Recordset clone = rows.Clone();
  EXPECT_THAT(Numbers(clone), ElementsAre(1, 2, 3, 4, 5));
  rows.Close();
  clone.MoveLast();
  EXPECT_EQ(clone.Fields()["NR"].Value(), Value(std::int64_t{5}));
}

TEST(RecordsetTest, GetRowsTakesTheRest) {
  Recordset rows = Trees();
  rows.Sort("NR DESC");
  rows.Move(3);
  const auto taken = rows.GetRows();
  ASSERT_EQ(taken.size(), 2u);
  EXPECT_EQ(taken[0][0], Value(std::int64_t{2}));
  EXPECT_EQ(taken[1][1], Value(std::string("Lärche")));
  EXPECT_TRUE(rows.EndOfFile());
  EXPECT_THAT(rows.GetRows(), IsEmpty());
}

class CountingConnection : public Connection {
 public:
  long long Execute(const SqlText&) override { return -1; }
  Recordset Open(const SqlText&) override { return {}; }
  void OpenAll(const SqlText&, const std::function<void(const BatchPart&)>&) override {}
  const std::string& ConnectionString() const override { return text_; }
  void BeginHandler() override { ++depth; }
  void EndHandler() override {
    --depth;
    if (fails) throw DatabaseError(kErrorDiskFull, "voll");
  }
  void CommitHandler() override {}
  void SetTraceHook(TraceHook) override {}

  int depth = 0;
  bool fails = false;

 private:
  std::string text_;
};

TEST(HandlerScopeTest, EndsOnceOnEveryWay) {
  CountingConnection connection;
  {
    HandlerScope scope(connection);
    EXPECT_EQ(connection.depth, 1);
    scope.Finish();
    EXPECT_EQ(connection.depth, 0);
  }
  EXPECT_EQ(connection.depth, 0);

  connection.fails = true;
  HandlerScope outer(connection);
  EXPECT_EQ(ErrorOf([&] { outer.Finish(); }), kErrorDiskFull);
  EXPECT_EQ(connection.depth, 0);
  const auto handler = [&connection] {
    HandlerScope scope(connection);
    throw DatabaseError(547, "Verweis");
  };
  EXPECT_EQ(ErrorOf(handler), 547) << "the handler's error wins over the commit's";
  EXPECT_EQ(connection.depth, 0);
}

}  // namespace
}  // namespace tarvoni
