#include "platform/qt/list_view.h"

#include <QListWidget>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/form_window.h"
#include "platform/qt/public/text.h"

namespace tarvoni::qt {

void ItemListView::Choose(int index) {
  if (index < 0 || index >= list_.ListCount() || index == list_.ListIndex()) return;
  Window().Act([&](UserActions& user) { user.SelectItem(list_, index); });
}

int ItemListView::Target(const QKeyEvent& event) const {
  constexpr int kPage = 10;
  const int last = list_.ListCount() - 1;
  switch (event.key()) {
    case Qt::Key_Home:
      return std::min(0, last);
    case Qt::Key_End:
      return last;
    case Qt::Key_PageUp:
      return std::max(list_.ListIndex() - kPage, std::min(0, last));
    case Qt::Key_PageDown:
      return std::min(list_.ListIndex() + kPage, last);
    default:
      return list_.ListIndex();
  }
}

bool ItemListView::Navigate(const QKeyEvent& event) {
  Choose(Target(event));
  return true;
}

void ItemListView::Typed(const std::u32string& text) {
  ControlView::Typed(text);
  if (!list_.HasFocus()) return;
  const QString start = QString::fromStdU32String(text);
  for (int step = 1; step <= list_.ListCount(); ++step) {
    const int index = (list_.ListIndex() + step) % list_.ListCount();
    if (!ToQt(list_.List(index)).startsWith(start, Qt::CaseInsensitive)) continue;
    return Choose(index);
  }
}

ListBoxView::ListBoxView(ListBox& list, FormWindow& window, QWidget* parent)
    : ItemListView(list, window), widget_(new QListWidget(parent)) {
  widget_->setFocusPolicy(Qt::TabFocus);
  widget_->setUniformItemSizes(true);
  Watch(widget_->viewport());
}

QWidget* ListBoxView::Widget() const {
  return widget_;
}

void ListBoxView::Show(Aspect aspect) {
  ControlView::Show(aspect);
  if (aspect == Aspect::kItems && widget_->count() > Items().ListCount() && !stale_) {
    stale_ = true;
    QMetaObject::invokeMethod(
        widget_, [this] { ShowItemsAnew(); }, Qt::QueuedConnection);
  }
  if (stale_ || (aspect != Aspect::kItems && aspect != Aspect::kText)) return;
  if (aspect == Aspect::kItems) ShowItems(*widget_);
  ShowChoice();
}

void ListBoxView::ShowItemsAnew() {
  stale_ = false;
  const int scrolled = widget_->verticalScrollBar()->value();
  widget_->clear();
  ShowItems(*widget_);
  widget_->verticalScrollBar()->setValue(scrolled);
  ShowChoice();
}

void ListBoxView::ShowChoice() {
  widget_->setCurrentRow(Items().ListIndex());
}

int ListBoxView::ItemAt(const QMouseEvent& event) const {
  return widget_->row(widget_->itemAt(event.position().toPoint()));
}

bool ListBoxView::Press(const QMouseEvent& event, bool twice) {
  const int row = ItemAt(event);
  if (event.button() != Qt::LeftButton || row < 0 || twice) return ControlView::Press(event, twice);
  Window().Act([&](UserActions& user) { user.SelectItem(Items(), row); });
  return true;
}

bool ListBoxView::Other(QEvent& event) {
  return event.type() == QEvent::MouseMove;
}

MultiListBoxView::MultiListBoxView(MultiListBox& list, FormWindow& window, QWidget* parent)
    : ListBoxView(list, window, parent), list_(list) {
  Box().setSelectionMode(QAbstractItemView::ExtendedSelection);
}

void MultiListBoxView::Show(Aspect aspect) {
  ListBoxView::Show(aspect);
  if (aspect == Aspect::kSelection && Box().count() == list_.ListCount()) ShowChoice();
}

void MultiListBoxView::ShowChoice() {
  const QAbstractItemModel& items = *Box().model();
  QItemSelection marked;
  for (const int item : list_.MarkedItems()) {
    const QModelIndex index = items.index(item, 0);
    const bool goes_on = !marked.isEmpty() && marked.back().bottom() == item - 1;
    if (goes_on) {
      marked.back() = QItemSelectionRange(marked.back().topLeft(), index);
    } else {
      marked.append(QItemSelectionRange(index));
    }
  }
  Box().selectionModel()->setCurrentIndex(items.index(list_.ListIndex(), 0), QItemSelectionModel::NoUpdate);
  Box().selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
}

bool MultiListBoxView::Key(const QKeyEvent& event) {
  if (!event.matches(QKeySequence::SelectAll)) return ListBoxView::Key(event);
  Window().Act([&](UserActions& user) { user.MarkAll(list_); });
  return true;
}

bool MultiListBoxView::Navigate(const QKeyEvent& event) {
  const int target = Target(event);
  if (!event.modifiers().testFlag(Qt::ShiftModifier) || target == list_.ListIndex())
    return ListBoxView::Navigate(event);
  Window().Act([&](UserActions& user) { user.MarkTo(list_, target); });
  return true;
}

bool MultiListBoxView::Press(const QMouseEvent& event, bool twice) {
  const int row = ItemAt(event);
  const auto modifiers = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
  if (event.button() != Qt::LeftButton || row < 0 || twice || !modifiers)
    return ListBoxView::Press(event, twice);
  const bool to_here = modifiers.testFlag(Qt::ShiftModifier);
  Window().Act([&](UserActions& user) { to_here ? user.MarkTo(list_, row) : user.ToggleMark(list_, row); });
  return true;
}

}  // namespace tarvoni::qt
