#include "src/context/services/user_actions.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/controls/grid.h"
#include "src/context/services/mnemonics.h"
#include "src/context/values/call_error.h"
#include "tests/support/events.h"
#include "tests/support/fake_connection.h"
#include "tests/support/quiet_toolkit.h"

namespace tarvoni {
namespace {

using test::FakeConnection;
using test::QuietToolkit;
using test::Replace;
using testing::ElementsAre;
using testing::IsEmpty;

// Writes down every event of its controls.
struct Recorder : Form {
  Recorder() : Form("F_Recorder") {}

  Connection* HandlerConnection() const override { return db; }

  layout::Node BuildLayout() override {
    using namespace layout;
    return Stack(Group(frm, "Daten", Row("A", Box(txtA)), Row("B", Box(txtB)), Row("C", Box(txtC))),
                 Bar(Push(btnOk, "&Schließen"), Push(btnAbbrechen, "Abbr.")));
  }

  void Form_Load() override {
    for (Control* control : Controls()) {
      const std::string name = control->Name();
      control->GotFocus = [this, name] { log.push_back("got " + name); };
      control->LostFocus = [this, name] { log.push_back("lost " + name); };
      control->Validate = [this, name](bool&) { log.push_back("validate " + name); };
      control->Click = [this, name] { log.push_back("click " + name); };
    }
  }

  Connection* db = nullptr;
  std::vector<std::string> log;
  Frame frm{*this, "frm"};
  TextBox txtA{*this, "txtA"};
  TextBox txtB{*this, "txtB"};
  TextBox txtC{*this, "txtC"};
  Button btnOk{*this, "btnOk"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
};

class Actions : public testing::Test {
 protected:
  Actions() {
    form.Load();
    form.db = &db;
  }
  // Shows the form and gives the user; the log begins after the opening.
  UserActions& Open() {
    shown = toolkit.Show(form, form.txtA);
    form.log.clear();
    return shown->user;
  }

