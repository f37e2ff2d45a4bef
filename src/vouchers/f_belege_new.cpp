#include "src/vouchers/f_belege_new.h"

#include <utility>

#include "src/common/client_number.h"
#include "src/common/contracts.h"
#include "src/common/currency_box.h"
#include "src/common/view_switch.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/vouchers/f_belege_new_sql.h"
#include "src/vouchers/vouchers_messages.h"

namespace tarvoni {

namespace sql = voucher_sql;

namespace {

constexpr const char* kRowsTab = "Kostenaufteilung";

}  // namespace

F_Belege_New::F_Belege_New() : Screen("F_Belege_New") {
  vouchers_.Connect([this] { ShowVoucher(0); }, [this] { return VoucherColumns(); }, &btnBearbeiten);
  rows_.Connect([this] { ShowRow(); }, [this] { return RowColumns(); });
  DataGridKLR.SetStruck("STATUS", "S");
  ConnectFields();
  ConnectButtons();
  SSTab1.Click = [this] { SetViewState(view_); };
}

void F_Belege_New::Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t mode_dll) {
  const std::int32_t client = ToInt32(strPersonal_dll, CurrentLocale());
  // An open Screen refuses a second call and must not change by it.
  Present(tvnvar, [=, this] {
    idPersonal = client;
    screenMode = mode_dll;
    isNewVoucher = stornoThenNew = false;
    Fill();
  });
}

std::optional<std::int32_t> F_Belege_New::CurrentDocument() const {
  const std::int32_t document = IsLoaded() ? vouchers_.Row().Number("LAGER_ID") : 0;
  return document == 0 ? std::nullopt : std::optional(document);
}

void F_Belege_New::Fill() {
  const auto hold = loading_.Hold();
  for (ComboBox* box : {&txtValuta, &txtValuta2}) FillCurrencies(*box, Context());
  ShowCurrency(txtValuta2, false, Context());
  txtEinheit.Clear();
  FillComboFromSql(Db(), txtEinheit, GetNamedSql(Context(), "WARENEINHEIT", {}));
  forest_year_ = OptionText("STANDARD_FWJ");
  client_number_ = ReadText(NumberOfClient(idPersonal));
  DataGridBelege.SetStruck("STORNO", FieldText(Value(true), "", CurrentLocale()));
  btnNeu.SetTag("");
  LoadVouchers(0);
  SafeSetFocus(DataGridBelege);
}

void F_Belege_New::ConnectButtons() {
  btnNeu.Click = [this] { StartNew(); };
  btnBearbeiten.Click = [this] { StartEditing(); };
  btnSpeichern.Click = [this] { Save(); };
  btnAbbrechen.Click = [this] { Cancel(); };
  btnAbbrechen.SetCausesValidation(false);
  btnStorno.Click = [this] { Storno(); };
  btnStornoNew.Click = [this] { StornoThenNew(); };
  btnFind.Click = [this] { FindVoucher(); };
  btnZuhlung.Click = [this] {
    payee_.Pick();
    SafeSetFocus(btnSpeichern);
  };
  btnDeleteMan.Click = [this] { payee_.Clear(); };
  btnHolz.Click = [this] { AssignLists(); };
  btnNV.Click = [this] { OpenNaturalExecution(); };
  CloseBy(btnOk);
}

// --- the list of vouchers ---

std::vector<ShownColumn> F_Belege_New::VoucherColumns() const {
  const auto date = [](int field, std::string caption, int width) {
    return ShownColumn{
        .data_field = field, .caption = std::move(caption), .number_format = "dd.mm.yyyy", .width = width};
  };
  return {{.data_field = 0, .caption = "Status", .width = 670},
          date(1, lblDatumBeleg.Caption(), 1650),
          {.data_field = 2, .caption = lblBelegNr.Caption(), .width = 1750},
          {.data_field = 3, .caption = "Rechnung", .width = 1400},
          date(4, "Rechnung vom", 1500),
          QuantityColumn(5, 6, "Betrag", 1200),
          {.data_field = 6, .caption = "Währung", .width = 950},
          {.data_field = 7, .caption = lblKapitel.Caption(), .width = 750},
          {.data_field = 8, .caption = lblTitel.Caption(), .width = 650},
          {.data_field = 9, .caption = lblHul.Caption(), .width = 1000},
          date(10, lblDatumHaus.Caption(), 1350),
          {.data_field = 11, .caption = lblZuhlungsart.Caption(), .width = 1300},
          {.data_field = 12, .caption = lblZuhlungsgrund.Caption(), .width = 1550},
          {.data_field = 13, .caption = lblZuhlungsempanger.Caption(), .width = 1950}};
}

