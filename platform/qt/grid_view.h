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
  bool Key(const QKeyEvent& event) override;
  bool Press(const QMouseEvent& event, bool twice) override;
  // Opens the line to type what is searched, if the list is open.
  void Search();
  TableView& Rows() const { return *view_; }

 protected:
  bool Navigate(const QKeyEvent& event) override;
  void Reveal() const override;

 private:
  void MoveTo(int row);
  bool StepKey(const QKeyEvent& event);
  // How many rows a key moves; 0 for any other key.
  int StepOf(const QKeyEvent& event) const;

  Grid& grid_;
  TableView* view_;
};

}  // namespace tarvoni::qt
