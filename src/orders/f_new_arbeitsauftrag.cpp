#include "src/orders/f_new_arbeitsauftrag.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_new_arbeitsauftrag_sql.h"

namespace tarvoni {

namespace sql = new_arbeitsauftrag_sql;

namespace {

constexpr int kDigitsInName = 4;

// NULL is 0.
std::int16_t Limit(const Value& value) {
  return ToInt16("0" + ToText(value), CurrentLocale());
}

// Keys that go on or leave; any other one opens the text.
bool EditsText(int key) {
  return key != 0 && key != kKeyEnter && key != kKeyEscape;
}

}  // namespace

F_NewArbeitsauftrag::F_NewArbeitsauftrag() : Screen("F_NewArbeitsauftrag") {
  ConnectFields();
  cmdOK.Click = [this] { Confirm(); };
  CloseBy(cmdCancel);
}

void F_NewArbeitsauftrag::Run(std::int32_t payee, std::int32_t& header, std::int32_t& cost_centre,
                              const TvnVar_Dll& tvnvar) {
  curPersonal = payee;
  made_header_ = made_in_cost_centre_ = 0;
  numVon = numBis = 0;
  Present(tvnvar, [this] { FillDefaults(); });
  header = made_header_;
  cost_centre = made_in_cost_centre_;
}

// --- fields ---

void F_NewArbeitsauftrag::ConnectFields() {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtPA_Gruppe[0]).Code(gruppe_);
  Rules(txtProdukt[0]).Code(produkt_);
  Rules(txtSondermerkmal[0]).Code(sondermerkmal_);
  Rules(txtKostenstelle[0]).Code(kostenstelle_);
  Rules(txtNummer).Number("####0");
  gruppe_.Changed = [this] { GroupChanged(); };
  kostenstelle_.Changed = [this] { CostCentreChanged(); };
  txtBeschreibung.KeyDown = [this](int key, int) {
    if (key == kKeyCtrl) EditDescription();
  };
  txtBeschreibung.KeyPress.Add(Turn::kFilter, [this](int& key) {
    if (!EditsText(key)) return;
    key = 0;
    EditDescription();
  });
}

CodeField::Rule F_NewArbeitsauftrag::GroupRule() {
  return NamedCode(Context(), txtPA_Gruppe[0], lblPA_Gruppe, "PA_GRUPPE", "BEZEICHNUNG",
                   [this] { return NamedValues{Given(curPersonal)}; });
}

CodeField::Rule F_NewArbeitsauftrag::ProductRule() {
  return NamedCode(Context(), txtProdukt[0], lblProdukt, "PRODUKT", "NAME",
                   [this] { return NamedValues{Given(curPersonal)}; });
}

CodeField::Rule F_NewArbeitsauftrag::FeatureRule() {
  return NamedCode(Context(), txtSondermerkmal[0], lblSondermerkmal, "SONDERMERKMAL", "LONG",
                   [] { return NamedValues{}; });
}

CodeField::Rule F_NewArbeitsauftrag::CostCentreRule() {
  return NamedCode(Context(), txtKostenstelle[0], lblKostenstelle, "KOSTENSTELLE", "",
                   [this] { return NamedValues{Given(curPersonal)}; });
}

// Nothing can be numbered until a group is chosen, so most of it stays locked without a standard group.
void F_NewArbeitsauftrag::FillDefaults() {
  const auto hold = loading_.Hold();
  txtFWJ.SetText(OptionText("STANDARD_FWJ"));
  txtMandant.SetText(ReadText(sql::NumberOfPayee(curPersonal)));
  SetSubject("Forstbetrieb " + txtMandant.Text() + ", neuer Auftrag");
  SetTextBoxLocked(true, txtNummer);
  SetTextBoxLocked(true, txtKostenstelle[0]);
  txtPA_Gruppe[0].SetText(ReadText(sql::StandardGroup(curPersonal)));
  txtPA_Gruppe[0].LostFocus();
  txtSondermerkmal[0].SetText(ReadText(sql::StandardFeature()));
  txtSondermerkmal[0].LostFocus();
}

