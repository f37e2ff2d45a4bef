#include "src/stores/f_positionen.h"

#include "src/common/amount.h"
#include "src/common/box_rules.h"
#include "src/common/client_number.h"
#include "src/common/currency_box.h"
#include "src/common/messages.h"
#include "src/common/number_keys.h"
#include "src/common/position_amounts.h"
#include "src/common/position_codes.h"
#include "src/common/view_switch.h"
#include "src/stores/f_lager.h"
#include "src/stores/f_positionen_sql.h"

namespace tarvoni {

namespace sql = positionen_sql;

namespace {

// As many places as a quantity has, at least those of money.
constexpr std::string_view kQuantity = "#0.00##";
constexpr const char* kQuantityKeys = "######0.00";
constexpr int kLongestNumber = 15;
constexpr std::int32_t kArbeitsauftrag = 56;  // the message that is a column's caption

}  // namespace

F_Positionen::F_Positionen()
    : Screen("F_Positionen"),
      cost_centre_(
          Context(), loading_, txtKostenstelle, &txtKostenstelleName,
          CostCentreCode(Context(), txtKostenstelle, lblKostenstelle, [this] { return curPersonal; })),
      object_(Context(), loading_, txtObjekt, &txtObjektName,
              CostObjectCode(Context(), txtObjekt, lblObjekt, [this] { return curPersonal; })) {
  dataGrid_KLR.SetStruck("STATUS", "S");
  positions_.Connect([this] { ShowPosition(); }, [this] { return PositionColumns(); }, &btnBearbeiten);
  withdrawals_.Connect([this] { ShowWithdrawal(); }, [this] { return WithdrawalColumns(); });
  dataGrid_KLR.KeyDown = [this](int key, int) {
    if (key == kKeyInsert && btnNeu[1].Enabled()) btnNeu[1].Press();  // a new one of the list with the focus
  };
  ConnectBoxes(*this, NextOpenBoxOnEnter(*this));
  ConnectFields();
  ConnectCodes();
  ConnectButtons();
}

void F_Positionen::Run(const TvnVar_Dll& tvnvar, std::int32_t client, std::int32_t document,
                       std::uint8_t /*mode_dll*/) {
  curPersonal = client;
  document_ = document;
  Present(tvnvar, [this] {
    client_number_ = ReadText(NumberOfClient(curPersonal));
    strFWJ = OptionText("STANDARD_FWJ");
    saVerfahren = OptionNumber("SA_VERFAHREN") == 1;
    FillCurrencies(txtValuta, Context());
    txtEinheit.Clear();
    FillComboFromSql(Db(), txtEinheit, GetNamedSql(Context(), "WARENEINHEIT", {}));
    curPosId = curKlrId = 0;
    ReloadPositions();
    entry_.Begin();
    const F_Lager* const lager = Document();
    cmdSet.SetVisible(lager && lager->FromPositions() == F_Lager::kYes);
  });
}

// --- fields ---

void F_Positionen::ConnectFields() {
  for (TextBox* box : {&txtKostenE, &txtMenge, &txtKosten, &txtGesamtKosten}) {
    NumberKeys(*box, Entry::kDecimal);
    box->SetMaxLength(kLongestNumber);
  }
  for (TextBox* box : {&txtKostenE, &txtMenge}) {
    box->GotFocus.Add(Turn::kOwn, [this, box] { on_arrival_ = box->Text(); });
    box->LostFocus.Add(Turn::kOwn, [this, box] { CostPartLeft(*box); });
  }
  txtKosten.Validate = [this](bool&) { TotalLeft(); };
  Rules(txtMenge_KLR).Number(kQuantityKeys);
  Rules(txtLagerMengeAusbuchen).Keys(kQuantityKeys).Left([this] { DrawnLeft(); });
}

// A box that was only passed leaves a total alone that was typed and does not divide evenly.
void F_Positionen::CostPartLeft(TextBox& box) {
  ShowAsNumber(box);
  if (box.Text() == on_arrival_ && !txtKosten.Empty()) return;
  txtKosten.SetText(TotalCost(txtMenge.Text(), txtKostenE.Text()).value_or(txtKosten.Text()));
}

void F_Positionen::TotalLeft() {
  if (txtKosten.Empty() || txtMenge.Empty()) return;
  txtKostenE.SetText(UnitCost(txtKosten.Text(), txtMenge.Text()).value_or(txtKostenE.Text()));
}

void F_Positionen::DrawnLeft() {
  if (const auto number = NumberIn(txtLagerMengeAusbuchen)) {
    ShowNumber(txtLagerMengeAusbuchen, *number, kQuantity);
  }
  const auto drawn = NumberIn(txtLagerMengeAusbuchen), stock = NumberIn(txtLagerstand);
  if (drawn && stock) Require(*drawn <= *stock, lblLagerMengeAusbuchen, txtLagerMengeAusbuchen);
  if (!drawn || txtKostenE.Empty()) return;
  txtGesamtKosten.SetText(
      TotalCost(txtLagerMengeAusbuchen.Text(), txtKostenE.Text()).value_or(txtGesamtKosten.Text()));
}

// --- the lists ---

void F_Positionen::ReloadPositions() {
  positions_.Load(sql::PositionsOf(document_, Context().strLocalCurrency));
  const auto hold = loading_.Hold();
  if (curPosId != 0) positions_.Find(curPosId);
  ShowPosition();
}

void F_Positionen::ReloadWithdrawals() {
  withdrawals_.Load(sql::WithdrawalsOf(curPosId));
  const auto hold = loading_.Hold();
  if (curKlrId != 0) withdrawals_.Find(curKlrId);
  ShowWithdrawal();
}

std::vector<ShownColumn> F_Positionen::PositionColumns() const {
  return {FigureColumn("KOSTENE", frmKostenE.Caption(), 2600),
          {.data_field = "EURO", .caption = "Euro", .width = 750},
          QuantityColumn("MENGE", "EINHEIT", frmMenge.Caption(), 1300),
          {.data_field = "EINHEIT", .caption = "Einheit", .width = 850},
          {.data_field = "BEZEICHNUNG", .caption = frmBezeichnung.Caption(), .width = 4200},
          AmountColumn("GESAMT", frmKosten.Caption(), 1500),
          QuantityColumn("REST", "EINHEIT", frmLagerstand.Caption(), 1300)};
}

std::vector<ShownColumn> F_Positionen::WithdrawalColumns() const {
  return {{.data_field = "STATUS", .caption = Message(message::kStatus), .width = 670},
          {.data_field = "BELEGNUNMMER", .caption = lblBelegNr.Caption(), .width = 1100},
          {.data_field = "KOSTENSTELLENUMBER", .caption = lblKostenstelle.Caption(), .width = 1200},
          {.data_field = "ARBEITSAUFTRAG_KOPFNAME", .caption = Message(kArbeitsauftrag), .width = 2100},
          {.data_field = "LEISTUNGSARTNUMBER", .caption = lblLeistungsart.Caption(), .width = 1300},
          {.data_field = "VERFAHRENNUMBER", .caption = lblArbeitsverfahren.Caption(), .width = 1650},
          {.data_field = "OBJEKTNUMBER", .caption = lblObjekt.Caption(), .width = 800},
          {.data_field = "KOSTENARTNUMBER", .caption = lblKostenart.Caption(), .width = 950},
          {.data_field = "WALDORT", .caption = lblWaldort.Caption(), .width = 2300},
          QuantityColumn("MENGE", "WARENEINHEITEINHEIT", lblMenge_KLR.Caption(), 1150),
          {.data_field = "WARENEINHEITEINHEIT", .caption = "ME", .width = 550},
          AmountColumn("LAGERMENGE", lblLagerMengeAusbuchen.Caption(), 2250),
          AmountColumn("GESAMTKOSTEN", lblGesamtKosten.Caption(), 1400)};
}

void F_Positionen::ShowPosition() {
  const CurrentRow row = positions_.Row();
  const std::int32_t before = curPosId;
  curPosId = row.Number("ID");
  if (curPosId != before) curKlrId = 0;
  ShowRounded(row, "KOSTENE", txtKostenE);
  ShowRounded(row, "MENGE", txtMenge);
  ShowRounded(row, "GESAMT", txtKosten);
  FindComboText(txtEinheit, row.Text("EINHEIT"));
  FindComboText(txtValuta, row.Text("EURO"));
  row.Show("BEZEICHNUNG", txtBezeichnung);
  row.Show("REST", txtLagerstand, kQuantity);
  ReloadWithdrawals();
}

void F_Positionen::ShowWithdrawal() {
  const auto hold = loading_.Hold();
  const CurrentRow row = withdrawals_.Row();
  const auto show_code = [&row](const std::string& table, TextBox& code, TextBox& name) {
    row.ShowCode(table + "ID", table + "NUMBER", code);
    row.Show(table + "NAME", name);
  };
  curKlrId = row.Number("ID");
  row.Show("BELEGNUNMMER", txtBelegNr);
  show_code("KOSTENSTELLE", txtKostenstelle, txtKostenstelleName);
  txtProduktauftragNr.SetTag(row.Text("ARBEITSAUFTRAG_KOPFID"));
  ShowProductOrder(row.Text("ARBEITSAUFTRAG_KOPFNAME"));
  show_code("LEISTUNGSART", txtLeistungsart, txtLeistungsartName);
  show_code("VERFAHREN", txtArbeitsverfahren, txtArbeitsverfahrenName);
  show_code("OBJEKT", txtObjekt, txtObjektName);
  show_code("KOSTENART", txtKostenart, txtKostenartName);
  row.ShowCode("ID_WALDORT", "WALDORT", txtWaldort);
  row.Show("MENGE", txtMenge_KLR, kMoney);
  row.Show("WARENEINHEITEINHEIT", txtMengeEinhait_KLR);
  row.Show("LAGERMENGE", txtLagerMengeAusbuchen, kQuantity);
  row.Show("GESAMTKOSTEN", txtGesamtKosten, kMoney);
  SetSubject(curPosId == 0 ? "" : txtBezeichnung.Text());
  SetPanelState(Panel::kWithdrawal, true);
}

// --- view and edit ---

void F_Positionen::SetPanelState(Panel panel, bool view) {
  ViewSwitch(
      {&DataGrid1, &dataGrid_KLR, &btnNeu[0], &btnNeu[1], &btnBearbeiten, &btnLoschen, &cmdSet, &btnOk}, {})
      .Set(view);
  const bool position = !view && panel == Panel::kPosition;
  const bool withdrawal = !view && panel == Panel::kWithdrawal;
  ViewSwitch({}, {&Frame1, &btnSpeichern[0], &btnAbbrechen[0]}).Set(!position);
  ViewSwitch({}, {&frmKLR_Data, &btnSpeichern[1], &btnAbbrechen[1]}).Set(!withdrawal);
  const bool stands = view && curKlrId != 0 && withdrawals_.Row().Text("STATUS") != "S";
  btnStorno.SetEnabled(stands);
  btnStornoNeu.SetEnabled(stands);
}

}  // namespace tarvoni
