#include "platform/script/public/script_player.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

#include "platform/headless/public/headless_toolkit.h"
#include "src/common/box_rules.h"
#include "src/common/code_field.h"
#include "src/context/values/clock.h"
#include "tests/support/fake_connection.h"
#include "tests/support/fake_suite.h"

namespace tarvoni {
namespace {

using test::Chars;
using test::FakeConnection;
using test::Rows;
using test::Whole;
using testing::HasSubstr;

// A made-up Screen with a list, a code field, a second Screen behind a button and a veto.
class F_Lager : public Screen {
 public:
  explicit F_Lager(int depth = 0)
      : Screen("F_Lager" + std::string(static_cast<std::size_t>(depth), 'X')), depth_(depth) {
    list.Connect([] {},
                 [] {
                   return std::vector<ShownColumn>{
                       {.data_field = "NAME", .caption = "Name"},
                       {.data_field = "WERT", .caption = "Wert", .number_format = "0.00"}};
                 });
    Wire();
  }

  layout::Node BuildLayout() override {
    using namespace layout;
    SetCaption("Lager");
    return Stack(
        Table(DataGrid1),
        Group(Frame4, "Beleg", Row(lblKapitel, "Kapitel", Box(txtKapitel[0], 6), Shown(txtKapitel[1])),
              Row("Menge", Box(txtMenge, 8)), Row("Valuta", Box(txtValuta)), Row("Datum", Box(dtpDatum)),
              Check(chkFertig, "fertig")),
        List(listeSel, 3), Bar(Push(btnNeu, "Neu"), Push(btnLoschen, "Löschen"), Push(btnOk, "Schließen")),
        Hidden({&Data1, &Timer1}));
  }

  void Run(const TvnVar_Dll& tvnvar) {
    Present(tvnvar, [this] {
      list.Load("LIST");
      for (const char* item : {"EUR", "CZK"}) txtValuta.AddItem(item);
    });
  }

  void Wire() {
    OnEnter(txtMenge, TabOnEnter(*this));
    SelectOnFocus(txtMenge);
    Rules(txtMenge).Number("###0.00");
    Rules(txtKapitel[0]).Code(kapitel);
    btnNeu.Click = [this] {
      if (depth_ == 0) {
        F_Lager inner(1);
        inner.Run(Context());
        txtMenge.SetText(inner.txtMenge.Text());
      }
    };
    btnLoschen.Click = [this] {
      if (Ask("Sicher?")) Execute("DELETE");
    };
    btnOk.Click = [this] { Unload(); };
    Form_Unload = [this](bool& cancel) {
      if (chkFertig.Checked()) return;
      cancel = true;
      AppMsgBox(Message(223) + " [fertig]", kBoxWarning);
    };
    later = std::make_unique<DeferredCall>(Timer1, [this] { listeSel.AddItem("nachher"); });
    txtValuta.Click = [this] { later->Request(); };
    dtpDatum.DblClick = [this] {
      dtpDatum.SetValue(CurrentToolkit().PickDate("Datum", std::nullopt));
      const std::string text = CurrentToolkit().InputBox("Nummer", "Suche", "001");
      listeSel.AddItem(text);
    };
  }

  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  Frame Frame4{*this, "Frame4"};
  Label lblKapitel{*this, "lblKapitel"};
  ControlArray<TextBox, 2> txtKapitel{*this, "txtKapitel"};
  TextBox txtMenge{*this, "txtMenge"};
  ComboBox txtValuta{*this, "txtValuta"};
  DateControl dtpDatum{*this, "dtpDatum"};
  CheckBox chkFertig{*this, "chkFertig"};
  ListBox listeSel{*this, "listeSel"};
  Button btnNeu{*this, "btnNeu"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnOk{*this, "btnOk"};
  Timer Timer1{*this, "Timer1"};
  Guard loading;
  RowList list{*this, loading, {.data = Data1, .grid = DataGrid1}};
  std::unique_ptr<DeferredCall> later;
  CodeField kapitel{
      Context(), loading, txtKapitel[0], &txtKapitel[1],
      NamedCode(Context(), txtKapitel[0], lblKapitel, "KAPITEL", "NAME", [] { return NamedValues(); })};

 private:
  int depth_;
};

class Player : public testing::Test {
 protected:
  Player() {
    db->Answer(
        "LIST",
        Rows({Whole("ID"), Chars("NAME"), {.name = "WERT", .type = FieldType::kDouble, .size = 0}},
             {std::int64_t{1}, std::string("a|b"), 1.5, std::int64_t{2}, std::string("zwei"), Null{}}));
    db->Answer("KAPITEL_GRID:",
               Rows({Chars("NUMMER"), Chars("NAME")},
                    {std::string("10"), std::string("Wald"), std::string("20"), std::string("Jagd")}));
    db->Answer("KAPITEL_VALID:10",
               Rows({Whole("ID"), Chars("NAME")}, {std::int64_t{5}, std::string("Wald")}));
    db->Answer("KAPITEL_VALID:99", Rows({Whole("ID"), Chars("NAME")}));
    toolkit.SetPartner(&player);
  }