void F_NewArbeitsauftrag::GroupChanged() {
  if (txtPA_Gruppe[0].Tag().empty()) return;
  const auto hold = loading_.Hold();
  const Recordset group = Open(sql::NumberingOfGroup(txtPA_Gruppe[0].Tag()));
  if (group.EndOfFile()) return SetTextBoxLocked(true, txtNummer);
  TakeGroup(group.Fields());
}

// A central group is itself the number of its orders; one with a product fixes that too.
void F_NewArbeitsauftrag::TakeGroup(const FieldList& group) {
  numVon = Limit(group["PA_NUMMER_VON"].Value());
  numBis = Limit(group["PA_NUMMER_BIS"].Value());
  SetTextBoxLocked(false, txtKostenstelle[0]);
  const bool central = ToFlag(group["ZENTRAL"].Value());
  SetTextBoxLocked(central, txtNummer);
  if (central) {
    txtNummer.SetText(ToText(group["PA_NUMMER"].Value()));
  } else {
    ProposeNumber();
  }
  txtProdukt[0].SetText(ToText(group["NUMBER"].Value()));
  txtProdukt[0].LostFocus();
  SetTextBoxLocked(!IsNull(group["NUMBER"].Value()), txtProdukt[0]);
}

void F_NewArbeitsauftrag::CostCentreChanged() {
  if (!txtKostenstelle[0].Tag().empty() && !txtNummer.Locked()) ProposeNumber();
}

// The highest number in the range plus one, the range's first if there is none.
void F_NewArbeitsauftrag::ProposeNumber() {
  const std::int32_t highest =
      ReadNumber(sql::HighestNumber({curPersonal, txtFWJ.Text(), txtKostenstelle[0].Text()}, numVon, numBis));
  txtNummer.SetText(std::to_string((highest == 0 ? numVon - 1 : highest) + 1));
}

void F_NewArbeitsauftrag::EditDescription() {
  std::string text = txtBeschreibung.Text();
  CurrentSuite().Descriptions().EditText(Context(), 0, false, "ARBEITSAUFTRAG_KOPF_PLANN", text);
  txtBeschreibung.SetText(text);
  SafeSetFocus(cmdOK);
}

// --- OK ---

void F_NewArbeitsauftrag::Confirm() {
  if (!Filled()) return;
  if (!NumberInRange()) {
    Refuse(Message(message::kEntryMissing), txtNummer, kBoxOk);
    return;
  }
  const sql::Place place{curPersonal, txtFWJ.Text(), txtKostenstelle[0].Text()};
  if (HasRow(Db(), sql::OrdersWithNumber(place, txtNummer.Text()))) {
    Refuse(Message(message::kOrderNumberTaken), txtNummer, kBoxOk);
    return;
  }
  made_header_ = Committed([this] { return MakeHeader(); });
  if (made_header_ != 0) made_in_cost_centre_ = ReadId(txtKostenstelle[0].Tag());
  Unload();
}

bool F_NewArbeitsauftrag::Filled() {
  for (TextBox* box : {&txtPA_Gruppe[0], &txtProdukt[0], &txtSondermerkmal[0], &txtKostenstelle[0]}) {
    if (box->Empty()) return Refuse(Message(message::kEntryMissing), *box, kBoxOk);
  }
  return true;
}

bool F_NewArbeitsauftrag::NumberInRange() const {
  const auto number = ParseNumber(txtNummer.Text(), CurrentLocale());
  return number && *number >= Decimal(numVon, 0) && *number <= Decimal(numBis, 0);
}

std::int32_t F_NewArbeitsauftrag::MakeHeader() const {
  Execute(sql::InsertHeader({.name = OrderName(),
                             .place = {curPersonal, txtFWJ.Text(), txtKostenstelle[0].Text()},
                             .number = txtNummer.Text(),
                             .feature = txtSondermerkmal[0].Tag(),
                             .product = txtProdukt[0].Tag(),
                             .group = txtPA_Gruppe[0].Tag(),
                             .description = txtBeschreibung.Text()}));
  return ReadNumber(sql::LastHeader());
}

// Payee, year, cost centre and the last four digits of the number.
std::string F_NewArbeitsauftrag::OrderName() const {
  const std::string number = "0000" + txtNummer.Text();
  return txtMandant.Text() + txtFWJ.Text() + txtKostenstelle[0].Text() +
         number.substr(number.size() - kDigitsInName);
}

}  // namespace tarvoni
