#pragma once

#include <QDialog>
#include <QPointer>

namespace tarvoni::qt {

// A dialog for the length of a scope. Its parent may die while it is open, and takes it along.
template <typename Dialog>
class Modal {
 public:
  explicit Modal(Dialog* dialog) : dialog_(dialog) {}
  Modal(const Modal&) = delete;
  Modal& operator=(const Modal&) = delete;
  ~Modal() { delete dialog_.data(); }

  // Shows it until it is closed; false if it was cancelled or is gone.
  bool Run() { return dialog_ && dialog_->exec() == QDialog::Accepted && dialog_; }
  bool Alive() const { return !dialog_.isNull(); }
  Dialog& operator*() const { return *dialog_; }
  Dialog* operator->() const { return dialog_.data(); }

 private:
  QPointer<Dialog> dialog_;
};

}  // namespace tarvoni::qt