  ScriptHooks Hooks() {
    return {.demo = {},
            .call = [](const std::string&, const ScriptHooks::Values&, TvnVar_Dll&) -> ScriptHooks::Values {
              throw DatabaseError(208, "Invalid object name.");
            },
            .run =
                [](const std::string&, const ScriptHooks::Values& arguments, TvnVar_Dll& context) {
                  F_Lager().Run(context);
                  return arguments;
                },
            .contents = [this](Connection&) -> ScriptHooks::Values {
              return {{"BELEG", "leer"}, {"WALD", std::to_string(std::ranges::count(db->Log(), "DELETE"))}};
            }};
  }

  // The failure's text, or "" for a script that passes.
  std::string Play(const std::string& text, bool opened = true) {
    try {
      const std::string before = opened ? "database x\nrun F_Lager\n" : "";
      const std::string after = opened ? "click chkFertig\nclick btnOk\nexpect screen none\n" : "";
      player.Play(Script::Parse("probe.tvs", before + text + "\n" + after));
      return "";
    } catch (const ScriptFailure& failure) {
      return failure.Text();
    }
  }

  std::shared_ptr<FakeConnection> db = std::make_shared<FakeConnection>();
  test::FakeSuite suite;
  HeadlessToolkit toolkit;
  Environment environment{
      .toolkit = &toolkit, .suite = &suite, .connect = [this](const std::string&) { return db; }};
  ScriptPlayer player{environment, toolkit, Hooks()};
};

TEST_F(Player, DrivesAScreen) {
  EXPECT_EQ(Play(R"(
expect screen F_Lager   # a comment
expect F_Lager = Lager
expect DataGrid1 focused
type txtMenge 12,5
leave txtMenge
expect txtMenge = 12,50
type txtMenge 7x,123
expect txtMenge = 7
key txtMenge Escape
enter txtMenge 7,12
expect txtValuta focused
select txtValuta CZK
expect txtValuta.ListIndex = 1
expect list listeSel
| nachher
type dtpDatum 29.2.2024
expect dtpDatum = 29.02.2024
expect chkFertig unchecked
expect txtKapitel(1) locked
expect rows DataGrid1 2
row DataGrid1 NAME=zwei
expect DataGrid1.Row = 2
expect grid DataGrid1
| Name | Wert
| a\|b | 1,50
| zwei)"),
            "");
}

TEST_F(Player, AnswersWhatOpens) {
  EXPECT_EQ(Play(R"(
click btnLoschen
expect message "Sicher?"
answer no
close
expect message 223
expect chkFertig unchecked
key txtKapitel(0) Ctrl
expect offer
| NUMMER | NAME
| 10     | Wald
| 20     | Jagd
pick 10
expect txtKapitel(0) = 10
expect txtKapitel(0).Tag = 5
expect txtKapitel(1) = Wald
enter txtKapitel(0) 99
leave txtKapitel(0)
answer ok
expect txtKapitel(0) = ""
expect txtKapitel(0) focused
doubleclick dtpDatum
date 15.03.2024
input "zwei Worte"
expect dtpDatum = 15.03.2024
expect list listeSel
| zwei Worte)"),
            "");
  EXPECT_THAT(db->Log(), testing::Not(testing::Contains("DELETE")));
}

TEST_F(Player, TriesManyTextsAndLooksClosely) {
  EXPECT_EQ(Play(R"(
fill txtMenge=1 txtKapitel(0)=10
try txtMenge
| enter | leave | =     | focused   | txtMenge locked
| 12,5  |       | 12,50 | txtValuta | 0
|       | x     | 12,50 | txtMenge  | 0
| ""    |       |       | txtValuta | 0
try
| field         | key  | leave | pick | click      | answer   | offer  | message      | txtKapitel(0).Tag
| txtKapitel(0) | Ctrl |       | 10   |            |          | 10, 20 |              | 5
|               |      |       |      | btnLoschen | no / yes |        | Sicher?      | 5
width DataGrid1 WERT 900
head DataGrid1 2
expect fields
| DataGrid1.Width(WERT)  | 900
| DataGrid1.Caption(2)   | Name
| DataGrid1.Visible(ID)  | 0
| DataGrid1.Rows         | 2
| txtKapitel(1)          | locked enabled
| txtKapitel(1).BackColor | buttonface
| txtMenge.TabStop       | 1
| F_Lager                | Lager
expect unordered grid DataGrid1
| Name | Wert
| zwei
| a\|b | 1,50
click btnLoschen
expect box.Buttons = "yes no"
expect box.Icon = question
expect box.Default = yes
expect box.Title = Tarvoni
answer no)"),
            "");
}

TEST_F(Player, FailsAtTheWriteItIsToldOf) {
  db->Refuse("Q");
  EXPECT_EQ(Play("sql Q\nexpect failure 245\nfail write 1 8134\nsql UPDATE T SET A = 1\nexpect failure 8134\n"
                 "fail write 1\nsql DELETE T\nexpect failure anderes Programm"),
            "");
  EXPECT_THAT(db->Log(), testing::Not(testing::Contains("UPDATE T SET A = 1")));
}

TEST_F(Player, TellsAllThatDiffers) {
  player.Options().all = true;
  const std::string told =
      Play("expect txtMenge = 1\nexpect DataGrid1 disabled\nexpect rows DataGrid1 2\nexpect screen none");
  EXPECT_THAT(told, HasSubstr("probe.tvs:3: "));
  EXPECT_THAT(told, HasSubstr("probe.tvs:4: "));
  EXPECT_THAT(told, HasSubstr("probe.tvs:6: "));
}

// Every command is told as it is read, and no other.
TEST(ScriptCommands, AreThoseOfTheirPage) {
  std::ostringstream page;
  page << std::ifstream(SCRIPTS_PAGE).rdbuf();
  for (const std::string& form : ScriptCommandForms())
    EXPECT_THAT(page.str(), HasSubstr("| `" + form + "`")) << form;
}

TEST_F(Player, ScreensNest) {
  EXPECT_EQ(Play(R"(
click btnNeu
expect screen F_LagerX
type txtMenge 3
click chkFertig
click btnOk
expect screen F_Lager
expect txtMenge = 3,00)"),
            "");
}

TEST_F(Player, FailsWithPlaceExpectationAndOpenScreens) {
  EXPECT_EQ(
      Play("type txtMenge 3\nexpect txtMenge = 4"),
      "probe.tvs:4: expect txtMenge = 4\n  txtMenge: erwartet \"4\", gefunden \"3\"\n  Geöffnet: F_Lager");
  EXPECT_THAT(Play("click btnNeu\nexpect screen F_Lager"), HasSubstr("F_Lager > F_LagerX"));
}

TEST_F(Player, FailsOnEverythingThatGoesUnnoticed) {
  const std::pair<const char*, const char*> cases[] = {
      {"click btnLoschen\nexpect txtMenge = \"\"", "Unerwartet öffnet sich eine Meldung: \"Sicher?\""},
      {"close\nexpect chkFertig unchecked", "Unerwartet öffnet sich eine Meldung: \"M223 [fertig]\""},
      {"click btnLoschen\nexpect message \"Sicher?\"\nexpect txtMenge = \"\"", "Unerwartet öffnet sich"},
      {"answer yes", "Die Antwort wird nicht gebraucht"},
      {"pick 10", "Die Antwort wird nicht gebraucht"},
      {"expect message 223", "Es ist nichts geöffnet"},
      {"click btnLoschen\nexpect message \"Sicher??\"\nanswer no",
       "erwartet \"Sicher??\", gefunden \"Sicher?\""},
      {"click btnLoschen\nanswer ok", "nur die Tasten: yes no"},
      {"close\nexpect message 224", "erwartet \"M224\", gefunden \"M223 [fertig]\""},
      {"key txtKapitel(0) Ctrl\npick 30", "bietet 30 nicht an"},
      {"expect txtX = 1", "kein Feld txtX"},
      {"expect txtMenge blau", "Zustand \"blau\""},
      {"expect txtMenge locked", "txtMenge: erwartet locked"},
      {"expect txtMenge focused", "der Fokus steht auf DataGrid1"},
      {"expect list listeSel\n| x", "erwartet\n    | x\n  gefunden"},
      {"row DataGrid1 9", "keine Zeile 9"},
      {"tanze", "Den Befehl \"tanze\" gibt es nicht"},
      {"expect rows DataGrid1 3", "erwartet \"3\", gefunden \"2\""},
      {"click btnOk extra", "zu viele Wörter. Er lautet: click C"},
      {"database y", "solange kein Bildschirm geöffnet ist"},
      {"expect box.Icon = question", "Es ist nichts geöffnet"},
      {"click btnLoschen\nexpect box.Icon = stop\nanswer no", "erwartet \"stop\", gefunden \"question\""},
      {"fail write 2\nsql UPDATE T SET A = 1", "geschrieben wurde 1 Mal"},
      {"expect unordered grid DataGrid1\n| WERT | Name\n| 1,50 | a\\|b\n| | zwei", "gefunden"},
      {"try txtMenge\n| enter | =\n| 3 | 4", "gefunden\n    | enter | =\n    | 3     | 3,00"},
      {"try\n| click\n| btnLoschen", "Unerwartet öffnet sich eine Meldung: \"Sicher?\""},
      {"try\n| click\n| btnNeu", "Unerwartet öffnet sich der Bildschirm F_LagerX"},
      {"try txtMenge\n| enter\n| 3\n| 4\nexpect fields\n| txtMenge | 3,00", "| txtMenge | 4,00"},
      {"include fehlt.tvi", "probe.tvs:3: fehlt.tvi: Die Datei kann nicht gelesen werden"},
  };
  for (const auto& [script, failure] : cases) EXPECT_THAT(Play(script), HasSubstr(failure)) << script;
}

// As on a server.
TEST_F(Player, PassesOverWhatIsAboutAFailedCommitWhereNoneCanFail) {
  EXPECT_EQ(Play("fail commit\nclick btnLoschen\nexpect message x\nexpect box.Icon = stop\nanswer yes\n"
                 "expect rows DataGrid1 2\ntry\n| fail commit | click | message\n| 1 | btnLoschen | x"),
            "");
  EXPECT_THAT(Play("fail commit\nclick btnLoschen\nexpect rows DataGrid1 3"), HasSubstr("gefunden \"2\""));
}

TEST_F(Player, FailsWhenTheScriptEndsWithAnOpenScreen) {
  EXPECT_THAT(Play("database x\nrun F_Lager", false),
              HasSubstr("F_Lager ist am Ende des Skripts noch geöffnet"));
}

TEST_F(Player, ErrorsOfAHandlerAreBoxes) {
  db->Refuse("DELETE");
  EXPECT_EQ(Play("click btnLoschen\nanswer yes\nexpect message \"Die Eingabe ist keine Zahl. (Fehler 245: "
                 "Conversion failed.)\""),
            "");
}

TEST_F(Player, TellsTheRemarksAsTheirLinesAreReached) {
  std::vector<std::string> told;
  player.Options().narrator = [&](const std::string& remark) { told.push_back(remark); };
  EXPECT_EQ(Play("# Nicht mehr davon\n\n# Löschen,\n# aber nicht\nclick btnLoschen\n# Nein\nanswer no"), "");
  EXPECT_THAT(told, testing::ElementsAre("Löschen,\naber nicht", "Nein"));
}

TEST_F(Player, FailedCallMustBeExpected) {
  EXPECT_EQ(Play("database x\ncall ARA x=1\nexpect failure Invalid", false), "");
  EXPECT_THAT(Play("database x\ncall ARA x=1\nexpect screen none", false), HasSubstr("schlug fehl"));
  EXPECT_THAT(Play("database x\ncall ARA x=1", false), HasSubstr("schlug fehl"));
  EXPECT_THAT(Play("database x\nexpect failure x", false), HasSubstr("nicht fehlgeschlagen"));
  EXPECT_THAT(Play("call ARA nonsense", false), HasSubstr("name=wert"));
}

TEST_F(Player, PreparesAndComparesTheDatabase) {
  db->Answer("SELECT * FROM #tmp", Rows({Whole("ID"), Chars("NAME")}, {std::int64_t{1}, Null{}}));
  EXPECT_EQ(Play(R"(database x
today 2024-03-15
locale en
context strLocalCurrency CZK
option STANDARD_FWJ text 2024
option RATE double 1.5
sql UPDATE T SET A = 'x "y"' WHERE B = 1
expect sql SELECT * FROM #tmp
| ID | NAME
| 1  | NULL)",
                 false),
            "");
  EXPECT_EQ(environment.locale.decimal_separator, '.');
  EXPECT_EQ(player.Context().strLocalCurrency, "CZK");
  EXPECT_THAT(
      db->Log(),
      testing::IsSupersetOf({"INSERT INTO OPTIONEN (PROPERTY_ID, TEXT_VALUE) VALUES ('STANDARD_FWJ', '2024')",
                             "INSERT INTO OPTIONEN (PROPERTY_ID, DOUBLE_VALUE) VALUES ('RATE', 1.5)",
                             "UPDATE T SET A = 'x \"y\"' WHERE B = 1"}));
}

TEST_F(Player, ComparesAllTablesWithWhatTheyHeld) {
  EXPECT_EQ(Play("remember\nclick btnLoschen\nanswer no\nexpect unchanged"), "");
  EXPECT_THAT(Play("remember\nclick btnLoschen\nanswer yes\nexpect unchanged"),
              HasSubstr("Tabelle WALD: erwartet \"0\", gefunden \"1\""));
  EXPECT_THAT(Play("expect unchanged"), HasSubstr("Es fehlt ein remember davor"));
}

TEST_F(Player, ByReferenceResults) {
  const std::string script = "click chkFertig\nclick btnOk\nexpect result name = \"A B\"";
  EXPECT_EQ(Play("database x\nrun F_Lager name=\"A B\"\n" + script, false), "");
  EXPECT_THAT(Play("database x\nrun F_Lager name=C\n" + script, false),
              HasSubstr("erwartet \"A B\", gefunden \"C\""));
}

TEST_F(Player, UpdatingRewritesTheExpectedLinesOnly) {
  db->Answer("Q", Rows({Whole("ID"), Chars("N")},
                       {std::int64_t{1}, std::string("a|b\nc"), std::int64_t{22}, std::string("d")}));
  db->Answer("R", Rows({Whole("ID")}));
  player.Options().update = true;
  EXPECT_EQ(Play("database x\nexpect sql Q\n| alt\n# bleibt\nexpect sql R\nexpect sql Q", false), "");
  EXPECT_TRUE(player.Changed());
  EXPECT_THAT(player.UpdatedLines(),
              testing::ElementsAre("database x", "expect sql Q", "| ID | N", "| 1  | a\\|b\\nc", "| 22 | d",
                                   "# bleibt", "expect sql R", "| ID", "expect sql Q", "| ID | N",
                                   "| 1  | a\\|b\\nc", "| 22 | d"));
  std::string updated;
  for (const std::string& line : player.UpdatedLines()) updated += line + "\n";
  player.Options().update = false;
  EXPECT_EQ(Play(updated, false), "") << "what updating wrote passes";
}

TEST(ScriptParser, ReadsQuotesCommentsAndLongTexts) {
  const Script script = Script::Parse(
      "p.tvs", "type txtA \"a \\\"b\\\" # c\"  # comment\n\ntext <<END\nerste\n  # zweite\nEND\nclick btnOk");
  ASSERT_EQ(script.commands.size(), 3U);
  EXPECT_THAT(script.commands[0].words, testing::ElementsAre("type", "txtA", "a \"b\" # c"));
  EXPECT_EQ(script.commands[1].words[1], "erste\n  # zweite");
  EXPECT_EQ(script.commands[2].number, 7);
}

TEST(ScriptParser, TellsTheLineOfAMistake) {
  const auto failure = [](const char* text) {
    try {
      Script::Parse("p.tvs", text);
      return std::string();
    } catch (const ScriptFailure& error) {
      return error.Text();
    }
  };
  EXPECT_THAT(failure("focus a\ntype b \"x"), HasSubstr("p.tvs:2: "));
  EXPECT_THAT(failure("| a"), HasSubstr("p.tvs:1: "));
  EXPECT_THAT(failure("focus a\ntext <<END\nx"), HasSubstr("p.tvs:2: "));
}

}  // namespace
}  // namespace tarvoni