// Stands on the voucher and the row given, or on the first of each.
void F_Belege_New::LoadVouchers(std::int32_t voucher, std::int32_t position) {
  const std::string& currency = Context().strLocalCurrency;
  vouchers_.Load(
      ReadOnly() ? sql::VouchersOfPosition(Neighbour<WorkOrders>().CurrentPosition().value_or(0), currency)
                 : sql::VouchersOfClient(idPersonal, currency));
  const auto hold = loading_.Hold();
  if (voucher != 0) vouchers_.Find(voucher);
  ShowVoucher(position);
}

void F_Belege_New::ShowVoucher(std::int32_t position) {
  const auto hold = loading_.Hold();
  const CurrentRow row = vouchers_.Row();
  ShowHeader(row);
  voucherCancelled = row.Flag("STORNO");
  stockPositionId = row.Number("POS_ID");
  LoadRows(vouchers_.CurrentId(), position);
}

void F_Belege_New::ShowHeader(const CurrentRow& row) {
  row.Show("NUMMER", txtBelegNr);
  row.Show("BUCHUNGSDAT", txtDatumBeleg, "dd.mm.yyyy");
  row.ShowCode("KAPITEL_ID", "KAPITEL", txtKapitelN);
  row.Show("KAPITEL_LANG", txtKapitel);
  row.ShowCode("TITEL_ID", "TITEL", txtTitelN);
  row.Show("TITEL_LANG", txtTitel);
  row.Show("HULNR", txtHul);
  row.Show("TAGANORD", txtDatumHaus, "dd.mm.yyyy");
  row.Show("RECHNUMER", txtRechnungsNr);
  row.Show("RECHDATUM", txtDatumRech, "dd.mm.yyyy");
  row.Show("RECHBERTRAG", txtRechnungsBeitrag, "#0.00");
  ShowCurrency(txtValuta2, row.Flag("RECHEURO"), Context());
  row.ShowCode("ZAHLUNGSART", "ZAHLUNGSART_NUMBER", txtZuhlungsartN);
  row.Show("ZAHLUNGSART_NAME", txtZuhlungsart);
  row.ShowCode("ZAHLUNGSGRUND", "ZAHLUNGSGRUND_NUMBER", txtZuhlungsgrundN);
  row.Show("ZAHLUNGSGRUND_NAME", txtZuhlungsgrund);
  payee_.Show(row.Number("ZAHLUNGSEMF"));
}

// The search text stays out of the way: nobody finds it, the list stands where it stood.
void F_Belege_New::FindVoucher() {
  const std::string number = CurrentToolkit().InputBox(lblBelegNr.Caption(), btnFind.Caption());
  if (number.empty()) return;
  const std::int32_t before = vouchers_.CurrentId();
  if (vouchers_.Find("NUMMER", number)) return;
  AppMsgBox(Message(voucher_message::kNoSuchVoucher), kBoxInformation);
  if (before != 0) vouchers_.Find(before);
}

// --- the allocation ---

