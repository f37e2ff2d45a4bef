#include "src/common/screen.h"

#include "src/common/messages.h"
#include "src/context/data/error_text.h"
#include "src/context/values/number_text.h"

namespace tarvoni {

void Screen::Present(const TvnVar_Dll& tvnvar, const std::function<void()>& fill) {
  if (IsShown())
    return CurrentToolkit().ShowModal(*this);  // which refuses, before the open Screen is filled anew
  tvnvar_ = tvnvar;
  Load();
  for (const RowList* list : lists_) list->Data().SetConnectionString(tvnvar_.strConString);
  CurrentSuite().Messages().Bind(tvnvar_, *this);
  fill();
  for (const KeptLayout& layout : layouts_) {
    CurrentSuite().GridLayouts().LoadLayout(tvnvar_, layout.key, *layout.grid);
  }
  CurrentToolkit().ShowModal(*this);
}

void Screen::CloseBy(Button& closing) {
  closing.Click = [this] { Unload(); };
  Form_Unload = [this, &closing](bool& cancel) {
    cancel = !closing.Enabled();
    if (!cancel) Leave();
  };
}

void Screen::Leave() const {
  try {
    Closing();
    for (const KeptLayout& layout : layouts_) {
      CurrentSuite().GridLayouts().SaveLayout(tvnvar_, layout.key, *layout.grid);
    }
    if (tvnvar_.dbAdo) tvnvar_.dbAdo->CommitHandler();
  } catch (const std::exception& error) {
    AppMsgBox("Beim Schließen konnte nicht alles gespeichert werden. " + ErrorText(error), kBoxWarning);
  }
}

int Screen::DateYear() const {
  const int year = OptionNumber("STANDARD_FWJ");
  return year > 0 ? year : Form::DateYear();
}

std::string Screen::Message(std::int32_t number) const {
  return CurrentSuite().Messages().GetMessage(number, tvnvar_);
}

bool Screen::Ask(const std::string& text, std::int32_t style) const {
  return AppMsgBox(text, style) == kAnswerYes;
}

void Screen::DeleteRow(const SqlText& statement, const std::function<void()>& reload) const {
  try {
    Committed([&] { ExecuteOnRow(statement); });
  } catch (const RowGoneError&) {
    reload();
    throw;
  }
  reload();
}

bool Screen::Refuse(const std::string& text, Control& field, std::int32_t style) const {
  AppMsgBox(text, style);
  SafeSetFocus(field);
  return false;
}

bool Screen::Require(bool passed, const Captioned& named, Control& field) const {
  return passed || Refuse(Message(message::kEntryMissing) + " [" + named.Caption() + "]", field);
}

std::int32_t ReadId(const Value& value) {
  return ToInt32("0" + ToText(value), CurrentLocale());
}

}  // namespace tarvoni
