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

bool ItemListView::Navigate(const QKeyEvent& event) {
  constexpr int kPage = 10;
  const int last = list_.ListCount() - 1;
  switch (event.key()) {
    case Qt::Key_Home:
      Choose(0);
      break;
    case Qt::Key_End:
      Choose(last);
      break;
    case Qt::Key_PageUp:
      Choose(std::max(list_.ListIndex() - kPage, 0));
      break;
    case Qt::Key_PageDown:
      Choose(std::min(list_.ListIndex() + kPage, last));
      break;
    default:
      break;
  }
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
  if (aspect == Aspect::kItems) ShowItems(*widget_);
  if (aspect != Aspect::kItems && aspect != Aspect::kText) return;
  widget_->setCurrentRow(Items().ListIndex());
}

bool ListBoxView::Press(const QMouseEvent& event, bool twice) {
  const int row = widget_->row(widget_->itemAt(event.position().toPoint()));
  if (event.button() != Qt::LeftButton || row < 0 || twice) return ControlView::Press(event, twice);
  Window().Act([&](UserActions& user) { user.SelectItem(Items(), row); });
  return true;
}

bool ListBoxView::Other(QEvent& event) {
  return event.type() == QEvent::MouseMove;
}

}  // namespace tarvoni::qt
