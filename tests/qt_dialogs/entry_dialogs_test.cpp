#include <QAbstractButton>
#include <QCalendarWidget>
#include <QLabel>
#include <QPlainTextEdit>

#include "platform/qt/dialogs/date_dialog.h"
#include "platform/qt/dialogs/message_dialog.h"
#include "platform/qt/dialogs/month_dialog.h"
#include "platform/qt/dialogs/month_entry.h"
#include "platform/qt/dialogs/text_dialog.h"
#include "src/context/values/clock.h"
#include "tests/qt_dialogs/dialog_testing.h"

namespace tarvoni::qt {
namespace {

constexpr DateTime kDay{2024, 1, 31};

// Presses keys one after the other.
std::function<void(QDialog&)> Keys(std::vector<QKeyCombination> keys) {
  return [keys = std::move(keys)](QDialog& dialog) {
    for (const QKeyCombination& key : keys) Press(dialog, key.key(), key.keyboardModifiers());
  };
}

std::optional<DateTime> Date(const std::function<void(QDialog&)>& act, std::optional<DateTime> start = kDay) {
  WhenOpen(act);
  return ShowDatePicker(nullptr, "Datum", start);
}

TEST(DateDialogTest, KeysStep) {
  EXPECT_EQ(Date(Keys({Qt::Key_Return})), kDay);
  EXPECT_EQ(Date(Keys({Qt::Key_Down, Qt::Key_Return})), (DateTime{2024, 2, 1}));
  EXPECT_EQ(Date(Keys({Qt::Key_Up, Qt::Key_Up, Qt::Key_Enter})), (DateTime{2024, 1, 29}));
  EXPECT_EQ(Date(Keys({Qt::Key_PageDown, Qt::Key_Return})), (DateTime{2024, 2, 29}));
  EXPECT_EQ(Date(Keys({Qt::CTRL | Qt::Key_PageUp, Qt::Key_Return})), (DateTime{2023, 1, 31}));
  EXPECT_EQ(Date(Keys({Qt::Key_Escape})), std::nullopt);
  EXPECT_EQ(Date(Keys({Qt::Key_Up, Qt::Key_Return}), DateTime{1753, 1, 1}), (DateTime{1753, 1, 1}));
}

TEST(DateDialogTest, TypingReplacesTheDay) {
  EXPECT_EQ(Date([](QDialog& dialog) {
              Type(dialog, "5.3.22");
              EXPECT_EQ(Part<QCalendarWidget>(dialog, "calendar").selectedDate(), QDate(2022, 3, 5));
              Press(dialog, Qt::Key_Return);
            }),
            (DateTime{2022, 3, 5}));
  EXPECT_EQ(Date([](QDialog& dialog) {
              Type(dialog, "31.2.2022");
              Press(dialog, Qt::Key_Return);
              EXPECT_TRUE(dialog.isVisible());
              EXPECT_EQ(Part<QLabel>(dialog, "fault").text(), "Das ist kein gültiges Datum.");
              Type(dialog, "1.2.2022");
              Press(dialog, Qt::Key_Return);
            }),
            (DateTime{2022, 2, 1}));
  EXPECT_EQ(Date([](QDialog& dialog) {
              Part<QCalendarWidget>(dialog, "calendar").setSelectedDate({2024, 1, 7});
              EXPECT_EQ(Part<QLineEdit>(dialog, "text").text(), "07.01.2024");
              Press(dialog, Qt::Key_Return);
            }),
            (DateTime{2024, 1, 7}));
}

TEST(DateDialogTest, TodayIsTheClocks) {
  const DateTime today = Clock::Today();
  const auto day = Date(Keys({Qt::Key_Return}), std::nullopt);
  ASSERT_TRUE(day);
  EXPECT_EQ(day->Days(), today.Days());
  const auto pressed = Date([](QDialog& dialog) {
    Click(dialog, "today");
    Press(dialog, Qt::Key_Return);
  });
  EXPECT_EQ(pressed, day);
}

TEST(MonthDialogTest, KeysStepAndTypingReplaces) {
  const auto month = [](const std::function<void(QDialog&)>& act) {
    WhenOpen(act);
    return ShowMonthPicker(nullptr, "Monat", {.year = 2024, .month = 12});
  };
  EXPECT_EQ(month(Keys({Qt::Key_Return})), (YearMonth{2024, 12}));
  EXPECT_EQ(month(Keys({Qt::Key_Down, Qt::Key_Return})), (YearMonth{2025, 1}));
  EXPECT_EQ(month(Keys({Qt::Key_PageUp, Qt::Key_Up, Qt::Key_Return})), (YearMonth{2023, 11}));
  EXPECT_EQ(month(Keys({Qt::Key_Escape})), std::nullopt);
  EXPECT_EQ(month([](QDialog& dialog) {
              Type(dialog, "3");
              Press(dialog, Qt::Key_Return);
            }),
            (YearMonth{2024, 3}));
  EXPECT_EQ(month([](QDialog& dialog) {
              Type(dialog, "13.2024");
              Press(dialog, Qt::Key_Return);
              EXPECT_FALSE(Part<QLabel>(dialog, "fault").text().isEmpty());
              Press(dialog, Qt::Key_Escape);
            }),
            std::nullopt);
  EXPECT_EQ(month([](QDialog& dialog) {
              for (auto* button : dialog.findChildren<QAbstractButton*>()) {
                if (button->text() == "März") button->click();
              }
              EXPECT_EQ(Part<QLineEdit>(dialog, "text").text(), "03.2024");
              Press(dialog, Qt::Key_Return);
            }),
            (YearMonth{2024, 3}));
}

TEST(MonthEntryTest, ReadsWhatUsersType) {
  for (const char* text : {"3.2024", "03.2024", "03/24", "3 2024", "032024", "0324", "2024-03", " 3-2024 "}) {
    EXPECT_EQ(ParseMonth(text, 1999), (YearMonth{2024, 3})) << text;
  }
  EXPECT_EQ(ParseMonth("3", 1999), (YearMonth{1999, 3}));
  EXPECT_EQ(ParseMonth("3.99", 2024), (YearMonth{1999, 3}));
  for (const char* text : {"", "0.2024", "13", "3.202", "3..2024", "x", "1.3.2024", "3,2024", "3.1752"}) {
    EXPECT_EQ(ParseMonth(text, 2024), std::nullopt) << text;
  }
  EXPECT_EQ(Shifted({9999, 12}, 1), (YearMonth{9999, 12}));
  EXPECT_EQ(MonthText({2024, 3}), "03.2024");
}

std::optional<std::string> Edited(const TextRequest& request, const std::function<void(QPlainTextEdit&)>& act,
                                  bool take = true) {
  WhenOpen([&act, take](QDialog& dialog) {
    act(Part<QPlainTextEdit>(dialog, "text"));
    if (dialog.isVisible()) Click(dialog, take ? "ok" : "cancel");
  });
  return ShowTextEditor(nullptr, request);
}

TEST(TextDialogTest, KeepsTheLimit) {
  const TextRequest request{.caption = "Text", .text = "abc", .read_only = false, .max_length = 5};
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { QTest::keyClicks(&text, "defg"); }), "abcde");
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { text.insertPlainText("1234567"); }), "abc12")
      << "a paste fills what is left";
  EXPECT_EQ(Edited(request,
                   [](QPlainTextEdit& text) {
                     text.moveCursor(QTextCursor::Start);
                     QTest::keyClicks(&text, "xyz");
                   }),
            "xyabc")
      << "what was there stays";
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { text.insertPlainText(ToQt("d🌲")); }), "abcd")
      << "no half characters";
  TextRequest too_long = request;
  too_long.text = "abcdefgh";
  EXPECT_EQ(Edited(too_long, [](QPlainTextEdit& text) { QTest::keyClick(&text, Qt::Key_Backspace); }),
            "abcdefg");
}

