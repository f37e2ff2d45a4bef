#include "src/orders/f_pa_gruppe.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/month_fields.h"
#include "src/common/view_switch.h"
#include "src/context/values/clock.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_pa_gruppe_sql.h"

namespace tarvoni {

namespace sql = pa_gruppe_sql;

namespace {

constexpr int kLongestName = 20;

std::string Told(std::int32_t message, const TvnVar_Dll& tvnvar) {
  return CurrentSuite().Messages().GetMessage(message, tvnvar);
}

// A code of a row with the id behind it as Tag, and its name.
void ShowCode(const Value& id, const Value& code, const Value& name, ControlArray<TextBox, 2>& pair) {
  pair[0].SetText(ToText(code));
  pair[0].SetTag(ToText(id));
  pair[1].SetText(ToText(name));
}

}  // namespace

F_PA_Gruppe::F_PA_Gruppe() : Screen("F_PA_Gruppe") {
  ConnectFields();
  btnBearbeiten.Click = [this] { StartEditing(); };
  btnSpeichern.Click = [this] { Save(); };
  btnAbbrechen.Click = [this] { Cancel(); };
  CloseBy(btnClose);
}

void F_PA_Gruppe::Run(std::int32_t Id_PA_Gruppe, std::int32_t ID_Mandant, const TvnVar_Dll& tvnvar) {
  curGroupId = Id_PA_Gruppe;
  curMandant = ID_Mandant;
  bolNewGroup = Id_PA_Gruppe == 0;
  if (bolNewGroup && !CreateGroup(tvnvar)) return;
  Present(tvnvar, [this] {
    if (!LoadGroup()) throw RowGoneError();
    btnBearbeiten.SetEnabled(false);
    ToggleEdit();
    if (bolNewGroup) StartEditing();
  });
}

// Asks for names until one is free. False if the user gives up.
bool F_PA_Gruppe::CreateGroup(const TvnVar_Dll& tvnvar) {
  const std::string prompt = Told(message::kNewOrderGroup, tvnvar);
  std::string name;
  while (curGroupId == 0) {
    const std::string answer = CurrentToolkit().InputBox(prompt, prompt, name);
    name = utf8::Substring(utf8::Trim(answer), 0, kLongestName);
    if (name.empty()) return false;
    Connection& db = DbOf(tvnvar);
    curGroupId = tarvoni::Committed(
        db, [&] { return tarvoni::ReadNumber(db, sql::CreateGroup(name, Clock::Today().year, curMandant)); });
    if (curGroupId == 0) AppMsgBox(Told(message::kNameTaken, tvnvar));
  }
  return true;
}

void F_PA_Gruppe::Delete(std::int32_t ID_Item_dll, const TvnVar_Dll& tvnvar) const {
  Connection& db = DbOf(tvnvar);
  const std::string title = "Tarvoni – PA-Gruppe " + tarvoni::ReadText(db, sql::NameOfGroup(ID_Item_dll));
  const Value orders = ReadValue(db, sql::CountOfOrders(ID_Item_dll));
  if (IsNull(orders) || ToLong(orders) > 0) {
    AppMsgBox(Told(message::kOrderGroupInUse, tvnvar), kBoxOk, title);
    return;
  }
  const int style = kBoxYesNo + kBoxSecondIsDefault + kBoxWarning;
  if (AppMsgBox(Told(message::kDeleteOrderGroup, tvnvar), style, title) == kAnswerYes)
    db.Execute(sql::DeleteGroup(ID_Item_dll));
}

// --- fields ---

void F_PA_Gruppe::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtProdukt[0]).Keys("###################0");
  ConnectCode(produkt_);
  ConnectCode(kategorie_);
  kategorie_.Changed = [this] { CategoryChanged(); };
  Rules(txtFWJ).Number("###0", "0000");
  TakesYear(txtFWJ);
  Rules(txtPA_Nummer).Number("###0", "0000");
}

// A locked code is neither chosen nor checked: a group in use keeps its code, even one that is disabled meanwhile.
void F_PA_Gruppe::ConnectCode(CodeField& field) {
  field.Box().KeyDown = [&field](int key, int) {
    if (key == kKeyCtrl && field.MayLookUp()) field.Lookup();
  };
  field.Box().LostFocus.Add(Turn::kCheck, [&field] {
    if (!field.Box().Locked()) field.Check();
  });
}

CodeField::Rule F_PA_Gruppe::ProductRule() {
  return NamedCode(Context(), txtProdukt[0], lblProdukt, "PRODUKT", "NAME",
                   [this] { return NamedValues{Given(curMandant)}; });
}

CodeField::Rule F_PA_Gruppe::CategoryRule() {
  return NamedCode(Context(), txtKategorie[0], lblKategorie, "T_PA_KATEGORIE", "LONG",
                   [this] { return NamedValues{Given(curMandant)}; });
}

// Only a group of a central category has a number of its own.
void F_PA_Gruppe::CategoryChanged() {
  const bool central = ToFlag(ReadValue(Db(), sql::IsCentral(txtKategorie[0].Tag())));
  if (!central) txtPA_Nummer.SetText("");
  SetTextBoxLocked(!central, txtPA_Nummer);
  if (central && curMandant != 0) ProposeNumber();
}

