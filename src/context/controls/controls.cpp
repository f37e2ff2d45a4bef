#include "src/context/controls/controls.h"

#include <algorithm>

#include "src/context/controls/form.h"
#include "src/context/values/call_error.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

void Captioned::SetCaption(std::string_view caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  Announce(Aspect::kCaption);
}

void Button::Press() {
  struct Down {
    explicit Down(int& pressed) : pressed_(pressed) { ++pressed_; }
    ~Down() { --pressed_; }
    int& pressed_;
  } down(pressed_);
  Click();
}

void CheckBox::SetValue(int value) {
  if (value < 0 || value > 2) throw CallError("Ein Kontrollkästchen kennt nur die Werte 0, 1 und 2.");
  if (std::exchange(value_, value) == value) return;
  Announce(Aspect::kValue);
  Click();
}

void OptionButton::SetValue(bool value) {
  if (std::exchange(value_, value) == value) return;
  Announce(Aspect::kValue);
  if (!value) return;
  for (Control* control : OwnerForm().Controls()) {
    auto* other = dynamic_cast<OptionButton*>(control);
    if (other && other != this && other->Container() == Container()) other->SetValue(false);
  }
  Click();
}

void TextBox::SetText(std::string_view text) {
  if (text_ == text) return;
  text_ = text;
  length_ = utf8::Length(text_);
  TextChanged();
}

void TextBox::Splice(int start, int length, std::string_view inserted) {
  start = std::clamp(start, 0, length_);
  length = std::clamp(length, 0, length_ - start);
  // Only a place inside the text has to be searched for.
  const std::size_t at = start == length_ ? text_.size() : utf8::Substring(text_, 0, start).size();
  const std::size_t size = utf8::Substring(std::string_view(text_).substr(at), 0, length).size();
  if (std::string_view(text_).substr(at, size) == inserted) return;
  text_.replace(at, size, inserted);
  length_ += utf8::Length(inserted) - length;
  TextChanged();
}

void TextBox::TextChanged() {
  sel_start_ = sel_length_ = 0;
  Announce(Aspect::kText);
  Change();
}

void TextBox::Clear() {
  SetTag("");
  SetText("");
}

void InputControl::SetLocked(bool locked) {
  if (std::exchange(locked_, locked) != locked) Announce(Aspect::kLocked);
}

void InputControl::SetBackColor(Color color) {
  if (std::exchange(back_color_, color) != color) Announce(Aspect::kLocked);
}

void TextBox::SetMaxLength(int max_length) {
  if (std::exchange(max_length_, max_length) != max_length) Announce(Aspect::kLocked);
}

void TextBox::Select(int start, int length) {
  start = std::clamp(start, 0, length_);
  length = std::clamp(length, 0, length_ - start);
  if (start == sel_start_ && length == sel_length_) return;
  sel_start_ = start;
  sel_length_ = length;
  Announce(Aspect::kSelection);
}

void TextBox::SelectAll() {
  Select(0, length_);
}

std::string TextBox::SelText() const {
  return std::string(utf8::Substring(text_, sel_start_, sel_length_));
}

TextInsertion::TextInsertion(TextBox& box)
    : box_(box),
      before_(box.text_),
      start_before_(box.sel_start_),
      length_before_(box.sel_length_),
      place_(utf8::Substring(box.text_, 0, box.sel_start_).size()) {
  box_.text_.erase(place_, box.SelText().size());
  box_.length_ -= box_.sel_length_;
  box_.sel_length_ = 0;
}

void TextInsertion::Add(char32_t character) {
  std::string added;
  utf8::Append(added, character);
  place_ = std::min(place_, box_.text_.size());  // a filter may have written a text of its own
  box_.text_.insert(place_, added);
  place_ += added.size();
  ++box_.sel_start_;
  ++box_.length_;
}

void TextInsertion::Finish() {
  if (box_.text_ == before_) return;
  box_.Announce(Aspect::kText);
  box_.Announce(Aspect::kSelection);
  box_.Change();
}

void TextInsertion::Undo() {
  box_.text_ = before_;
  box_.length_ = utf8::Length(before_);
  box_.sel_start_ = start_before_;
  box_.sel_length_ = length_before_;
}

void DateControl::SetValue(std::optional<DateTime> value) {
  if (value_ == value) return;
  value_ = value;
  Announce(Aspect::kValue);
  Change();
}

int DateControl::MissingYear() const {
  return value_ ? value_->year : OwnerForm().DateYear();
}

void DateControl::SetLimits(const DateTime& min_date, const DateTime& max_date) {
  min_date_ = min_date;
  max_date_ = max_date;
  Announce(Aspect::kLocked);
}

Timer::Timer(Form& form, std::string name, int index) : Control(form, std::move(name), index) {
  SetEnabled(false);
}

void Timer::SetInterval(int milliseconds) {
  if (std::exchange(interval_, milliseconds) != milliseconds) Announce(Aspect::kEnabled);
}

TabPage::TabPage(TabControl& tabs, int number, std::string_view caption)
    : Captioned(tabs.OwnerForm(), tabs.Name() + ".Tab", number), tabs_(tabs), number_(number) {
  SetCaption(caption);
  SetContainer(&tabs);
}

bool TabPage::ShowsContent() const {
  return tabs_.Tab() == number_;
}

TabPage& TabControl::AddPage(std::string_view caption) {
  return *pages_.emplace_back(std::make_unique<TabPage>(*this, Tabs(), caption));
}

TabPage& TabControl::Page(int tab) const {
  if (tab < 0 || tab >= Tabs())
    throw CallError("Das Register " + Name() + " hat keine Seite " + std::to_string(tab) + ".");
  return *pages_[static_cast<std::size_t>(tab)];
}

void TabControl::SetTab(int tab) {
  Page(tab);
  if (std::exchange(tab_, tab) == tab) return;
  Announce(Aspect::kValue);
  Click();
}

void TabControl::SetTabCaption(int tab, std::string_view caption) {
  Page(tab).SetCaption(caption);
}

}  // namespace tarvoni
