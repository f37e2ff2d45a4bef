#include "src/common/screen.h"

#include "src/context/values/number_text.h"

namespace tarvoni {

void Screen::Enter(const TvnVar_Dll& tvnvar) {
  tvnvar_ = tvnvar;
  Load();
}

void Screen::BindMessages() {
  CurrentSuite().Messages().Bind(tvnvar_, *this);
}

void Screen::Show() {
  CurrentToolkit().ShowModal(*this);
}

std::string Screen::Message(std::int32_t number) const {
  return CurrentSuite().Messages().GetMessage(number, tvnvar_);
}

bool Screen::Ask(const std::string& text, std::int32_t style) const {
  return AppMsgBox(text, style) == kAnswerYes;
}

bool Screen::Refuse(const std::string& text, Control& field, std::int32_t style) const {
  AppMsgBox(text, style);
  SafeSetFocus(field);
  return false;
}

std::int32_t ReadId(const Value& value) {
  return ToInt32("0" + ToText(value), CurrentLocale());
}

}  // namespace tarvoni
