#include "platform/qt/bar_layout.h"

#include <QStyle>
#include <QWidget>
#include <algorithm>

namespace tarvoni::qt {

BarLayout::~BarLayout() {
  for (const QLayoutItem* item : items_) delete item;
}

void BarLayout::AddGap() {
  addItem(new QSpacerItem(0, 0, QSizePolicy::Expanding, QSizePolicy::Minimum));
}

QLayoutItem* BarLayout::itemAt(int index) const {
  return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)] : nullptr;
}

QLayoutItem* BarLayout::takeAt(int index) {
  QLayoutItem* const item = itemAt(index);
  if (item) items_.erase(items_.begin() + index);
  return item;
}

int BarLayout::Between() const {
  const QWidget* const parent = parentWidget();
  return spacing() >= 0 ? spacing()
         : parent       ? parent->style()->pixelMetric(QStyle::PM_LayoutHorizontalSpacing, nullptr, parent)
                        : 0;
}

int BarLayout::LineHeight() const {
  int height = 0;
  for (const QLayoutItem* item : items_) {
    if (!item->isEmpty()) height = std::max(height, item->sizeHint().height());
  }
  return height;
}

std::vector<BarLayout::Line> BarLayout::Lines(int width) const {
  std::vector<Line> lines(1);
  for (int i = 0; i < count(); ++i) {
    QLayoutItem& item = *itemAt(i);
    Line* line = &lines.back();
    if (IsGap(item)) {
      ++line->gaps;
    } else if (!item.isEmpty()) {
      const int wide = item.sizeHint().width();
      if (line->width > 0 && line->width + Between() + wide > width) {
        lines.push_back({.first = i, .end = i});
        line = &lines.back();
      }
      line->width += wide + (line->width > 0 ? Between() : 0);
    }
    line->end = i + 1;
  }
  return lines;
}

int BarLayout::heightForWidth(int width) const {
  const QMargins edge = contentsMargins();
  const auto lines = static_cast<int>(Lines(width - edge.left() - edge.right()).size());
  return lines * LineHeight() + (lines - 1) * Between() + edge.top() + edge.bottom();
}

QSize BarLayout::sizeHint() const {
  const Line line = Lines(QWIDGETSIZE_MAX).front();
  return QSize(line.width, LineHeight()).grownBy(contentsMargins());
}

QSize BarLayout::minimumSize() const {
  int width = 0;
  for (const QLayoutItem* item : items_) width = std::max(width, item->minimumSize().width());
  return QSize(width, LineHeight()).grownBy(contentsMargins());
}

void BarLayout::setGeometry(const QRect& room) {
  QLayout::setGeometry(room);
  QRect line_room = room.marginsRemoved(contentsMargins());
  line_room.setHeight(LineHeight());
  for (const Line& line : Lines(line_room.width())) {
    Place(line, line_room);
    line_room.translate(0, LineHeight() + Between());
  }
}

void BarLayout::Place(const Line& line, const QRect& room) {
  const int gap = line.gaps > 0 ? std::max(room.width() - line.width, 0) / line.gaps : 0;
  int x = room.left();
  for (int i = line.first; i < line.end; ++i) {
    QLayoutItem& item = *itemAt(i);
    if (IsGap(item)) {
      x += gap;
    } else if (!item.isEmpty()) {
      item.setGeometry({{x, room.top()}, QSize(item.sizeHint().width(), room.height())});
      x += item.sizeHint().width() + Between();
    }
  }
}

}  // namespace tarvoni::qt
