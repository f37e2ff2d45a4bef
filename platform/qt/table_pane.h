#pragma once

#include <QLabel>
#include <QTableView>
#include <QWidget>
#include <string>

#include "platform/qt/selection_sum.h"
#include "platform/qt/table_model.h"

namespace tarvoni::qt {

// A table with a line below it for the number of rows and the sum of the chosen cells, with copying and exporting in
// its context menu. Rows have one height, so that long tables open at once.
class TablePane : public QWidget {
 public:
  enum class RowMark { kTint, kFull };  // how the current row stands out

  // `source` outlives the pane.
  TablePane(const TableSource& source, RowMark mark, QWidget* parent);

  QTableView* Table() const { return table_; }
  TableModel& Model() { return *model_; }
  // What the table is about: its accessible name, and the name of an exported file.
  void SetTitle(const std::string& title);
  // Replaces "12 Zeilen".
  void SetCountText(const QString& text) { count_->setText(text); }
  void ShowCount();

  void MakeCurrent(int row);
  int CurrentRow() const { return table_->currentIndex().isValid() ? table_->currentIndex().row() : -1; }

  // Widths that show the captions and the cells of some rows; none is wider than a third of the screen.
  void FitColumns();

  void Copy() const;
  // Asks for the file, writes it, and tells what failed.
  void ExportCsv();
  void ExportXlsx();

 private:
  void AddAction(const QString& text, const QKeySequence& keys, void (TablePane::*act)());
  void CopySelection() { Copy(); }
  void SelectAll() { table_->selectAll(); }
  void ShowSum();
  std::vector<CellRange> SelectedCells() const;

  const TableSource& source_;
  TableModel* model_;
  QTableView* table_;
  QLabel* count_;
  QLabel* sum_;
  std::string title_;
};

}  // namespace tarvoni::qt
