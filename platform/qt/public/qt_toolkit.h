#pragma once

#include <QPointer>
#include <QWidget>
#include <string>
#include <vector>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

class FormWindow;

// The toolkit on the desktop: Screens as modal windows, boxes and lists as dialogs over the topmost one.
class QtToolkit : public Toolkit {
 public:
  // Over which window the first Screen opens; null for none.
  void SetOwner(QWidget* owner) { owner_ = owner; }
  // The window of the topmost Screen; null if none is open.
  FormWindow* TopWindow() const { return windows_.empty() ? nullptr : windows_.back(); }
  FormWindow* WindowOf(const Form& form) const;

 protected:
  // The Screen is open and waits for its user.
  virtual void Attend(FormWindow& window);
  // Over what dialogs open.
  QWidget* DialogOwner() const;

  void DoShowModal(Form& form) override;
  int DoMessageBox(const std::string& prompt, int style, const std::string& title) override;
  std::string DoInputBox(const std::string& prompt, const std::string& title,
                         const std::string& initial) override;
  PickResult DoPickList(const PickRequest& request) override;
  PickResult DoPickPerson(const PickRequest& request) override;
  std::optional<DateTime> DoPickDate(const std::string& caption,
                                     const std::optional<DateTime>& start) override;
  std::optional<YearMonth> DoPickMonth(const std::string& caption, const YearMonth& start) override;
  std::vector<std::int32_t> DoPickLocations(const LocationRequest& request) override;
  std::optional<std::string> DoEditText(const TextRequest& request) override;
  void DoPreviewPrint(const PrintDocument& document) override;
  void ShowWaitPointer(bool waits) override;
  void DoTell(const std::string& sentence) override;
  void DoShowRefusal(Control& control) override;

 private:
  QPointer<QWidget> owner_;
  std::vector<FormWindow*> windows_;
};

}  // namespace tarvoni::qt
