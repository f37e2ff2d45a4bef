#include "platform/qt/grid_view.h"

#include <QHeaderView>
#include <QScrollArea>
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
  view_->Pane().current_hidden = [this] {
    QWidget* const typed_in = Window().focusWidget();
    MoveTo(view_->Pane().ShownRow(-1, 1));
    if (typed_in) typed_in->setFocus();
  };
  view_->Pane().search_left = [this] { Window().Act([this](UserActions& user) { user.Focus(grid_); }); };
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

// No further than the current row asks for: the head of a Screen that only shows has nothing else by which to come back.
void GridView::Reveal() const {
  QScrollArea* const area = ScrolledArea();
  if (!area) return;
  const QTableView& table = *view_->Table();
  const int row = std::max(grid_.Row(), 0);
  const int bottom = table.viewport()->y() + table.rowViewportPosition(row) + table.rowHeight(row) + 1;
  const QPoint end = table.mapTo(area->widget(), QPoint(0, std::min(bottom, table.height())));
  area->verticalScrollBar()->setValue(std::max(end.y() - area->viewport()->height(), 0));
}

int GridView::StepOf(const QKeyEvent& event) const {
  const QTableView& table = *view_->Table();
  const int page = std::max(table.viewport()->height() / std::max(table.rowHeight(0), 1) - 1, 1);
  switch (event.key()) {
    case Qt::Key_Up:
      return -1;
    case Qt::Key_Down:
      return 1;
    case Qt::Key_Home:
      return -grid_.RowCount();
    case Qt::Key_End:
      return grid_.RowCount();
    case Qt::Key_PageUp:
      return -page;
    case Qt::Key_PageDown:
      return page;
    default:
      return 0;
  }
}

bool GridView::Key(const QKeyEvent& event) {
  if (event.key() == Qt::Key_Escape && view_->Pane().EndSearch()) return true;
  const bool answered = StepKey(event);
  if (grid_.HasFocus()) Reveal();
  return answered;
}

// Rows that a search hides are no step; with Shift the rows passed over are marked, while the Screen follows.
bool GridView::StepKey(const QKeyEvent& event) {
  const int step = StepOf(event);
  const bool marks = event.modifiers() == Qt::ShiftModifier;
  const bool leaps = event.key() != Qt::Key_Up && event.key() != Qt::Key_Down;
  const bool held = event.modifiers().testFlag(Qt::ControlModifier);
  const bool ends = event.key() == Qt::Key_Home || event.key() == Qt::Key_End;
  if (step == 0 || (held && !ends)) return ControlView::Key(event);
  if (!marks && !leaps && !view_->Pane().IsSearching()) return ControlView::Key(event);
  if (leaps) ControlView::Key(event);  // the Screen hears of the key
  if (!grid_.HasFocus()) return true;
  const int anchor = marks ? view_->Anchor() : -1;
  MoveTo(view_->Pane().ShownRow(grid_.Row(), step));
  if (marks) view_->MarkFrom(anchor);
  return true;
}

void GridView::Search() {
  if (grid_.IsEnabled()) view_->Pane().OpenSearch();
}

bool GridView::Navigate(const QKeyEvent& event) {
  if (event.key() != Qt::Key_Left && event.key() != Qt::Key_Right) return true;
  view_->Table()->horizontalScrollBar()->triggerAction(
      event.key() == Qt::Key_Left ? QScrollBar::SliderSingleStepSub : QScrollBar::SliderSingleStepAdd);
  return true;
}

void GridView::MoveTo(int row) {
  if (row < 0) return;
  Window().Act([&](UserActions& user) {
    if (auto* data_grid = dynamic_cast<DataGrid*>(&grid_)) user.MoveRow(*data_grid, row);
    if (auto* flex_grid = dynamic_cast<FlexGrid*>(&grid_)) flex_grid->SetRow(row);
  });
}

}  // namespace tarvoni::qt
