#pragma once

#include <QWidget>
#include <functional>
#include <set>

#include "platform/qt/grid_source.h"
#include "platform/qt/table_pane.h"

namespace tarvoni::qt {

// Shows a grid of a Screen. The grid is its model: it is told what the user does, and shows what it is told to show
// anew. Rows and columns are the grid's, from 0.
class TableView : public QWidget {
 public:
  explicit TableView(Grid& grid, QWidget* parent = nullptr);

  void ShowColumns();  // captions, widths, formats
  void ShowRows();     // the cells
  void ShowRow();      // the current row
  // What the table is about: its accessible name, and the name of an exported file.
  void SetTitle(const std::string& title) { pane_->SetTitle(title); }
  QTableView* Table() const { return pane_->Table(); }
  TablePane& Pane() const { return *pane_; }
  // The row where the user began to mark rows, and the marking of all from there to the current one.
  int Anchor() const { return anchor_row_ < 0 ? pane_->CurrentRow() : anchor_row_; }
  void MarkFrom(int anchor);
  // All columns and a dozen rows; the window takes what of it the screen has.
  QSize sizeHint() const override;

  // The user went to a row, or clicked on it again. A selection drawn with the mouse goes to its last row only.
  std::function<void(int row)> row_chosen;
  std::function<void(int row)> row_double_clicked;
  std::function<void(int column)> head_clicked;
  std::function<void(int column, int twips)> column_resized;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Connect();
  void Report(int row);
  void ReportIfMoved();
  void ShowOrder();
  void FilterRows();
  void ShowWidths();
  void MakeReadableSoon();

  Grid& grid_;
  GridSource source_;
  TablePane* pane_;
  bool showing_ = false;  // the grid speaks, not the user
  bool narrow_ = false;   // columns may still be too narrow to be read
  bool columns_changed_ = false;
  std::set<int> drawn_;    // columns whose width the user set
  bool pressing_ = false;  // the mouse is held down
  int reported_row_ = -1;
  int anchor_row_ = -1;  // where marking began
};

// Widths on the screen of a widget.
int PixelsOfTwips(int twips, const QWidget& widget);
int TwipsOfPixels(int pixels, const QWidget& widget);

}  // namespace tarvoni::qt
