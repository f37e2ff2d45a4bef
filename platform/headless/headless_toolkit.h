#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/headless/driver.h"
#include "src/context/toolkit.h"
#include "src/context/user_actions.h"

namespace tarvoni {

// Who plays the user where there is no window: drives each Screen and answers whatever opens.
class Partner {
 public:
  virtual ~Partner() = default;
  // Drives the Screen that was just shown; returns when it is unloaded.
  virtual void Drive(Form& form) = 0;
  virtual int MessageBox(const std::string& prompt, int style, const std::string& title) = 0;
  virtual std::string InputBox(const std::string& prompt, const std::string& title,
                               const std::string& initial) = 0;
  virtual PickResult PickList(const PickRequest& request) = 0;
  virtual std::optional<DateTime> PickDate(const std::string& caption,
                                           const std::optional<DateTime>& start) = 0;
  virtual std::optional<YearMonth> PickMonth(const std::string& caption, const YearMonth& start) = 0;
  virtual std::vector<std::int32_t> PickLocations(const LocationRequest& request) = 0;
  virtual std::optional<std::string> EditText(const TextRequest& request) = 0;
  virtual void PreviewPrint(const PrintDocument& document) = 0;
};

// The toolkit without windows.
class HeadlessToolkit : public Toolkit, public Driver {
 public:
  void SetPartner(Partner* partner) { partner_ = partner; }
  // The user of the topmost Screen; a CallError if none is open.
  UserActions& Top() const;

  bool Focus(Control& control) override;
  void Key(Control& control, int key) override;
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
  void Close(Form& form) override;

 protected:
  void DoShowModal(Form& form) override;
  int DoMessageBox(const std::string& prompt, int style, const std::string& title) override;
  std::string DoInputBox(const std::string& prompt, const std::string& title,
                         const std::string& initial) override;
  PickResult DoPickList(const PickRequest& request) override;
  std::optional<DateTime> DoPickDate(const std::string& caption,
                                     const std::optional<DateTime>& start) override;
  std::optional<YearMonth> DoPickMonth(const std::string& caption, const YearMonth& start) override;
  std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) override;
  std::optional<std::string> DoEditText(const TextRequest& request) override;
  void DoPreviewPrint(const PrintDocument& document) override;

 private:
  Partner& Other() const;
  // Does one thing as the user, then lets the timers run that became due.
  template <typename Action>
  void As(Action action);

  Partner* partner_ = nullptr;
  std::vector<UserActions*> users_;
};

}  // namespace tarvoni
