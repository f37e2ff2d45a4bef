#pragma once

#include <QDialog>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "platform/qt/pick_rows.h"
#include "platform/qt/table_pane.h"

namespace tarvoni::qt {

// A list with a filter above it, of which one row is picked.
class PickDialog : public QDialog {
 public:
  struct Words {
    const char* filter;       // label of the filter
    const char* placeholder;  // what can be typed there
    const char* none;         // when nothing fits
  };

  PickDialog(QWidget* parent, const PickRequest& request, const Locale& locale, const Words& words);

  PickResult Result() const { return result_; }
  const PickRows& Rows() const { return rows_; }
  TablePane& List() { return *list_; }
  // Puts a widget between the list and the buttons.
  void AddBelowList(QWidget* widget);

  void accept() override;

 protected:
  void showEvent(QShowEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Build(const PickRequest& request);
  QHBoxLayout* FilterLine();
  void SetUpColumns();
  QHBoxLayout* Foot(const PickRequest& request);
  void ResizeToRows();
  void Connect();
  void Begin(const std::string& start_text);
  void FilterRows();
  void Sort(int column);
  void PressExtra();
  void ShowState();
  bool FilterKey(QKeyEvent& key);
  bool ListKey(QKeyEvent& key);

  Words words_;
  PickRows rows_;
  QLineEdit* filter_;
  TablePane* list_;
  QPushButton* ok_ = nullptr;
  QPushButton* extra_ = nullptr;
  bool typed_ = false;  // since the user last moved in the list
  PickResult result_;
};

}  // namespace tarvoni::qt