TEST(TextDialogTest, KeepsTheKindOfLines) {
  TextRequest request{.caption = "Text", .text = "a\r\nb", .read_only = false, .max_length = 6};
  EXPECT_EQ(Edited(request, [](QPlainTextEdit&) {}), "a\r\nb");
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { QTest::keyClick(&text, Qt::Key_Return); }),
            "a\r\nb\r\n");
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { text.insertPlainText("\nx"); }), "a\r\nb\r\n")
      << "a break counts twice where it is two characters";
  request.text = "ä\nb";
  EXPECT_EQ(Edited(request, [](QPlainTextEdit& text) { QTest::keyClicks(&text, "!"); }), "ä\nb!");
}

TEST(TextDialogTest, EndsAsTheUserSays) {
  TextRequest request{.caption = "Text", .text = "a", .read_only = false, .max_length = 0};
  EXPECT_EQ(Edited(
                request, [](QPlainTextEdit& text) { QTest::keyClicks(&text, "b"); }, false),
            std::nullopt);
  EXPECT_EQ(Edited(request,
                   [](QPlainTextEdit& text) {
                     QTest::keyClicks(&text, "b");
                     QTest::keyClick(&text, Qt::Key_Return, Qt::ControlModifier);
                   }),
            "ab");
  request.read_only = true;
  EXPECT_EQ(Edited(
                request, [](QPlainTextEdit& text) { QTest::keyClicks(&text, "b"); }, false),
            std::nullopt);
}

