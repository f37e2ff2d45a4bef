#pragma once

#include <QLayout>
#include <vector>

namespace tarvoni::qt {

// Buttons beside each other, in as many lines as the width asks for. Gaps take what is left of their line.
class BarLayout : public QLayout {
 public:
  BarLayout() = default;
  BarLayout(const BarLayout&) = delete;
  BarLayout& operator=(const BarLayout&) = delete;
  ~BarLayout() override;

  void AddGap();

  void addItem(QLayoutItem* item) override { items_.push_back(item); }
  int count() const override { return static_cast<int>(items_.size()); }
  QLayoutItem* itemAt(int index) const override;
  QLayoutItem* takeAt(int index) override;
  Qt::Orientations expandingDirections() const override { return Qt::Horizontal; }
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSize() const override;
  void setGeometry(const QRect& room) override;

 private:
  struct Line {
    int first = 0;
    int end = 0;
    int width = 0;  // without gaps
    int gaps = 0;
  };
  std::vector<Line> Lines(int width) const;
  int LineHeight() const;
  int Between() const;
  void Place(const Line& line, const QRect& room);
  static bool IsGap(QLayoutItem& item) { return !item.widget() && !item.layout(); }

  std::vector<QLayoutItem*> items_;
};

}  // namespace tarvoni::qt
