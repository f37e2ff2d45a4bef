#include "platform/qt/grid_view.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QTableView>
#include <algorithm>

#include "platform/qt/form_window.h"
#include "platform/qt/public/table_view.h"

namespace tarvoni::qt {

GridView::GridView(Grid& grid, FormWindow& window, QWidget* parent)
    : ControlView(grid, window), grid_(grid), view_(new TableView(grid, parent)) {
  view_->Table()->setFocusPolicy(Qt::TabFocus);
  Watch(view_->Table()->viewport());
  // A click on a caption sorts; it must not choose a row.
  QObject::disconnect(view_->Table()->horizontalHeader(), &QHeaderView::sectionPressed, view_->Table(),
                      nullptr);
  view_->row_chosen = [this](int row) {
    Window().Act([&](UserActions& user) { user.ClickRow(grid_, row); });
    view_->ShowRow();
  };
  view_->row_double_clicked = [this](int) {
    Window().Act([this](UserActions& user) { user.SecondClick(grid_); });
  };
  view_->head_clicked = [this](int column) {
    auto* const data_grid = dynamic_cast<DataGrid*>(&grid_);
    if (!data_grid) return;
    Window().Act([&](UserActions& user) { user.ClickHead(*data_grid, column); });
  };
  view_->column_resized = [this](int column, int twips) {
    Window().Act([&](UserActions& user) { user.ResizeColumn(grid_, column, twips); });
  };
}

QWidget* GridView::Widget() const {
  return view_;
}

QWidget* GridView::Target() const {
  return view_->Table();
}

void GridView::Show(Aspect aspect) {
  switch (aspect) {
    case Aspect::kColumns:
      return view_->ShowColumns();
    case Aspect::kRows:
      return view_->ShowRows();
    case Aspect::kRow:
      return view_->ShowRow();
    default:
      return ControlView::Show(aspect);
  }
}

bool GridView::Press(const QMouseEvent& event, bool twice) {
  const bool on_row = view_->Table()->rowAt(event.position().toPoint().y()) >= 0;
  // The table tells which row was chosen.
  if (event.button() == Qt::LeftButton && on_row) return false;
  return ControlView::Press(event, twice);
}

bool GridView::Navigate(const QKeyEvent& event) {
  const QTableView& table = *view_->Table();
  const int page = std::max(table.viewport()->height() / std::max(table.rowHeight(0), 1) - 1, 1);
  const int last = grid_.RowCount() - 1;
  switch (event.key()) {
    case Qt::Key_Home:
      MoveTo(0);
      break;
    case Qt::Key_End:
      MoveTo(last);
      break;
    case Qt::Key_PageUp:
      MoveTo(std::max(grid_.Row() - page, 0));
      break;
    case Qt::Key_PageDown:
      MoveTo(std::min(grid_.Row() + page, last));
      break;
    case Qt::Key_Left:
    case Qt::Key_Right:
      table.horizontalScrollBar()->triggerAction(
          event.key() == Qt::Key_Left ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
      break;
    default:
      break;
  }
  return true;
}

void GridView::MoveTo(int row) {
  Window().Act([&](UserActions& user) {
    if (auto* data_grid = dynamic_cast<DataGrid*>(&grid_)) user.MoveRow(*data_grid, row);
    if (auto* flex_grid = dynamic_cast<FlexGrid*>(&grid_)) flex_grid->SetRow(row);
  });
}

}  // namespace tarvoni::qt
