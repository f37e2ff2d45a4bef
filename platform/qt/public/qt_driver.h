#pragma once

#include <Qt>
#include <filesystem>

#include "platform/qt/public/qt_toolkit.h"
#include "platform/script/public/driver.h"

namespace tarvoni::qt {

class ControlView;

// The hands of a script on the desktop: real key and mouse events for the widgets of the topmost Screen.
class QtDriver : public Driver {
 public:
  // Pictures go to `shots` as "NAME.png"; without a folder none are taken.
  explicit QtDriver(QtToolkit& toolkit, std::filesystem::path shots = {})
      : toolkit_(toolkit), shots_(std::move(shots)) {}

  bool Focus(Control& control) override;
  void Key(Control& control, int key, int shift) override;
  void Type(Control& control, std::string_view text) override;
  void Paste(Control& control, std::string_view text) override;
  void SelectAll(Control& control) override;
  void Click(Control& control) override;
  void DoubleClick(Control& control) override;
  void MouseDown(Control& control) override;
  void SelectItem(ItemList& list, int index) override;
  void ChooseDate(DateControl& control, const std::optional<DateTime>& date) override;
  void ChooseTab(TabControl& tabs, int tab) override;
  void ClickRow(Grid& grid, int row) override;
  void ClickHead(DataGrid& grid, int column) override;
  void ResizeColumn(Grid& grid, int column, int twips) override;
  void Close(Form& form) override;
  void Shot(Form& form, const std::string& name) override;
  // "NAME.png" of the first page, "NAME.pdf" and "NAME.xlsx".
  void ShotPaper(const PrintDocument& document, const std::string& name) override;

 private:
  FormWindow& Top() const;
  ControlView* ViewOf(const Control& control) const;
  // Lets the timers run that became due, and the widgets catch up.
  void Settle() const;
  void SendKey(int key, Qt::KeyboardModifiers modifiers, const QString& text);
  void SendText(std::string_view text);

  QtToolkit& toolkit_;
  std::filesystem::path shots_;
};

}  // namespace tarvoni::qt