std::vector<ShownColumn> F_Belege_New::RowColumns() const {
  return {{.data_field = "STATUS", .caption = "Status", .width = 670},
          {.data_field = "PRODUKT_NUMBER", .caption = lblProdukt.Caption(), .width = 900},
          {.data_field = "ARBEITSAUFTRAG_NAME", .caption = lblName.Caption(), .width = 2000},
          {.data_field = "ORDERS", .caption = "Nr.", .width = 550},
          {.data_field = "LEISTUNGSART_NUMBER", .caption = lblLeistungsart.Caption(), .width = 1300},
          {.data_field = "KOSTENSTELLE_NUMBER", .caption = lblKostenstelle.Caption(), .width = 1200},
          {.data_field = "KOSTENART_NUMBER", .caption = lblKostenart.Caption(), .width = 1000},
          {.data_field = "SONDERMERKMALNUMMER", .caption = lblSondermerkmal.Caption(), .width = 1550},
          AmountColumn("FLAECHE", lblFlache.Caption(), 1000, "0.0000"),
          QuantityColumn("MENGE", "EINH_ID", lblMenge.Caption(), 1000),
          AmountColumn("GESAMT", lblKosten.Caption(), 1200),
          AmountColumn("ERLOS", lblErlos.Caption(), 1200),
          {.data_field = "MWSTSHORT", .caption = lblMehrwertsteuer.Caption(), .width = 1550},
          AmountColumn("STUNDEN", lblStunden.Caption(), 1000),
          AmountColumn("MAS", lblMAS.Caption(), 900)};
}

// Stands on the row given, or on the first.
void F_Belege_New::LoadRows(std::int32_t voucher, std::int32_t position) {
  rows_.Load(voucher == 0 ? sql::NoRows() : sql::RowsOf(voucher));
  const auto hold = loading_.Hold();
  if (position != 0) rows_.Find(position);
  ShowRow();
}

void F_Belege_New::ShowRow() {
  const auto hold = loading_.Hold();
  const CurrentRow row = rows_.Row();
  positionCancelled = row.Text("STATUS") == "S";
  ShowRowCodes(row);
  ShowRowAmounts(row);
  ShowRest();
  SetViewState(true);
}

void F_Belege_New::ShowRowCodes(const CurrentRow& row) {
  row.ShowCode("PRODUKT_ID", "PRODUKT_NUMBER", txtProduktN);
  txtProdukt.SetText(GetNameById("PRODUKT", row.Number("PRODUKT_ID"), Db()));
  row.ShowCode("KOSTENSTELLE_ID", "KOSTENSTELLE_NUMBER", txtKostenstelleN);
  txtKostenstelle.SetText(GetNameById("KOSTENSTELLE", row.Number("KOSTENSTELLE_ID"), Db()));
  const std::string order = row.Text("ARBEITSAUFTRAG_NAME");
  txtPaN.SetText(utf8::Substring(order, std::max(0, utf8::Length(order) - 4)));
  txtPaN.SetTag(row.Text("ARBEITSAUFTRAG_KOPF_ID"));
  txtPA.SetText(order);
  SetTextBoxLocked(txtKostenstelleN.Tag().empty(), txtPaN);
  row.ShowCode("LEISTUNGSART_ID", "LEISTUNGSART_NUMBER", txtLeistungsartN);
  ShowActivity(row);
  row.ShowCode("KOSTENART_ID", "KOSTENART_NUMBER", txtKostenartN);
  ShowCostType(row);
  row.ShowCode("SONDERMERKMAL_ID", "SONDERMERKMALNUMMER", "SONDERMERKMALNAME", txtSondermerkmal);
  row.ShowCode("ID_MWST", "MWSTSHORT", "MWSTLONG", txtMehrwertsteuer);
  std::int32_t location = row.Number("WO_ID");
  txtWaldort.SetText(location == 0 ? "" : GetWaldortText(location, Context(), true));
  txtWaldort.SetTag(location == 0 ? "" : std::to_string(location));
}

// One that its cost centre does not allow any more keeps its name and opens nothing.
void F_Belege_New::ShowActivity(const CurrentRow& row) {
  activity_ = {};
  if (!txtLeistungsartN.Empty()) {
    activity_ = FindActivity(Db(), {.client = idPersonal,
                                    .product = row.Number("PRODUKT_ID"),
                                    .number = txtLeistungsartN.Text(),
                                    .cost_centre = row.Number("KOSTENSTELLE_ID")});
  }
  const bool found = activity_.id != 0;
  activity_.id = row.Number("LEISTUNGSART_ID");
  txtLeistungsart.SetText(found ? activity_.name : GetNameById("LEISTUNGSART", activity_.id, Db()));
}

void F_Belege_New::ShowCostType(const CurrentRow& row) {
  cost_type_ = row.Number("KOSTENART_ID");
  const Recordset found = Screen::Open(sql::CostType(cost_type_));
  const CurrentRow type(found);
  txtKostenart.SetText(type.Text("NAME"));
  revenue_ = type.Flag("ERLOSE");
}

