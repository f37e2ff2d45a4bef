#include <gmock/gmock.h>

#include "src/context/controls/data_control.h"
#include "src/context/data/statement.h"
#include "src/context/values/clock.h"
#include "suite/delete_guard.h"
#include "suite/description_editor.h"
#include "suite/grid_layout_store.h"
#include "suite/lookup_dialog.h"
#include "suite/month_picker.h"
#include "suite/person_picker.h"
#include "suite/waldort_dialog.h"
#include "tests/suite/suite_testing.h"

namespace tarvoni {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Column `column` of a request's rows.
std::vector<std::string> ColumnOf(const PickRequest& request, int column) {
  std::vector<std::string> texts;
  for (Recordset rows = request.rows; !rows.EndOfFile(); rows.MoveNext())
    texts.push_back(FieldText(rows.Fields()[column].Value(), "", CurrentLocale()));
  return texts;
}

// A list that keeps what it was asked and takes the row with this code; "" cancels.
class List {
 public:
  explicit List(test::QuietToolkit& toolkit) {
    toolkit.pick = [this](const PickRequest& request) {
      asked.push_back(request);
      if (std::exchange(press_extra, false)) return PickResult{.row = {}, .extra = true};
      const auto codes = ColumnOf(request, request.code_column);
      const auto found = std::ranges::find(codes, code);
      if (found == codes.end()) return PickResult();
      return PickResult{.row = static_cast<std::size_t>(found - codes.begin()), .extra = false};
    };
  }

  std::string code;
  bool press_extra = false;
  std::vector<PickRequest> asked;
};

class Lookup : public test::SuiteTest {
 protected:
  Lookup() {
    db->Execute(
        "INSERT INTO KOSTENART (NUMBER, NAME, TABLE_NAME) VALUES (4300, 'Treibstoff', 'A'), (4000, 'Löhne', "
        "'A'),"
        " (4000, 'Löhne', 'B')");
  }

  suite::LookupDialog dialog;
  List list{toolkit};
  const SqlText codes = "SELECT NUMBER, NAME,TABLE_NAME FROM KOSTENART ORDER BY NUMBER";
  const SqlText ids = "SELECT ID, NUMBER , NAME, TABLE_NAME FROM KOSTENART ORDER BY ID";
};

TEST_F(Lookup, GivesTheCodeOfTheChosenRow) {
  list.code = "4300";
  EXPECT_EQ(dialog.Pick(context, codes, "Kostenart", " 4000", "000"), "4300");
  const PickRequest& request = list.asked.at(0);
  EXPECT_EQ(request.caption, "Kostenart");
  EXPECT_EQ(request.start_text, "4000");
  EXPECT_EQ(request.code_column, 0);
  EXPECT_EQ(request.hidden_columns, 0);
  EXPECT_THAT(ColumnOf(request, 1), ElementsAre("Löhne", "Löhne", "Treibstoff"));
}

TEST_F(Lookup, HiddenIdIsTheResultAndTheCodeIsTyped) {
  list.code = "4000";
  EXPECT_EQ(dialog.Pick(context, ids, "KOSTENART", "1", "100"), "2");
  const PickRequest& request = list.asked.at(0);
  EXPECT_EQ(request.code_column, 1);
  EXPECT_EQ(request.hidden_columns, 1);
  EXPECT_EQ(request.start_text, "4300") << "the code of the id";
}

TEST_F(Lookup, CancelKeepsTheText) {
  EXPECT_EQ(dialog.Pick(context, codes, "", "47", ""), "47");
  EXPECT_EQ(dialog.Pick(context, ids, "", "0", "100"), "0");
  EXPECT_EQ(dialog.Pick(context, Compose("{} DESC", codes), "", "", ""), "");
  EXPECT_EQ(list.asked.at(0).start_text, "47");
}

TEST_F(Lookup, OnlyAnIdIsHidden) {
  list.code = "4300";
  EXPECT_EQ(dialog.Pick(context, codes, "", "", "100"), "4300") << "a list that begins with its code";
  EXPECT_EQ(list.asked.at(0).hidden_columns, 0);
  list.code = "2";
  EXPECT_EQ(dialog.Pick(context, ids, "", "", "000"), "2");
  EXPECT_EQ(list.asked.at(1).hidden_columns, 0);
  EXPECT_EQ(dialog.Pick(context, "SELECT ID FROM KOSTENART", "", "", "100"), "2");
  EXPECT_EQ(list.asked.at(2).hidden_columns, 0) << "a single column stays in sight";
}

TEST_F(Lookup, FurtherButtonGivesItsName) {
  list.press_extra = true;
  EXPECT_EQ(dialog.Pick(context, ids, "", "", "102"), "&New");
  EXPECT_EQ(list.asked.at(0).extra_button, "&Neu");
  EXPECT_EQ(list.asked.at(0).hidden_columns, 1) << "the id, as with 100";
  list.code = "4300";
  EXPECT_EQ(dialog.Pick(context, codes, "", "", "102"), "4300");
  for (const char* option : {"", "100", "000", "10"}) dialog.Pick(context, codes, "", "", option);
  for (std::size_t i = 2; i < list.asked.size(); ++i) EXPECT_EQ(list.asked[i].extra_button, "") << i;
}

TEST_F(Lookup, DateModeGivesADay) {
  std::optional<DateTime> start;
  std::optional<DateTime> answer = DateTime{2024, 3, 5};
  toolkit.pick_date = [&](const std::optional<DateTime>& from) {
    start = from;
    return answer;
  };
  EXPECT_EQ(dialog.Pick(context, "DATUM", "Stornodatum", "01.03.2024", "1"), "05.03.2024");
  EXPECT_EQ(start, (DateTime{2024, 3, 1}));
  answer.reset();
  EXPECT_EQ(dialog.Pick(context, "DATUM", "Stornodatum", "", "1"), "");
  EXPECT_EQ(start, std::nullopt);
}

struct Lists : Form {
  Lists() : Form("Lists") { grid.Bind(data); }
  // A grid that a Screen has just filled, its columns as wide as ever.
  DataGrid& Show(const SqlText& statement) {
    data.SetConnectionString("tables");
    data.SetRecordSource(statement);
    data.Refresh();
    return grid;
  }
  std::vector<int> Widths() {
    std::vector<int> widths;
    for (const GridColumn& column : grid.Columns()) widths.push_back(column.Width());
    return widths;
  }

