#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/controls/input_control.h"
#include "src/context/values/date_time.h"

namespace tarvoni {

// A control with a fixed text. In a button's or label's caption `&` marks the mnemonic.
class Captioned : public Control {
 public:
  using Control::Control;
  const std::string& Caption() const { return caption_; }
  void SetCaption(std::string_view caption);

 private:
  std::string caption_;
};

class Label : public Captioned {
 public:
  using Captioned::Captioned;
};

class Frame : public Captioned {
 public:
  using Captioned::Captioned;
};

// What a button is for, where a key of its own presses it from anywhere on the Screen.
enum class Command { kNone, kNew, kEdit, kSave, kSaveAndNew, kCancel, kDelete, kClose };

class Button : public Captioned {
 public:
  using Captioned::Captioned;
  bool TakesFocus() const override { return true; }
  Command Does() const { return does_; }
  void SetDoes(Command command) { does_ = command; }

  // Runs the click at once, enabled or not; meanwhile the button counts as pressed.
  void Press();
  bool Pressed() const { return pressed_ > 0; }

 private:
  Command does_ = Command::kNone;
  int pressed_ = 0;
};

enum class CheckState { kUnchecked = 0, kChecked = 1, kGrayed = 2 };

// A change of the value, by the user or by program, raises Click.
class CheckBox : public Captioned {
 public:
  using Captioned::Captioned;
  bool TakesFocus() const override { return true; }
  int Value() const { return value_; }  // 0, 1, or 2 for neither
  void SetValue(int value);
  bool Checked() const { return value_ == 1; }
  void SetChecked(bool checked) { SetValue(checked ? 1 : 0); }

 private:
  int value_ = 0;
};

// One choice among those of the same container; becoming the chosen one raises Click.
class OptionButton : public Captioned {
 public:
  using Captioned::Captioned;
  bool TakesFocus() const override { return true; }
  bool Value() const { return value_; }
  void SetValue(bool value);

 private:
  bool value_ = false;
};

// What a box is made for. Whatever its filter admits: the decimal keys and what is pasted mean what the user means.
enum class Entry {
  kText,      // anything
  kWhole,     // a whole number
  kDecimal,   // point and comma are both the locale's separator
  kDatePart,  // a day or month; point and comma go on to the next box
};

// Positions and lengths count characters, not bytes.
class TextBox : public InputControl {
 public:
  using InputControl::InputControl;

  const std::string& Text() const { return text_; }
  void SetText(std::string_view text);  // a different text raises Change
  bool Empty() const { return text_.empty(); }
  int Length() const { return length_; }  // in characters
  // Puts text in place of `length` characters from `start` on, as SetText does; quick at the end of a long text.
  void Splice(int start, int length, std::string_view inserted);
  // Empties text and Tag.
  void Clear();

  Entry Takes() const { return takes_; }
  void SetTakes(Entry entry) { takes_ = entry; }
  int MaxLength() const { return max_length_; }  // 0: no limit; binds the keyboard, not the program
  void SetMaxLength(int max_length);
  bool MultiLine() const { return multi_line_; }  // Enter and Tab keep their meaning; Enter breaks the line
  void SetMultiLine(bool multi_line) { multi_line_ = multi_line; }

  int SelStart() const { return sel_start_; }
  int SelLength() const { return sel_length_; }
  void Select(int start, int length);
  void SelectAll();
  std::string SelText() const;

 private:
  friend class TextInsertion;
  void TextChanged();

  std::string text_;
  bool multi_line_ = false;
  Entry takes_ = Entry::kText;
  int length_ = 0;
  int max_length_ = 0;
  int sel_start_ = 0;
  int sel_length_ = 0;
};

// Characters that go into a box in place of its selection, one by one, so that a filter sees the text grow; the
// change is announced once, at the end.
class TextInsertion {
 public:
  explicit TextInsertion(TextBox& box);
  TextInsertion(const TextInsertion&) = delete;
  TextInsertion& operator=(const TextInsertion&) = delete;

  void Add(char32_t character);
  int Length() const { return box_.Length(); }  // of the whole text
  // Announces what came of it, unless the text is as it was.
  void Finish();
  // The box is as it was before.
  void Undo();

 private:
  TextBox& box_;
  std::string before_;
  int start_before_;
  int length_before_;
  std::size_t place_ = 0;  // of the caret, in bytes
};

// A date or nothing. The user cannot choose a day outside the limits; the program may set any.
class DateControl : public InputControl {
 public:
  using InputControl::InputControl;
  const std::optional<DateTime>& Value() const { return value_; }
  void SetValue(std::optional<DateTime> value);  // a different day raises Change
  const DateTime& MinDate() const { return min_date_; }
  const DateTime& MaxDate() const { return max_date_; }
  void SetLimits(const DateTime& min_date, const DateTime& max_date);
  // The year that a date typed without one means.
  int MissingYear() const;

 private:
  std::optional<DateTime> value_;
  DateTime min_date_{1753, 1, 1};
  DateTime max_date_{9999, 12, 31};
};

// Runs Elapsed again and again while enabled and its interval is not 0. A handler that wants one call only
// disables the timer first.
class Timer : public Control {
 public:
  Timer(Form& form, std::string name, int index = kNoIndex);
  int Interval() const { return interval_; }  // milliseconds
  void SetInterval(int milliseconds);
  bool Running() const { return Enabled() && interval_ > 0; }

  Event<> Elapsed;

 private:
  int interval_ = 0;
};

class TabControl;

// What stands on one tab. Its controls are visible only while the tab is the current one.
class TabPage : public Captioned {
 public:
  TabPage(TabControl& tabs, int number, std::string_view caption);
  int Number() const { return number_; }

 protected:
  bool ShowsContent() const override;

 private:
  TabControl& tabs_;
  int number_;
};

class TabControl : public Control {
 public:
  using Control::Control;
  bool TakesFocus() const override { return true; }

  TabPage& AddPage(std::string_view caption);
  int Tabs() const { return static_cast<int>(pages_.size()); }
  int Tab() const { return tab_; }
  void SetTab(int tab);  // another tab raises Click
  const std::string& TabCaption(int tab) const { return Page(tab).Caption(); }
  void SetTabCaption(int tab, std::string_view caption);
  // A disabled tab cannot be chosen by the user.
  bool TabEnabled(int tab) const { return Page(tab).Enabled(); }
  void SetTabEnabled(int tab, bool enabled) { Page(tab).SetEnabled(enabled); }
  TabPage& Page(int tab) const;

 private:
  std::vector<std::unique_ptr<TabPage>> pages_;
  int tab_ = 0;
};

}  // namespace tarvoni
