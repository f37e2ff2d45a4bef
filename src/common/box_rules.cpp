#include "src/common/box_rules.h"

#include <cassert>

#include "src/common/code_field.h"
#include "src/common/date_field.h"
#include "src/common/m_common.h"
#include "src/common/month_fields.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

// Two fixed digits are a day or a month.
Entry EntryOf(std::string_view mask) {
  if (mask == "00") return Entry::kDatePart;
  return NumberMask::Of(mask).places > 0 ? Entry::kDecimal : Entry::kWhole;
}

bool IsBox(const Control& control) {
  return dynamic_cast<const InputControl*>(&control) && !dynamic_cast<const ListBox*>(&control);
}

}  // namespace

EnterRule TabOnEnter(Form& form) {
  return [&form] { form.PostTab(); };
}

EnterRule FocusOnEnter(Control& next) {
  return [&next] { SafeSetFocus(next); };
}

EnterRule NextOpenBoxOnEnter(Form& form) {
  return [&form] { FocusNextEditableTextBox(form); };
}

Rules& Rules::Keys(const std::string& mask) {
  box_.SetTakes(EntryOf(mask));
  box_.KeyPress.Add(Turn::kFilter, [&box = box_, mask](int& key) { FormatKeyFilter(key, box, mask); });
  return *this;
}

Rules& Rules::Number(const std::string& mask) {
  return Number(mask, mask);
}

Rules& Rules::Number(const std::string& key_mask, const std::string& leaving_format) {
  box_.LostFocus.Add(Turn::kFormat, [&box = box_, leaving_format] { FormatNumberBox(box, leaving_format); });
  return Keys(key_mask);
}

Rules& Rules::Code(CodeField& field) {
  assert(&field.Box() == &box_);
  box_.KeyDown.Add(Turn::kOwn, [&field](int key, int) {
    if (key == kKeyCtrl && field.MayLookUp()) field.Lookup();
  });
  box_.LostFocus.Add(Turn::kCheck, [&field] { field.Check(); });
  return *this;
}

Rules& Rules::Month(const MonthFields& fields) {
  assert(&fields.MonthBox() == &box_);
  box_.KeyDown.Add(Turn::kOwn, [&fields](int key, int) {
    if (key == kKeyCtrl) fields.OfferMonths();
  });
  box_.LostFocus.Add(Turn::kCheck, [&fields] { fields.LeaveMonth(); });
  return *this;
}

Rules& Rules::Date(DateField& field) {
  assert(&field.Box() == &box_);
  box_.GotFocus.Add(Turn::kOwn, [&field] { field.Arrive(); });
  box_.KeyPress.Add(Turn::kFilter, [&box = box_](int& key) { key = DateKeyFilter(key, box); });
  box_.KeyDown.Add(Turn::kOwn, [&field](int key, int) {
    if (key == kKeyCtrl && !field.Box().Locked()) field.Lookup();
  });
  box_.LostFocus.Add(Turn::kCheck, [&field] { field.Check(); });
  return *this;
}

Rules& Rules::Left(std::function<void()> rule) {
  box_.LostFocus.Add(Turn::kOwn, std::move(rule));
  return *this;
}

void SelectOnFocus(Control& box) {
  const auto* input = dynamic_cast<InputControl*>(&box);
  box.GotFocus.Add(Turn::kOwn, [input] {
    if (!input || !input->Locked()) SelectActiveText();
  });
}

void OnEnter(Control& box, EnterRule rule) {
  const auto* text_box = dynamic_cast<TextBox*>(&box);
  box.KeyPress.Add(Turn::kOwn, [text_box, rule = std::move(rule)](int& key) {
    if (key != kKeyEnter || (text_box && text_box->MultiLine())) return;
    key = 0;
    rule();
  });
}

void ConnectBoxes(Form& form, const EnterRule& rule) {
  for (Control* control : form.Controls()) {
    if (!IsBox(*control)) continue;
    SelectOnFocus(*control);
    OnEnter(*control, rule);
  }
}

}  // namespace tarvoni
