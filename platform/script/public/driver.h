#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/context/controls/form.h"
#include "src/context/services/print_document.h"

namespace tarvoni {

// The hands of a script: what it does to the Screen on top. Headless they raise the user actions directly, on
// the desktop they send real key and mouse events. A call returns when its events, posted keys and due timers
// have run.
class Driver {
 public:
  virtual ~Driver() = default;
  // False if the focus does not arrive.
  virtual bool Focus(Control& control) = 0;
  // Keys for the control that has the focus. `shift`: 1 Shift, 2 Ctrl, 4 Alt.
  virtual void Key(Control& control, int key, int shift) = 0;
  virtual void Type(Control& control, std::string_view text) = 0;
  virtual void Paste(Control& control, std::string_view text) = 0;
  // Selects what stands in the control, so that typing replaces it.
  virtual void SelectAll(Control& control) = 0;
  virtual void Click(Control& control) = 0;
  virtual void DoubleClick(Control& control) = 0;
  virtual void MouseDown(Control& control) = 0;
  virtual void SelectItem(ItemList& list, int index) = 0;
  virtual void ChooseDate(DateControl& control, const std::optional<DateTime>& date) = 0;
  virtual void ChooseTab(TabControl& tabs, int tab) = 0;
  virtual void ClickRow(Grid& grid, int row) = 0;
  virtual void ClickHead(DataGrid& grid, int column) = 0;
  virtual void ResizeColumn(Grid& grid, int column, int twips) = 0;
  // The close button of the Screen's window.
  virtual void Close(Form& form) = 0;
  // Saves a picture of the Screen; nothing where there is none to see.
  virtual void Shot(Form&, const std::string& /*name*/) {}
  // Saves a paper that is shown before it is printed, likewise.
  virtual void ShotPaper(const PrintDocument&, const std::string& /*name*/) {}
};

}  // namespace tarvoni