  DataControl data{*this, "data"};
  DataGrid grid{*this, "grid"};
  FlexGrid flex{*this, "flex"};
};

class Layouts : public test::SuiteTest {
 protected:
  void Keep(const std::vector<int>& widths) {
    Grid& grid = lists.Show(kStatement);
    for (int i = 0; i < grid.Columns().Count(); ++i) grid.Columns()[i].SetWidth(widths.at(i));
    store.SaveLayout(context, "F_A", grid);
  }

  static constexpr SqlText kStatement = "SELECT ID, NUMBER, NAME FROM PRODUKT";
  static constexpr int kDefault = GridColumn::kDefaultWidth;
  suite::GridLayoutStore store;
  Lists lists;
};

TEST_F(Layouts, WidthsComeBackUnderTheirKey) {
  Keep({0, 900, 4400});
  Keep({0, 950, 4400});
  store.LoadLayout(context, "F_A", lists.Show(kStatement));
  EXPECT_THAT(lists.Widths(), ElementsAre(0, 950, 4400));
  store.LoadLayout(context, "F_B", lists.Show(kStatement));
  EXPECT_THAT(lists.Widths(), ElementsAre(kDefault, kDefault, kDefault));
}

TEST_F(Layouts, WidthsFindTheColumnsOfAChangedStatement) {
  Keep({0, 900, 4400});
  store.LoadLayout(context, "F_A", lists.Show("SELECT NAME, TABLE_NAME, NUMBER, NUMBER FROM PRODUKT"));
  EXPECT_THAT(lists.Widths(), ElementsAre(4400, kDefault, 900, kDefault));
}

TEST_F(Layouts, GridWithoutColumnsKeepsTheStored) {
  Keep({0, 900, 4400});
  store.SaveLayout(context, "F_A", lists.flex);
  store.LoadLayout(context, "F_A", lists.Show(kStatement));
  EXPECT_THAT(lists.Widths(), ElementsAre(0, 900, 4400));
}

TEST_F(Layouts, DamagedLinesAreSkipped) {
  db->Execute(
      "INSERT INTO GITTERLAYOUT (LAYOUT_KEY, LAYOUT) VALUES ('F_A', 'NUMBER\n900\n\n700 NAME'), ('F_B', "
      "NULL)");
  store.LoadLayout(context, "F_A", lists.Show(kStatement));
  EXPECT_THAT(lists.Widths(), ElementsAre(kDefault, kDefault, 700));
  store.LoadLayout(context, "F_B", lists.grid);
}

TEST_F(Layouts, NamelessColumnsGoByTheirPlace) {
  lists.flex.SetCols(3);
  lists.flex.Columns()[1].SetWidth(333);
  store.SaveLayout(context, "F_A", lists.flex);
  lists.flex.SetCols(0);
  lists.flex.SetCols(4);
  store.LoadLayout(context, "F_A", lists.flex);
  EXPECT_EQ(lists.flex.Columns()[1].Width(), 333);
  EXPECT_EQ(lists.flex.Columns()[3].Width(), kDefault);
}

class Locations : public test::SuiteTest {
 protected:
  Locations() {
    db->Execute(
        "INSERT INTO WALDORT (WO1, WO2, WO4, LANGNAME, MANDANTEN_ID) VALUES"
        " ('Nord', 'Berg', 'a', 'Mischwald', 1), ('Nord', NULL, NULL, NULL, 1),"
        " ('Süd', NULL, NULL, 'Forst', 2), ('Allgemein', NULL, NULL, '', NULL)");
    toolkit.pick_locations = [this](const LocationRequest& request) {
      asked = request;
      return answer;
    };
  }
  std::vector<std::int32_t> Offered(std::int32_t client) {
    std::vector<std::int32_t> ids;
    std::vector<std::string> texts;
    dialog.PickMany(context, "", client, ids, texts);
    for (const Location& location : asked.locations) ids.push_back(location.id);
    return ids;
  }