int Answered(int style, const std::function<void(QDialog&)>& act) {
  WhenOpen(act);
  return ShowMessageBox(nullptr, "<b>Frage</b>?", style, "Titel");
}

TEST(MessageDialogTest, IsAsWideAsItsTitleAndItsText) {
  const std::string title = "Arbeitnehmer – 10005 Lindner Paul, 03.2026 – Forstbetrieb 1000, Auftrag 1";
  const std::string text = "Die Angabe Personalnummer ist nicht vorhanden.";
  for (const auto& [head, words] : {std::pair(title, text), std::pair(std::string("T"), text)}) {
    WhenOpen([](QDialog& dialog) {
      const auto& label = Part<QLabel>(dialog, "qt_msgbox_label");
      const int beside =
          dialog.fontMetrics().horizontalAdvance("0000000000000000");  // the window's own buttons
      EXPECT_GT(dialog.width(), dialog.fontMetrics().horizontalAdvance(dialog.windowTitle()) + beside);
      EXPECT_GE(label.width(), label.fontMetrics().horizontalAdvance(label.text()));
      dialog.reject();
    });
    ShowMessageBox(nullptr, words, kBoxOk, head);
  }
}

TEST(MessageDialogTest, ButtonsFollowTheStyle) {
  EXPECT_EQ(Answered(kBoxOk, Keys({Qt::Key_Return})), kAnswerOk);
  EXPECT_EQ(Answered(kBoxOk, Keys({Qt::Key_Escape})), kAnswerOk);
  EXPECT_EQ(Answered(kBoxOkCancel, Keys({Qt::Key_Escape})), kAnswerCancel);
  EXPECT_EQ(Answered(kBoxYesNo | kBoxQuestion, Keys({Qt::Key_Return})), kAnswerYes);
  EXPECT_EQ(Answered(kBoxYesNo | kBoxSecondIsDefault, Keys({Qt::Key_Return})), kAnswerNo);
  EXPECT_EQ(Answered(kBoxYesNoCancel, Keys({Qt::Key_Escape})), kAnswerCancel);
  EXPECT_EQ(Answered(kBoxYesNoCancel, [](QDialog& dialog) { Click(dialog, "no"); }), kAnswerNo);
  EXPECT_EQ(Answered(kBoxYesNo, Keys({Qt::Key_Escape})), kAnswerNo);
  EXPECT_EQ(Answered(kBoxYesNo, [](QDialog& dialog) { dialog.close(); }), kAnswerNo);
  EXPECT_EQ(Answered(kBoxYesNo,
                     [](QDialog& dialog) {
                       EXPECT_EQ(Part<QAbstractButton>(dialog, "yes").text(), "&Ja");
                       Click(dialog, "yes");
                     }),
            kAnswerYes);
}

TEST(MessageDialogTest, InputBoxGivesTheText) {
  const auto entered = [](const std::function<void(QDialog&)>& act) {
    WhenOpen(act);
    return ShowInputBox(nullptr, "Name:", "Titel", "alt");
  };
  EXPECT_EQ(entered(Keys({Qt::Key_Return})), "alt");
  EXPECT_EQ(entered([](QDialog& dialog) {
              Type(dialog, "Käfer");
              Press(dialog, Qt::Key_Enter);
            }),
            "Käfer");
  EXPECT_EQ(entered(Keys({Qt::Key_Escape})), "");
}

}  // namespace
}  // namespace tarvoni::qt
