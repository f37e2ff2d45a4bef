#include "platform/qt/cell_size.h"

#include <QComboBox>
#include <QFrame>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QTableView>
#include <algorithm>
#include <vector>

#include "platform/qt/public/look.h"

namespace tarvoni::qt {
namespace {

constexpr int kLeast = 20;  // characters of a box that takes the free width

int LineEditWidth(const QLineEdit& edit, int characters) {
  QStyleOptionFrame option;
  option.initFrom(&edit);
  option.lineWidth = edit.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &option, &edit);
  const int icon = edit.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &edit);
  const int buttons = static_cast<int>(edit.actions().size()) * (icon + icon / 2);
  const QSize inner(CharactersWide(edit, characters + 1) + buttons, edit.fontMetrics().height());
  return edit.style()->sizeFromContents(QStyle::CT_LineEdit, &option, inner, &edit).width();
}

void SetWidth(QWidget& widget, int width, bool fixed) {
  widget.setMinimumWidth(width);
  if (fixed) widget.setMaximumWidth(width);
  if (!fixed) widget.setSizePolicy(QSizePolicy::Expanding, widget.sizePolicy().verticalPolicy());
}

}  // namespace

bool SizeCell(QWidget& widget, int characters) {
  const bool fixed = characters > 0;
  const int shown = fixed ? characters : kLeast;
  if (const auto* edit = qobject_cast<QLineEdit*>(&widget)) {
    SetWidth(widget, LineEditWidth(*edit, shown), fixed);
  } else if (auto* combo = qobject_cast<QComboBox*>(&widget)) {
    combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    combo->setMinimumContentsLength(shown);
    SetWidth(widget, combo->sizeHint().width(), fixed);
  } else if (qobject_cast<QLabel*>(&widget)) {
    if (!fixed && !static_cast<QLabel&>(widget).text().isEmpty()) return false;
    SetWidth(widget, CharactersWide(widget, shown), fixed);
  } else {
    return false;
  }
  return !fixed;
}

void SizeLines(QWidget& widget, int lines, int characters) {
  const auto* const frame = qobject_cast<QFrame*>(&widget);
  const int border = frame ? 2 * frame->frameWidth() : 0;
  const int gap = LinesHigh(widget, 1) / 2;
  widget.setFixedHeight(LinesHigh(widget, lines) + border + gap);
  const int bar = widget.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &widget);
  SetWidth(widget, CharactersWide(widget, characters > 0 ? characters : kLeast) + border + bar,
           characters > 0);
}

void SizeTable(QWidget& table, int rows) {
  constexpr int kFewest = 4;
  constexpr int kNarrowest = 40;
  const auto& view = static_cast<const QTableView&>(table);
  const int bar = table.style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, &table);
  const int edge = view.horizontalHeader()->sizeHint().height() + bar + 2 * view.frameWidth();
  const int line = view.verticalHeader()->defaultSectionSize();
  table.setMinimumSize(CharactersWide(table, kNarrowest), edge + line * (rows > 0 ? rows : kFewest));
  if (rows > 0) table.setMaximumHeight(table.minimumHeight());
}

void SizeButtons(QLayout& bar) {
  constexpr int kShort = 12;
  constexpr int kLong = 24;
  std::vector<QWidget*> buttons;
  for (int i = 0; i < bar.count(); ++i) {
    if (auto* button = qobject_cast<QPushButton*>(bar.itemAt(i)->widget())) buttons.push_back(button);
  }
  int width = 0;
  for (const QWidget* button : buttons) {
    width = std::max(width, CharactersWide(*button, kShort));
    if (const int hint = button->sizeHint().width(); hint <= CharactersWide(*button, kLong))
      width = std::max(width, hint);
  }
  for (QWidget* button : buttons) button->setMinimumWidth(std::max(width, button->sizeHint().width()));
}

}  // namespace tarvoni::qt