  suite::WaldortDialog dialog;
  LocationRequest asked;
  std::vector<std::int32_t> answer;
  std::string full = "alt voll", text = "Nord/ Berg: Steilhang";
  std::int32_t id = 9, scope_id = 1;
  bool chosen = false;
};

TEST_F(Locations, ScopeIsTheClientWithWhatBelongsToAll) {
  EXPECT_THAT(Offered(1), ElementsAre(4, 2, 1));
  EXPECT_THAT(Offered(2), ElementsAre(4, 3));
  EXPECT_THAT(Offered(0), ElementsAre(4, 2, 1, 3));
  EXPECT_EQ(asked.locations.at(2).path, "Nord/ Berg/ a");
  EXPECT_EQ(asked.locations.at(2).name, "Mischwald");
}

TEST_F(Locations, OneLocationFillsTextsAndId) {
  answer = {1};
  dialog.PickOne(context, full, id, text, scope_id, chosen);
  EXPECT_TRUE(chosen);
  EXPECT_EQ(id, 1);
  EXPECT_EQ(text, "Nord/ Berg/ a");
  EXPECT_EQ(full, "Nord/ Berg/ a: Mischwald");
  EXPECT_EQ(asked.start_text, "Nord/ Berg") << "the path before the long name";
  EXPECT_FALSE(asked.many);
  answer = {2};
  dialog.PickOne(context, full, id, text, scope_id, chosen);
  EXPECT_EQ(full, "Nord");
}

TEST_F(Locations, CancelledChoiceLeavesAll) {
  dialog.PickOne(context, full, id, text, scope_id, chosen);
  EXPECT_FALSE(chosen);
  EXPECT_EQ(id, 9);
  EXPECT_EQ(text, "Nord/ Berg: Steilhang");
  EXPECT_EQ(full, "alt voll");
}

TEST_F(Locations, ManyComeInTheOrderOfTheChoice) {
  answer = {3, 1};
  std::vector<std::int32_t> ids{7};
  std::vector<std::string> texts{"alt"};
  dialog.PickMany(context, "Süd", 0, ids, texts);
  EXPECT_THAT(ids, ElementsAre(3, 1));
  EXPECT_THAT(texts, ElementsAre("Süd", "Nord/ Berg/ a"));
  EXPECT_TRUE(asked.many);
  answer.clear();
  dialog.PickMany(context, "", 0, ids, texts);
  EXPECT_THAT(ids, IsEmpty());
  EXPECT_THAT(texts, IsEmpty());
}

class Payees : public test::SuiteTest {
 protected:
  Payees() {
    db->Execute(
        "INSERT INTO PERSONAL (NUMMER, KURZBEZEICHNUNG, PERSONENTYP, ID_MANDANTEN, DISABLE) VALUES"
        " (703, 'Huber', '2PLIEF', 1, 0), (701, 'Moser', '2PLIEF', NULL, NULL), (702, 'Wolf', '2PLIEF', 2, "
        "0),"
        " (704, 'Alt', '2PLIEF', 1, 1), (11, 'Arbeiter', NULL, 1, 0)");
  }
  std::int32_t Pick(std::int32_t client, std::int32_t current) {
    return picker.PickPayee(context, -1, "2PLIEF", -1, chosen, "", "", "", "", client, current, 0);
  }