void F_PA_Gruppe::ProposeNumber() {
  txtPA_Nummer.SetText(ReadText(sql::NextNumber(curMandant, txtKategorie[0].Tag())));
  txtPA_Nummer.LostFocus();
}

// --- view and edit ---

// False if the group is not there any more.
bool F_PA_Gruppe::LoadGroup() {
  const auto hold = loading_.Hold();
  const Recordset group = Open(sql::GroupShown(curGroupId));
  if (group.EndOfFile()) return false;
  const FieldList row = group.Fields();
  const auto shown = [&](std::string_view column, std::string_view format = {}) {
    return FieldText(row[column].Value(), format, CurrentLocale());
  };
  txtPA_Gruppe.SetText(shown("BEZEICHNUNG"));
  ShowCode(row["ID_MANDANT"].Value(), row["MANDANTNUMMER"].Value(), row["PERSONALKURZ"].Value(), txtMandant);
  ShowCode(row["ID_PRODUKT"].Value(), row["PRODUKTNUMMER"].Value(), row["PRODUKTNAME"].Value(), txtProdukt);
  ShowCode(row["ID_T_PA_KATEGORIE"].Value(), row["KATEGORIENUMMER"].Value(), row["KATEGORIELONG"].Value(),
           txtKategorie);
  txtFWJ.SetText(shown("FWJ", "0000"));
  txtPA_Nummer.SetText(shown("PA_NUMMER", "0000"));
  txtBeschreibung.SetText(shown("BESCHREIBUNG"));
  const bool key_data_stay = ToFlag(row["NOEDIT"].Value()) || ToLong(row["USEDCOUNT"].Value()) > 0;
  for (TextBox* box : {&txtProdukt[0], &txtKategorie[0], &txtFWJ}) SetTextBoxLocked(key_data_stay, *box);
  SetTextBoxLocked(key_data_stay || !ToFlag(row["ZENTRAL"].Value()), txtPA_Nummer);
  SetSubject(txtPA_Gruppe.Text());
  return true;
}

void F_PA_Gruppe::ToggleEdit() {
  ViewSwitch({&btnBearbeiten, &btnClose}, {&btnSpeichern, &btnAbbrechen, &frmGruppe, &frmBeschreibung})
      .Set(!btnBearbeiten.Enabled());
}

void F_PA_Gruppe::StartEditing() {
  ToggleEdit();
  SafeSetFocus(txtProdukt[0].Locked() ? txtBeschreibung : txtProdukt[0]);
}

// --- saving ---

void F_PA_Gruppe::Save() {
  if (!MayBeSaved()) return;
  Committed([this] {
    ExecuteOnRow(sql::UpdateGroup(curGroupId, {.product = txtProdukt[0].Tag(),
                                               .category = txtKategorie[0].Tag(),
                                               .number = std::string(utf8::Trim(txtPA_Nummer.Text())),
                                               .year = txtFWJ.Text(),
                                               .description = txtBeschreibung.Text()}));
  });
  bolNewGroup = false;
  ToggleEdit();
}

bool F_PA_Gruppe::MayBeSaved() {
  if (!Require(!txtKategorie[0].Empty(), lblKategorie, txtKategorie[0]) ||
      !Require(!txtFWJ.Empty(), lblFWJ, txtFWJ)) {
    return false;
  }
  const Recordset category = Open(sql::RangeOfCategory(txtKategorie[0].Tag()));
  const bool central = !category.EndOfFile() && ToFlag(category.Fields()["ZENTRAL"].Value());
  return (!central || FitsCentralCategory(category.Fields())) &&
         Require(NumberIsFree(), lblPA_Nummer, txtPA_Nummer);
}

bool F_PA_Gruppe::FitsCentralCategory(const FieldList& category) {
  const auto number = ParseNumber(txtPA_Nummer.Text(), CurrentLocale());
  const auto limit = [&](const char* column) { return Decimal(ToLong(category[column].Value()), 0); };
  return Require(!txtPA_Nummer.Empty(), lblPA_Nummer, txtPA_Nummer) &&
         Require(!txtProdukt[0].Empty(), lblProdukt, txtProdukt[0]) &&
         Require(number && *number >= limit("PA_NUMMER_VON") && *number <= limit("PA_NUMMER_BIS"),
                 lblPA_Nummer, txtPA_Nummer);
}

bool F_PA_Gruppe::NumberIsFree() const {
  const std::string_view number = utf8::Trim(txtPA_Nummer.Text());
  return number.empty() || ReadNumber(sql::CountOfNumber(number, curMandant, curGroupId)) == 0;
}

// A group that was never saved is taken back; one that was deleted elsewhere leaves nothing to show.
void F_PA_Gruppe::Cancel() {
  if (bolNewGroup) Committed([this] { Execute(sql::TakeBackGroup(curGroupId)); });
  const bool stays = !bolNewGroup && LoadGroup();
  if (!bolNewGroup && !stays) AppMsgBox(RowGoneError().what(), kBoxInformation);
  ToggleEdit();
  if (!stays) Unload();
}

}  // namespace tarvoni
