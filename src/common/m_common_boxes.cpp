#include <algorithm>

#include "src/common/m_common.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

std::int32_t AppMsgBox(const std::string& prompt, std::int32_t buttons, const std::string& title,
                       const std::string&, std::int32_t) {
  return CurrentToolkit().MessageBox(prompt, buttons, title.empty() ? "Tarvoni" : title);
}

void ReportMissingField(const std::string& fieldName, bool ok, const TvnVar_Dll& ctx) {
  if (ok) return;
  MessageService& messages = CurrentSuite().Messages();
  AppMsgBox(messages.GetMessage(1427, ctx) + " " + fieldName + " " + messages.GetMessage(1214, ctx),
            kBoxWarning);
}

void SelectActiveText() {
  const Form* form = CurrentToolkit().TopForm();
  Control* active = form ? form->ActiveControl() : nullptr;
  if (auto* box = dynamic_cast<TextBox*>(active)) box->SelectAll();
  if (auto* combo = dynamic_cast<ComboBox*>(active)) combo->SelectAll();
}

void SetTextBoxLocked(bool locked, InputControl& box) {
  box.SetLocked(locked);
  box.SetTabStop(!locked);
  box.SetBackColor(locked ? kButtonFace : kWindowBackground);
}

void SafeSetFocus(Control& control) {
  if (!control.Enabled()) return;
  try {
    control.SetFocus();
  } catch (const std::exception&) {  // a hidden control, or one in a disabled frame
  }
}

void FocusNextEditableTextBox(Form& form) {
  const Control* active = form.ActiveControl();
  TextBox* next = nullptr;
  for (Control* control : form.Controls()) {
    auto* box = dynamic_cast<TextBox*>(control);
    const bool candidate = box && box->CanFocus() && box->BackColor() == kWindowBackground && active &&
                           box->TabIndex() > active->TabIndex();
    if (candidate && (!next || box->TabIndex() < next->TabIndex())) next = box;
  }
  if (next) next->SetFocus();
}

void FindComboText(ComboBox& combo, const std::string& text) {
  if (combo.ListCount() > 0) combo.SetListIndex(0);
  int match = -1;
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (utf8::Upper(combo.List(i)) == utf8::Upper(text)) match = i;
  }
  combo.SetListIndex(match);
}

void FindComboItemData(ComboBox& combo, std::int32_t value) {
  if (value == 0) return combo.SetListIndex(-1);
  for (int i = 0; i < combo.ListCount(); ++i) {
    if (combo.ItemData(i) == value) return combo.SetListIndex(i);
  }
}

void FillComboFromSql(Connection& conn, ComboBox& combo, const SqlText& sql) {
  CurrentSuite().NamedSql().FillCombo(conn, combo, sql);
}

}  // namespace tarvoni