  suite::PersonPicker picker;
  List list{toolkit};
  bool chosen = true;
};

TEST_F(Payees, ActivePayeesOfTheStandardClient) {
  list.code = "703";
  EXPECT_EQ(Pick(1, 2), 1);
  EXPECT_TRUE(chosen);
  EXPECT_THAT(ColumnOf(list.asked.at(0), 1), ElementsAre("701", "703"));
  EXPECT_EQ(list.asked.at(0).start_text, "701") << "the list stands on the current payee";
  EXPECT_EQ(list.asked.at(0).hidden_columns, 1);
}

TEST_F(Payees, FurtherButtonOffersThoseOfEveryClient) {
  list.press_extra = true;
  list.code = "702";
  EXPECT_EQ(Pick(1, 0), 3);
  EXPECT_TRUE(chosen);
  EXPECT_THAT(ColumnOf(list.asked.at(1), 1), ElementsAre("701", "702", "703"));
  EXPECT_EQ(list.asked.at(0).extra_button, "&Alle Mandanten");
  EXPECT_EQ(list.asked.at(1).extra_button, "");
}

TEST_F(Payees, CancelKeepsTheCurrent) {
  EXPECT_EQ(Pick(0, 3), 3);
  EXPECT_FALSE(chosen);
}

TEST_F(Payees, MonthStartsWhereTheTextStands) {
  Clock::Set({2024, 4, 12});
  YearMonth start;
  std::optional<YearMonth> answer = YearMonth{2024, 12};
  toolkit.pick_month = [&](const YearMonth& from) {
    start = from;
    return answer;
  };
  suite::MonthPicker months;
  std::string text = "02.2023";
  bool accepted = false;
  months.PickMonth(text, context, accepted);
  EXPECT_TRUE(accepted);
  EXPECT_EQ(start, (YearMonth{2023, 2}));
  EXPECT_EQ(text, "12.2024");
  answer.reset();
  for (const auto* unreadable : {"", ".", "13.2023", "."}) {
    text = unreadable;
    months.PickMonth(text, context, accepted);
    EXPECT_FALSE(accepted);
    EXPECT_EQ(start, (YearMonth{2024, 4})) << unreadable;
    EXPECT_EQ(text, unreadable);
  }
  Clock::Reset();
}

class Deleting : public test::SuiteTest {
 protected:
  std::string Confirm(int answer) {
    toolkit.answer = answer;
    return guard.ConfirmDelete("SELECT ID FROM LAGER_POS WHERE LAGER_ID = 1", 1713, 1181, context);
  }
  suite::DeleteGuard guard;
};

TEST_F(Deleting, AsksOnlyWhereRowsHangOnIt) {
  EXPECT_EQ(Confirm(kAnswerNo), "1");
  EXPECT_THAT(toolkit.prompts, IsEmpty());
  db->Execute("INSERT INTO LAGER_POS (LAGER_ID) VALUES (1)");
  EXPECT_EQ(Confirm(kAnswerYes), "1");
  EXPECT_THAT(toolkit.prompts, ElementsAre("M1713 M1181"));
  EXPECT_EQ(toolkit.styles.at(0), kBoxYesNo + kBoxQuestion + kBoxSecondIsDefault);
  EXPECT_EQ(Confirm(kAnswerNo), "0");
}

class Descriptions : public test::SuiteTest {
 protected:
  std::string Edit(bool read_only, const std::string& table = "ARBEITSAUFTRAG_KOPF") {
    std::string text = "alt";
    editor.EditText(context, 0, read_only, table, text);
    return text;
  }
  suite::DescriptionEditor editor;
};

TEST_F(Descriptions, TextChangesUnlessCancelledOrReadOnly) {
  EXPECT_EQ(Edit(false), "alt");
  TextRequest asked;
  toolkit.edit_text = [&](const TextRequest& request) {
    asked = request;
    return std::optional<std::string>("neu");
  };
  EXPECT_EQ(Edit(false), "neu");
  EXPECT_EQ(asked.text, "alt");
  EXPECT_FALSE(asked.read_only);
  EXPECT_EQ(Edit(true, "ARBEITSAUFTRAG_KOPF_PLANN"), "alt");
  EXPECT_TRUE(asked.read_only);
  EXPECT_THROW(Edit(false, "LAGER"), CallError);
}

}  // namespace
}  // namespace tarvoni
