#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>
#include <string>

namespace tarvoni::qt {

// A dialog whose value is typed above or chosen below; each follows the other. Enter takes it, Escape cancels; while
// the text is no value, Enter says so.
class EntryDialog : public QDialog {
 public:
  void accept() override;

 protected:
  struct Words {
    const char* label;
    const char* hint;   // what can be typed
    const char* fault;  // for a text that is no value
  };
  EntryDialog(QWidget* parent, const std::string& caption, const Words& words);

  // Puts the widget below the text, and the buttons below that.
  void AddBody(QWidget* body);
  // Shows a value that was chosen.
  void SetText(const std::string& text);

  // Takes a typed text; false if it is no value.
  virtual bool Read(const std::string& text) = 0;
  // Up and Down step by `small`, Page Up and Page Down by `large`, with Ctrl by `largest`.
  enum class Step { kSmall, kLarge, kLargest };
  virtual void StepBy(Step step, int count) = 0;

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void TextEdited();

  Words words_;
  QLineEdit* text_;
  QLabel* fault_;
  bool valid_ = true;
};

}  // namespace tarvoni::qt
