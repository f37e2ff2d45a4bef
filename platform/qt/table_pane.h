#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QWidget>
#include <functional>
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
  // "12 Zeilen", "Zeile 3 von 12", or while something is searched "4 von 12 Zeilen".
  void ShowCount();
  // A list of a Screen, not of a dialog that chooses: it tells the current row's number and can be searched.
  void ServeScreen();
  // Shows the line to type what is searched; rows that do not answer it are hidden.
  void OpenSearch();
  // Hides the rows again that do not answer what is searched, after rows changed.
  void FilterRows();
  // Shows the current row also if it does not answer what is searched.
  void RevealCurrent();
  // The row `steps` shown rows away, or the last on the way; -1 if none is shown.
  int ShownRow(int from, int steps) const;
  bool IsSearching() const { return !search_->text().isEmpty(); }
  // Shows all rows again; false if nothing was searched.
  bool EndSearch();

  void MakeCurrent(int row);
  int CurrentRow() const { return table_->currentIndex().isValid() ? table_->currentIndex().row() : -1; }

  // Widths that show the captions and the cells of some rows; none is wider than a third of the screen.
  void FitColumns();

  void Copy() const;
  // Asks for the file, writes it, and tells what failed.
  void ExportCsv();
  void ExportXlsx();
  // The rows that are shown, through the preview.
  void Print();
  Value PrintedCell(int row, int column) const;
  // The table holds no more than one row in which nothing stands.
  bool IsVoid() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 public:
  // Called when the user is done with searching and goes back to the table.
  std::function<void()> search_left;
  // Called when what the user searches hides the current row.
  std::function<void()> current_hidden;

 private:
  void AddAction(const QString& text, const QKeySequence& keys, void (TablePane::*act)());
  void CopySelection() { Copy(); }
  void SelectAll() { table_->selectAll(); }
  void Search();
  void ShowSum();
  // Without what a search hides.
  std::vector<CellRange> SelectedCells() const;

  const TableSource& source_;
  TableModel* model_;
  QTableView* table_;
  QLineEdit* search_;
  QLabel* count_;
  QLabel* sum_;
  std::string title_;
  bool serves_screen_ = false;
  bool filtered_ = false;
  int found_ = 0;  // rows that answer what is searched
};

}  // namespace tarvoni::qt