// What the row holds lies over what its codes open and close.
void F_Belege_New::ShowRowAmounts(const CurrentRow& row) {
  TakeActivity();
  OpenAmounts(!revenue_, revenue_);
  row.Show("FLAECHE", txtFlache, "0.0000");
  row.Show("MENGE", txtMenge, "0.00");
  row.Show("GESAMT", txtKosten, "#0.00");
  row.Show("ERLOS", txtErlos, "#0.00");
  row.Show("STUNDEN", txtStunden, "#0.00");
  row.Show("MAS", txtMAS, "#0.00");
  FindComboItemData(txtEinheit, row.Number("EINH_ID"));
  (row.Flag("PRO_MENGE") ? optMenge : optHa).SetValue(true);
  if (!revenue_) ShowCurrency(txtValuta, row.Flag("EURO"), Context());
}

// What of the invoice is not spread yet; nothing of a new voucher's.
void F_Belege_New::ShowRest() {
  const auto amount = [](const CurrentRow& row, const char* column) {
    return ParseNumber(row.Text(column), CurrentLocale()).value_or(Decimal());
  };
  const Decimal invoiced = amount(vouchers_.Row(), "RECHBERTRAG");
  const Decimal spread = amount(rows_.Row(), "KOSTENMINUSERLOS");
  const auto rest = Subtract(isNewVoucher ? Decimal() : invoiced, spread);
  SSTab1.SetTabCaption(1, std::string(kRowsTab) + " (" +
                              FormatNumber(rest.value_or(Decimal()), "0.00", CurrentLocale()) + " EUR)");
}

// --- states ---

// On the second page it is the row that is cancelled, and what is entered there is always a new one.
void F_Belege_New::NameSubject() {
  const CurrentRow voucher = vouchers_.Row(), row = rows_.Row();
  std::string subject = "Forstbetrieb " + client_number_;
  if (isNewVoucher)
    subject += ", neuer Beleg";
  else if (!voucher.IsNull("ID"))
    subject += ", Beleg " + (voucher.IsNull("NUMMER") ? "ohne Nummer" : voucher.Text("NUMMER"));
  if (SSTab1.Tab() == 1 && !view_)
    subject += ", neue Zeile";
  else if (SSTab1.Tab() == 1 && !row.IsNull("ID"))
    subject += ", Position " + row.Text("ORDERS");
  SetSubject(subject);
}

void F_Belege_New::SetViewState(bool view) {
  view_ = view;
  NameSubject();
  for (const int tab : {0, 1}) SSTab1.SetTabEnabled(tab, tab == SSTab1.Tab() || !IsNewEntry());
  if (ReadOnly()) return SetReadOnly();
  const bool on_voucher = SSTab1.Tab() == 0;
  const bool enters = !view && (!on_voucher || !IsNewEntry() || isNewVoucher);
  btnNeu.SetEnabled(view && (on_voucher || !voucherCancelled));
  btnBearbeiten.SetEnabled(view && on_voucher && !vouchers_.Empty() && !voucherCancelled);
  for (Control* control : std::initializer_list<Control*>{&btnSpeichern, &Frame1})
    control->SetEnabled(enters);
  for (Button* button : {&btnStorno, &btnStornoNew})
    button->SetEnabled(view && !(on_voucher ? voucherCancelled : positionCancelled));
  ViewSwitch({&btnOk, &btnFind, &DataGridBelege, &DataGridKLR},
             {&btnAbbrechen, &frmBetriebs, &frmData, &frmWaldort})
      .Set(view);
  SetTimberStates();
}

void F_Belege_New::SetReadOnly() {
  ViewSwitch({&btnOk, &btnFind, &DataGridBelege, &DataGridKLR},
             {&btnNeu, &btnBearbeiten, &btnSpeichern, &btnAbbrechen, &btnStorno, &btnStornoNew, &Frame1,
              &frmBetriebs, &frmData, &frmWaldort, &btnHolz, &btnNV})
      .Set(true);
}

}  // namespace tarvoni