  FakeConnection db;
  QuietToolkit toolkit;
  Recorder form;
  std::unique_ptr<QuietToolkit::Shown> shown;
};

TEST_F(Actions, FocusMovesThroughValidateLostFocusGotFocus) {
  UserActions& user = Open();
  user.Tab();
  EXPECT_THAT(form.log, ElementsAre("validate txtA", "lost txtA", "got txtB"));
  user.Tab(true);
  EXPECT_TRUE(form.txtA.HasFocus());
  user.Tab(true);
  EXPECT_TRUE(form.btnAbbrechen.HasFocus()) << "round the end";
}

TEST_F(Actions, TabOrderSkipsWhatCannotTakeTheFocus) {
  UserActions& user = Open();
  form.txtB.SetTabStop(false);
  form.txtC.SetVisible(false);
  user.Tab();
  EXPECT_TRUE(form.btnOk.HasFocus());
  form.frm.SetEnabled(false);
  EXPECT_TRUE(form.txtA.Enabled());
  EXPECT_FALSE(form.txtA.IsEnabled());
  EXPECT_FALSE(user.Focus(form.txtA));
  EXPECT_THROW(form.txtA.SetFocus(), CallError);
}

TEST_F(Actions, ValidateKeepsTheFocusExceptForButtonsThatDoNotCause) {
  UserActions& user = Open();
  Replace(form.txtA.Validate, [](bool& cancel) { cancel = true; });
  EXPECT_FALSE(user.Focus(form.txtB));
  user.Click(form.btnOk);
  EXPECT_THAT(form.log, IsEmpty());
  form.btnAbbrechen.SetCausesValidation(false);
  user.Click(form.btnAbbrechen);
  EXPECT_THAT(form.log, ElementsAre("lost txtA", "got btnAbbrechen", "click btnAbbrechen"));
}

TEST_F(Actions, LeavingHandlerSendsTheFocusBackWithOneMessage) {
  UserActions& user = Open();
  Replace(form.txtA.LostFocus, [&] {
    toolkit.MessageBox("falsch", kBoxWarning, "");
    form.txtA.SetFocus();
  });
  user.Click(form.btnOk);
  EXPECT_THAT(toolkit.prompts, ElementsAre("falsch"));
  EXPECT_TRUE(form.txtA.HasFocus());
  EXPECT_THAT(form.log, ElementsAre("validate txtA", "got txtA")) << "the click is lost with the focus";
  form.log.clear();
  form.btnAbbrechen.SetCausesValidation(false);
  user.Click(form.btnAbbrechen);
  EXPECT_THAT(form.log, ElementsAre("got txtA", "click btnAbbrechen")) << "what cancels arrives at once";
}

TEST_F(Actions, ClickOnADisabledButtonIsNone) {
  UserActions& user = Open();
  form.btnOk.SetEnabled(false);
  user.Click(form.btnOk);
  EXPECT_THAT(form.log, IsEmpty());
  form.btnOk.SetEnabled(true);
  Replace(form.txtA.LostFocus, [&] { form.btnOk.SetEnabled(false); });
  user.Click(form.btnOk);
  EXPECT_THAT(form.log, testing::Not(testing::Contains("click btnOk"))) << "disabled by the field being left";
}

TEST_F(Actions, PressedButtonIsKnownInsideTheClick) {
  Open();
  bool seen = false;
  Replace(form.btnAbbrechen.Click, [&] { seen = form.btnOk.Pressed(); });
  Replace(form.btnOk.Click, [&] { form.btnAbbrechen.Press(); });
  form.btnOk.Press();
  EXPECT_TRUE(seen);
  EXPECT_FALSE(form.btnOk.Pressed());
}

TEST_F(Actions, KeysPassTheFilterBeforeTheTextChanges) {
  UserActions& user = Open();
  std::vector<std::string> changes;
  Replace(form.txtA.KeyPress, [](int& key) { key = key == '.' ? 0 : key == 'a' ? 'A' : key; });
  Replace(form.txtA.Change, [&] { changes.push_back(form.txtA.Text()); });
  user.Type("a.ü");
  EXPECT_EQ(form.txtA.Text(), "Aü");
  EXPECT_THAT(changes, ElementsAre("A", "Aü"));
  user.Key(kKeyBackspace);
  EXPECT_EQ(form.txtA.Text(), "A");
  form.txtA.SelectAll();
  user.Type("xyz");
  EXPECT_EQ(form.txtA.Text(), "xyz");
}

// Its cost grows with the text and not with its square: otherwise the time limit of the tests runs out here.
TEST_F(Actions, AVeryLongTextIsTypedAndPasted) {
  const std::string text(400'000, 'x');
  UserActions& user = Open();
  user.Type(text);
  EXPECT_EQ(form.txtA.Text().size(), text.size());
  EXPECT_TRUE(user.Paste("ä" + text));
  EXPECT_EQ(form.txtA.Length(), 800'001);
  form.txtA.Splice(400'000, 2, "ö");
  EXPECT_EQ(form.txtA.Text(), text + "ö" + text.substr(1));
  EXPECT_EQ(form.txtA.Length(), 800'000);
}

TEST_F(Actions, LockedAndFullBoxesTakeNothing) {
  UserActions& user = Open();
  form.txtA.SetMaxLength(2);
  user.Type("äöü");
  EXPECT_EQ(form.txtA.Text(), "äö");
  form.txtA.SetText("lang von Programm");
  EXPECT_EQ(form.txtA.Text(), "lang von Programm");
  form.txtA.SetLocked(true);
  user.Type("x");
  user.Key(kKeyBackspace);
  user.Key(kKeyDelete);
  EXPECT_FALSE(user.Paste("x"));
  EXPECT_EQ(form.txtA.Text(), "lang von Programm");
}

TEST_F(Actions, PasteIsAllOrNothing) {
  UserActions& user = Open();
  Replace(form.txtA.KeyPress, [](int& key) { key = key >= '0' && key <= '9' ? key : 0; });
  form.txtA.SetText("5");
  form.txtA.SelectAll();
  EXPECT_FALSE(user.Paste("8.765"));
  EXPECT_EQ(form.txtA.Text(), "5");
  EXPECT_EQ(form.txtA.SelLength(), 1);
  EXPECT_TRUE(user.Paste("8765"));
  EXPECT_EQ(form.txtA.Text(), "8765");
}

TEST_F(Actions, PasteKeepsTabsAndLineBreaksApart) {
  UserActions& user = Open();
  const auto pasted = [&](TextBox& box, const char* text) {
    box.SetText("");
    user.Focus(box);
    EXPECT_TRUE(user.Paste(text));
    return box.Text();
  };
  Replace(form.txtA.KeyPress, [](int& key) { EXPECT_NE(key, kKeyEnter); });
  EXPECT_EQ(pasted(form.txtA, "4300\r\n\n"), "4300") << "a copied cell ends in a line break";
  EXPECT_EQ(pasted(form.txtA, "43\t00\r\n4\n5\r6"), "43 00 4 5 6");
  form.txtB.SetMultiLine(true);
  EXPECT_EQ(pasted(form.txtB, "a\tb\r\nc\rd\n"), "a b\nc\nd\n");
}

// Digits and the German separator.
void AdmitNumbers(TextBox& box, Entry entry) {
  box.SetTakes(entry);
  Replace(box.KeyPress, [](int& key) {
    if (key >= ' ' && key != ',' && (key < '0' || key > '9')) key = 0;
  });
}

TEST_F(Actions, BothPointsSeparateWhereDecimalsStand) {
  UserActions& user = Open();
  AdmitNumbers(form.txtA, Entry::kDecimal);
  user.Type("7.5");
  EXPECT_EQ(form.txtA.Text(), "7,5");
  EXPECT_THAT(toolkit.refusals, IsEmpty());
  AdmitNumbers(form.txtB, Entry::kWhole);
  user.Focus(form.txtB);
  user.Type("7.5");
  EXPECT_EQ(form.txtB.Text(), "7") << "no point in a whole number, and 75 is another one";
}

TEST_F(Actions, ARefusedKeyKeepsWhatANumberMeans) {
  UserActions& user = Open();
  AdmitNumbers(form.txtA, Entry::kDecimal);
  user.Type("4+3");
  EXPECT_EQ(form.txtA.Text(), "4") << "never 43";
  EXPECT_EQ(toolkit.LastTold(), "„+3“ passt nicht in dieses Feld. Weiter mit Rücktaste oder Esc.");
  user.Tab();
  user.Key(kKeyEnter);
  user.Focus(form.txtB);
  EXPECT_FALSE(user.Paste("1"));
  EXPECT_TRUE(user.Mnemonic('S'));
  EXPECT_TRUE(form.txtA.HasFocus());
  EXPECT_EQ(toolkit.refusals.size(), 7U);
  user.Key(kKeyBackspace);
  user.Key(kKeyBackspace);
  user.Type("8");
  EXPECT_EQ(form.txtA.Text(), "48") << "one for each key, as if they stood there";
  user.Type("x");
  user.Key(kKeyEscape);
  user.Type("7");
  EXPECT_EQ(form.txtA.Text(), "7") << "Escape marks the number, the next one takes its place";
  user.Type("x");
  user.Key(kKeyDelete);
  user.Tab();
  EXPECT_TRUE(form.txtB.HasFocus());
  form.txtA.SetText("");
  user.Focus(form.txtA);
  user.Type("7");
  user.Key(kKeySpace);
  EXPECT_EQ(toolkit.LastTold(), "Ein Leerzeichen passt nicht in dieses Feld. Weiter mit Rücktaste oder Esc.");
  user.Type("5");
  EXPECT_EQ(form.txtA.Text(), "7");
  user.Key(kKeyEscape);
  user.Focus(form.txtB);
  AdmitNumbers(form.txtB, Entry::kWhole);
  form.btnAbbrechen.SetDoes(Command::kCancel);
  user.Type("x");
  user.Click(form.btnAbbrechen);
  EXPECT_THAT(form.log, testing::Contains("click btnAbbrechen"));
}

TEST_F(Actions, PointsLeadFromDayToMonth) {
  UserActions& user = Open();
  AdmitNumbers(form.txtA, Entry::kDatePart);
  AdmitNumbers(form.txtB, Entry::kDatePart);
  user.Type("1.3,2024");
  EXPECT_EQ(form.txtA.Text() + "/" + form.txtB.Text() + "/" + form.txtC.Text(), "1/3/2024");
  EXPECT_THAT(toolkit.refusals, IsEmpty());
}

TEST_F(Actions, OnlyWhatABoxDoesNotTakeIsRefused) {
  UserActions& user = Open();
  Replace(form.txtA.KeyPress, [&](int& key) {
    if (key == kKeyEnter || key == 'x') key = 0;
    if (key == 't') {
      key = 0;
      form.txtB.SetFocus();
    }
  });
  user.Key(kKeyEnter);
  user.Type("t");
  EXPECT_THAT(toolkit.refusals, IsEmpty()) << "Enter was answered, t moved on";
  user.Focus(form.btnAbbrechen);
  user.Type("x");
  EXPECT_THAT(toolkit.refusals, IsEmpty()) << "nothing is typed on a button";
  form.txtB.SetMaxLength(1);
  form.txtC.SetLocked(true);
  user.Focus(form.txtB);
  user.Type("12");
  user.Focus(form.txtC);
  user.Type("1");
  EXPECT_EQ(toolkit.LastTold(), "Dieses Feld ist gesperrt.");
  EXPECT_FALSE(user.Paste("1"));
  EXPECT_THAT(toolkit.refusals, ElementsAre("txtB", "txtC", "txtC"));
}

TEST_F(Actions, PastedNumbersComeAsTheyAreOrAreToldOf) {
  UserActions& user = Open();
  AdmitNumbers(form.txtA, Entry::kDecimal);
  const auto pasted = [&](const char* text) {
    form.txtA.SetText("");
    return user.Paste(text) ? form.txtA.Text() : toolkit.LastTold();
  };
  EXPECT_EQ(pasted("1.234,50"), "1234,50");
  EXPECT_EQ(pasted("1 234,50\r\n"), "1234,50");
  EXPECT_EQ(pasted("8.765"), "Der Text „8.765“ passt nicht in dieses Feld.");
  EXPECT_EQ(pasted("1\t234"), "Der Text „1 234“ passt nicht in dieses Feld.") << "two cells";
  EXPECT_EQ(toolkit.refusals.size(), 2U);
  user.Focus(form.txtB);
  EXPECT_TRUE(user.Paste("1.234,50"));
  EXPECT_EQ(form.txtB.Text(), "1.234,50") << "a text stays as it is";
  EXPECT_EQ(toolkit.LastTold(), "") << "what was refused before is past";
}

TEST_F(Actions, PasteIsOneChangeAndTheFilterSeesItGrow) {
  UserActions& user = Open();
  std::vector<std::string> seen, changes;
  Replace(form.txtA.KeyPress, [&](int& key) {
    seen.push_back(form.txtA.Text());
    if (key == 'x') key = 0;
  });
  Replace(form.txtA.Change, [&] { changes.push_back(form.txtA.Text()); });
  form.txtA.SetText("aöe");
  form.txtA.Select(1, 1);
  EXPECT_TRUE(user.Paste("üb\x01"));
  EXPECT_THAT(seen, ElementsAre("ae", "aüe"));
  EXPECT_THAT(changes, ElementsAre("aöe", "aübe"));
  EXPECT_EQ(form.txtA.SelStart(), 3);
  EXPECT_FALSE(user.Paste("1x"));
  EXPECT_EQ(form.txtA.Text(), "aübe");
  EXPECT_EQ(form.txtA.SelStart(), 3);
  EXPECT_EQ(changes.size(), 2U) << "what was refused changed nothing";
}

TEST_F(Actions, PostedTabRunsAfterTheEvent) {
  UserActions& user = Open();
  Replace(form.txtA.KeyPress, [&](int& key) {
    if (key != kKeyEnter) return;
    key = 0;
    form.PostTab();
    form.log.push_back("enter handled");
  });
  user.Key(kKeyEnter);
  EXPECT_THAT(form.log, ElementsAre("enter handled", "validate txtA", "lost txtA", "got txtB"));
}

TEST_F(Actions, LookupKeysRaiseTheCtrlCode) {
  UserActions& user = Open();
  std::vector<int> keys;
  Replace(form.txtA.KeyDown, [&](int key, int) { keys.push_back(key); });
  user.Lookup();
  user.Key(kKeyCtrl, 2);
  user.Key(kKeyF4);
  EXPECT_THAT(keys, ElementsAre(17, 17, kKeyF4, 17));
  Replace(form.txtA.KeyDown, [&](int, int) { form.txtA.SetText("10024"); });
  user.Lookup();
  EXPECT_EQ(form.txtA.SelLength(), 5) << "what is typed then takes its place";
}

TEST_F(Actions, MnemonicsPressButtons) {
  UserActions& user = Open();
  EXPECT_TRUE(user.Mnemonic(U's'));
  EXPECT_THAT(form.log, testing::Contains("click btnOk"));
  EXPECT_TRUE(user.Mnemonic(U'a')) << "a letter of its caption where it names none";
  EXPECT_THAT(form.log, testing::Contains("click btnAbbrechen"));
  EXPECT_FALSE(user.Mnemonic(U'x'));
}

TEST_F(Actions, EveryButtonHasALetterOfItsOwn) {
  form.btnOk.SetCaption("&Schließen");
  form.btnAbbrechen.SetCaption("&Speichern");
  EXPECT_EQ(CaptionWithMnemonic(form.btnOk), "&Schließen");
  EXPECT_EQ(CaptionWithMnemonic(form.btnAbbrechen), "S&peichern") << "the letter is taken";
  form.btnAbbrechen.SetDoes(Command::kSave);
  EXPECT_EQ(CaptionWithMnemonic(form.btnOk), "Schließ&en") << "the same letter saves on every Screen";
  form.btnAbbrechen.SetDoes(Command::kNone);
  form.btnAbbrechen.SetCaption("Storno + Senden && Ende");
  EXPECT_EQ(CaptionWithMnemonic(form.btnAbbrechen), "Storno + Senden && &Ende")
      << "beginnings of words first";
  EXPECT_EQ(CaptionWithMnemonic(form.frm), "Daten");
  form.btnOk.SetCaption("Abgeschlossen");
  form.btnAbbrechen.SetCaption("Bearb. Abbr.");
  form.btnAbbrechen.SetDoes(Command::kCancel);
  EXPECT_EQ(CaptionWithMnemonic(form.btnAbbrechen), "Bearb. &Abbr.") << "commands have theirs everywhere";
  EXPECT_EQ(CaptionWithMnemonic(form.btnOk), "A&bgeschlossen");
}

// A Screen with a list state and an edit state.
class Editing : public Actions {
 protected:
  Editing() {
    form.btnOk.SetDoes(Command::kSave);
    form.btnAbbrechen.SetDoes(Command::kCancel);
    Replace(form.Form_Unload, [this](bool& refused) { refused = form.btnAbbrechen.Enabled(); });
    form.btnAbbrechen.SetEnabled(false);
    form.btnOk.SetEnabled(false);
  }
  void Edit(bool edit) {
    form.btnAbbrechen.SetEnabled(edit);
    form.btnOk.SetEnabled(edit);
  }
};

TEST_F(Editing, EscapeAsksBeforeAnythingTypedIsLost) {
  UserActions& user = Open();
  Replace(form.btnAbbrechen.Click, [&] { Edit(false); });
  Edit(true);
  user.Key(kKeyEscape);
  EXPECT_THAT(toolkit.prompts, IsEmpty()) << "nothing was typed";
  EXPECT_FALSE(form.btnAbbrechen.Enabled());
  Edit(true);
  user.Focus(form.txtA);
  user.Type("x");
  Replace(form.txtA.LostFocus, [&] { toolkit.MessageBox("Ungültiger Code.", kBoxOk, ""); });
  form.txtA.KeyPress.Add(Turn::kFilter,
                         [](int& key) { key = 0; });  // takes no characters, but Escape is none
  toolkit.answer = kAnswerNo;
  user.Key(kKeyEscape);
  EXPECT_THAT(toolkit.prompts, ElementsAre("Die Eingaben verwerfen?"));
  EXPECT_TRUE(form.btnAbbrechen.Enabled());
  toolkit.answer = kAnswerYes;
  user.Key(kKeyEscape);
  EXPECT_FALSE(form.btnAbbrechen.Enabled());
  EXPECT_EQ(toolkit.prompts.size(), 2) << "what is given up is not checked";
  EXPECT_TRUE(form.IsLoaded());
  Button own(form, "btnFreigeben");
  Edit(true);
  user.Click(own);
  user.Key(kKeyEscape);
  EXPECT_EQ(toolkit.prompts.back(), "Die Eingaben verwerfen?") << "a button may have changed what is edited";
  user.Key(kKeyEscape);
  EXPECT_FALSE(form.IsLoaded()) << "where nothing is edited it closes";
}

TEST_F(Editing, KeysPressTheButtonsOfTheirCommands) {
  UserActions& user = Open();
  form.SetSubject("Auftrag 1");
  user.Key('S', 2);
  EXPECT_THAT(form.log, IsEmpty()) << "nothing is edited";
  EXPECT_EQ(toolkit.LastTold(), "„Schließen“ ist hier nicht möglich.");
  Edit(true);
  EXPECT_FALSE(user.Close());
  EXPECT_EQ(toolkit.LastTold(), "Bitte speichern oder abbrechen.");
  Replace(form.btnOk.Click, [] {});
  user.Key('S', 2);
  EXPECT_EQ(toolkit.LastTold(), "") << "the save was refused";
  Replace(form.btnOk.Click, [&] { Edit(false); });
  user.Key('S', 2);
  EXPECT_EQ(toolkit.LastTold(), "Gespeichert: Auftrag 1.");
  user.Key(kKeyF1);
  EXPECT_THAT(toolkit.prompts.back(), testing::HasSubstr("Strg+S: Schließen"));
  EXPECT_THAT(toolkit.prompts.back(), testing::Not(testing::HasSubstr("Liste"))) << "there is none";
}

TEST_F(Actions, ASaveIsToldAlsoWhereNothingIsCancelled) {
  UserActions& user = Open();
  form.btnOk.SetDoes(Command::kSave);
  form.SetSubject("Zeile 1");
  Replace(form.btnOk.Click, [&] { toolkit.MessageBox("falsch", kBoxWarning, ""); });
  user.Click(form.btnOk);
  EXPECT_EQ(toolkit.LastTold(), "");
  Replace(form.btnOk.Click, [] { throw CallError("falsch"); });
  user.Click(form.btnOk);
  EXPECT_EQ(toolkit.LastTold(), "");
  Replace(form.btnOk.Click, [] {});
  user.Click(form.btnOk);
  EXPECT_EQ(toolkit.LastTold(), "Gespeichert: Zeile 1.");
  user.Click(form.btnAbbrechen);
  EXPECT_EQ(toolkit.LastTold(), "") << "something else was done since";
}

// Such a Screen has fields and a save, but no states.
TEST_F(Actions, ClosingAsksWhereNothingCanBeCancelled) {
  UserActions& user = Open();
  form.btnOk.SetDoes(Command::kSave);
  form.btnAbbrechen.SetDoes(Command::kClose);
  toolkit.answer = kAnswerNo;
  user.Type("x");
  user.Key(kKeyEscape);
  EXPECT_FALSE(user.Close());
  EXPECT_THAT(toolkit.prompts, ElementsAre("Die Eingaben verwerfen?", "Die Eingaben verwerfen?"));
  EXPECT_EQ(toolkit.styles.back() & kBoxSecondIsDefault, kBoxSecondIsDefault);
  Replace(form.btnOk.Click, [] {});
  user.Click(form.btnOk);
  EXPECT_TRUE(user.Close()) << "all is saved";
  EXPECT_EQ(toolkit.prompts.size(), 2U);
}

TEST_F(Actions, ErrorEndsItsHandlerAndIsShownOnce) {
  UserActions& user = Open();
  Replace(form.btnOk.Click, [&] {
    db.Execute("INSERT 1");
    form.txtB.SetText("davor");
    throw DatabaseError(245, "Conversion failed.");
  });
  user.Click(form.btnOk);
  EXPECT_THAT(toolkit.prompts, ElementsAre("Die Eingabe ist keine Zahl. (Fehler 245: Conversion failed.)"));
  EXPECT_EQ(toolkit.styles.back(), kBoxStop);
  EXPECT_TRUE(form.IsLoaded());
  EXPECT_EQ(form.txtB.Text(), "davor");
  EXPECT_THAT(db.Log(), ElementsAre("INSERT 1", "COMMIT")) << "what was written stays";
  EXPECT_EQ(db.Depth(), 0);
}

TEST_F(Actions, ErrorInAFocusEventDoesNotEndTheHandlerThatMovedTheFocus) {
  UserActions& user = Open();
  Replace(form.txtC.GotFocus, [] { throw CallError("kaputt"); });
  bool finished = false;
  Replace(form.btnOk.Click, [&] {
    form.txtC.SetFocus();
    finished = true;
  });
  user.Click(form.btnOk);
  EXPECT_TRUE(finished);
  EXPECT_THAT(toolkit.prompts, ElementsAre("kaputt"));
}

TEST_F(Actions, WritesOfOneHandlerAreCommittedTogetherAndBeforeABoxOpens) {
  UserActions& user = Open();
  Replace(form.btnOk.Click, [&] {
    db.Execute("A");
    db.Execute("B");
    toolkit.MessageBox("?", kBoxYesNo, "");
    db.Execute("C");
  });
  user.Click(form.btnOk);
  EXPECT_THAT(db.Log(), ElementsAre("A", "B", "COMMIT", "C", "COMMIT"));
}

TEST_F(Actions, HandlersInsideANestedScreenCommitOnTheirOwn) {
  Recorder inner;
  inner.db = &db;
  inner.btnOk.SetTag("");
  UserActions& user = Open();
  Replace(form.btnOk.Click, [&] {
    db.Execute("outer");
    toolkit.ShowModal(inner);
    db.Execute("outer again");
  });
  toolkit.script = [&](UserActions& nested) {
    Replace(inner.btnOk.Click, [&] { db.Execute("inner"); });
    nested.Click(inner.btnOk);
    EXPECT_EQ(toolkit.TopForm(), &inner);
  };
  user.Click(form.btnOk);
  EXPECT_THAT(db.Log(), ElementsAre("outer", "COMMIT", "inner", "COMMIT", "outer again", "COMMIT"));
  EXPECT_EQ(toolkit.TopForm(), &form);
}

TEST_F(Actions, VetoHoldsAgainstCloseAndEscape) {
  UserActions& user = Open();
  bool editing = true;
  Replace(form.Form_Unload, [&](bool& cancel) { cancel = editing; });
  EXPECT_FALSE(user.Close());
  user.Key(kKeyEscape);
  EXPECT_TRUE(form.IsLoaded());
  editing = false;
  user.Key(kKeyEscape);
  EXPECT_FALSE(form.IsLoaded());
  form.log.clear();
  user.Click(form.btnOk);
  EXPECT_THAT(form.log, IsEmpty()) << "nothing happens on a Screen that is gone";
}

TEST_F(Actions, FocusLeavesAControlThatWasDisabled) {
  UserActions& user = Open();
  Replace(form.btnOk.Click, [&] { form.btnOk.SetEnabled(false); });
  user.Click(form.btnOk);
  EXPECT_TRUE(form.btnAbbrechen.HasFocus());
  FlexGrid list(form, "list");
  form.btnOk.SetEnabled(true);
  user.Click(form.btnOk);
  EXPECT_TRUE(list.HasFocus()) << "not a button on which Enter would do something else";
}

TEST_F(Actions, FocusSetBeforeShowingIsWhereItStarts) {
  form.txtC.SetFocus();
  EXPECT_THAT(form.log, IsEmpty());
  toolkit.script = [&](UserActions&) { EXPECT_THAT(form.log, ElementsAre("got txtC")); };
  toolkit.ShowModal(form);
}

}  // namespace
}  // namespace tarvoni
