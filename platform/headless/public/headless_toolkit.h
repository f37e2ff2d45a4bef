#pragma once

#include <string>
#include <vector>

#include "platform/script/public/answered_toolkit.h"
#include "platform/script/public/driver.h"
#include "src/context/services/user_actions.h"

namespace tarvoni {

// The toolkit without windows.
class HeadlessToolkit : public AnsweredToolkit<Toolkit>, public Driver {
 public:
  // The user of the topmost Screen; a CallError if none is open.
  UserActions& Top() const;

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

 protected:
  void DoShowModal(Form& form) override;

 private:
  // Does one thing as the user, then lets the timers run that became due.
  template <typename Action>
  void As(Action action);

  std::vector<UserActions*> users_;
};

}  // namespace tarvoni
