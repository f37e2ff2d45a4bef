#include "src/orders/f_new_rechnung.h"

#include "src/common/box_rules.h"
#include "src/common/client_number.h"
#include "src/common/messages.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_new_rechnung_sql.h"

namespace tarvoni {

namespace sql = new_rechnung_sql;

F_NewRechnung::F_NewRechnung() : Screen("F_NewRechnung") {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtMandant).Keys("###0").Code(mandant_);
  Rules(txtKategorie[0]).Code(kategorie_);
  cmdOK.Click = [this] { Confirm(); };
  CloseBy(cmdCancel);
}

void F_NewRechnung::Run(const TvnVar_Dll& tvnvar, std::string& RechName, std::int32_t intPersonal,
                        const std::string& oldRechName) {
  name_.clear();
  Present(tvnvar, [&] {
    const auto hold = loading_.Hold();
    txtFWJ.SetText(OptionText("STANDARD_FWJ"));
    SetSubject("neue Rechnung " + txtFWJ.Text());
    oldRechName.empty() ? FillStandard(intPersonal) : FillFromName(oldRechName);
  });
  RechName = name_;
}

CodeField::Rule F_NewRechnung::ClientRule() {
  return {.offered = sql::Clients,
          .check = [this] { return sql::FindClient(utf8::Trim(txtMandant.Text())); },
          .caption = [this] { return lblMandant.Caption(); }};
}

void F_NewRechnung::FillFromName(const std::string& name) {
  txtFWJ.SetText(utf8::Substring(name, 0, 4));
  Enter(txtMandant, utf8::Substring(name, 4, 4));
  Enter(txtKategorie[0], utf8::Substring(name, 8, 1));
  if (utf8::Substring(name, 9, 1) == "H") SetTextBoxLocked(true, txtMandant);
}

void F_NewRechnung::FillStandard(std::int32_t client) {
  Enter(txtMandant, ReadText(NumberOfClient(client)));
  Enter(txtKategorie[0], ReadText(sql::StandardCategory()));
}

void F_NewRechnung::Enter(TextBox& box, std::string_view text) const {
  box.SetText(text);
  box.LostFocus();
}

void F_NewRechnung::Confirm() {
  for (TextBox* box : {&txtMandant, &txtKategorie[0]}) {
    if (!box->Tag().empty()) continue;
    Refuse(Message(message::kEntryMissing), *box, kBoxOk);
    return;
  }
  name_ = txtFWJ.Text() + txtMandant.Text() + txtKategorie[0].Text();
  Unload();
}

}  // namespace tarvoni
