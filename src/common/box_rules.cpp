#include "src/common/box_rules.h"

#include "src/common/m_common.h"
#include "src/context/values/number_text.h"

namespace tarvoni {
namespace {

// Two fixed digits are a day or a month.
Entry EntryOf(std::string_view mask) {
  if (mask == "00") return Entry::kDatePart;
  return NumberMask::Of(mask).places > 0 ? Entry::kDecimal : Entry::kWhole;
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

void SelectOnFocus(Control& box) {
  Append(box.GotFocus, [] { SelectActiveText(); });
}

void OnEnter(Control& box, EnterRule rule) {
  const auto* text_box = dynamic_cast<TextBox*>(&box);
  Append(box.KeyPress, [text_box, rule = std::move(rule)](int& key) {
    if (key != kKeyEnter || (text_box && text_box->MultiLine())) return;
    key = 0;
    rule();
  });
}

void ConnectBoxes(Form& form, const EnterRule& rule) {
  for (Control* control : form.Controls()) {
    if (!dynamic_cast<TextBox*>(control)) continue;
    SelectOnFocus(*control);
    OnEnter(*control, rule);
  }
}

void NumberKeys(TextBox& box, const std::string& mask) {
  box.SetTakes(EntryOf(mask));
  Append(box.KeyPress, [&box, mask](int& key) { FormatKeyFilter(key, box, mask); });
}

void NumberBox(TextBox& box, const std::string& mask) {
  NumberBox(box, mask, mask);
}

void NumberBox(TextBox& box, const std::string& key_mask, const std::string& leaving_format) {
  NumberKeys(box, key_mask);
  Append(box.LostFocus, [&box, leaving_format] { FormatNumberBox(box, leaving_format); });
}

}  // namespace tarvoni
