#pragma once

#include "platform/qt/control_view.h"
#include "src/context/controls/grid.h"

namespace tarvoni::qt {

class TableView;

// A grid of either kind, shown by the table widget.
class GridView : public ControlView {
 public:
  GridView(Grid& grid, FormWindow& window, QWidget* parent);
  QWidget* Widget() const override;
  QWidget* Target() const override;
  void Show(Aspect aspect) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  TableView& Rows() const { return *view_; }

 protected:
  bool Navigate(const QKeyEvent& event) override;

 private:
  void MoveTo(int row);

  Grid& grid_;
  TableView* view_;
};

}  // namespace tarvoni::qt
