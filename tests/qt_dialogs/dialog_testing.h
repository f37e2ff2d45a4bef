#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QTest>
#include <QTimer>
#include <functional>
#include <string>
#include <utility>

#include "platform/qt/public/text.h"
#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Acts on the dialog that opens next. The action must close it.
inline void WhenOpen(std::function<void(QDialog&)> act) {
  QTimer::singleShot(0, [act = std::move(act)] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || !QTest::qWaitForWindowActive(dialog)) return;
    act(*dialog);
    if (QApplication::activeModalWidget() != dialog) return;
    ADD_FAILURE() << "The dialog is still open.";
    dialog->done(QDialog::Rejected);
  });
}

template <typename Widget = QWidget>
Widget& Part(QWidget& dialog, const char* name) {
  auto* widget = dialog.findChild<Widget*>(name);
  if (!widget) throw std::runtime_error(std::string("The dialog has no ") + name);
  return *widget;
}

// Keys go where a user's would: to the focus.
inline void Press(QDialog& dialog, Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QWidget* focus = dialog.focusWidget();
  QTest::keyClick(focus ? focus : &dialog, key, modifiers);
}
inline void Type(QDialog& dialog, const char* text) {
  for (const QChar c : QString(text))
    QTest::sendKeyEvent(QTest::Click, dialog.focusWidget(), Qt::Key_unknown, QString(c), Qt::NoModifier);
}
inline void Click(QDialog& dialog, const char* button) {
  QTest::mouseClick(&Part(dialog, button), Qt::LeftButton);
}

// As a mouse sends it: a click comes before.
inline void DoubleClick(QWidget& widget, QPoint at) {
  QTest::mouseClick(&widget, Qt::LeftButton, {}, at);
  QTest::mouseDClick(&widget, Qt::LeftButton, {}, at);
}

// A statement's result out of its cells, row by row.
inline Recordset Rows(std::vector<Column> columns, std::vector<Value> cells) {
  return Recordset(RowSet{std::move(columns), std::move(cells)});
}

// Orders with a hidden id, a code, a name and a quantity.
inline PickRequest OrdersToPick() {
  const auto text = [](const char* word) { return std::string(word); };
  return {.caption = "Aufträge",
          .rows = Rows({{"ID", FieldType::kInteger},
                        {"CODE", FieldType::kVarChar, 10},
                        {"NAME", FieldType::kVarChar, 30},
                        {"MENGE", FieldType::kNumeric}},
                       {std::int64_t{901}, text("12"),  text("Käferholz"),      Decimal(1255, 2),  //
                        std::int64_t{902}, text("1"),   text("Pflege 12"),      Decimal(75, 1),    //
                        std::int64_t{903}, text("120"), text("Müllerweg"),      Null{},            //
                        std::int64_t{904}, text("2"),   text("Mueller Gatter"), Decimal(-3, 0),    //
                        std::int64_t{905}, text("X1"),  text("Wegebau"),        Decimal(100, 0)}),
          .code_column = 1,
          .hidden_columns = 1,
          .start_text = "",
          .option = "",
          .extra_button = ""};
}

}  // namespace tarvoni::qt
