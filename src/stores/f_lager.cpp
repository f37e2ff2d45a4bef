#include "src/stores/f_lager.h"

#include "src/common/amount.h"
#include "src/common/box_chain.h"
#include "src/common/box_rules.h"
#include "src/common/client_number.h"
#include "src/common/contracts.h"
#include "src/common/currency_box.h"
#include "src/common/date_limits.h"
#include "src/common/number_keys.h"
#include "src/common/view_switch.h"
#include "src/common/voucher_document.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/stores/f_lager_sql.h"

namespace tarvoni {

namespace sql = lager_sql;

namespace {

constexpr std::uint8_t kOfVoucher = 2;

// Columns of the list that the statement leaves without a name.
constexpr int kChapterNumber = 3;
constexpr int kTitleNumber = 4;
constexpr int kPaymentKindNumber = 9;
constexpr int kPaymentReasonNumber = 10;

bool WantsPosition(const std::string& personal) {
  return utf8::Upper(personal.substr(0, F_Lager::kPositionMark.size())) == F_Lager::kPositionMark;
}

std::int32_t ClientOf(const std::string& text) {
  const auto number = ParseNumber(text, CurrentLocale());
  if (!number) throw CallError("Das Argument strPersonal_dll nennt keinen Mandanten.");
  return ToInt32(number->ToDouble());
}

std::optional<DateTime> DayOf(const CurrentRow& row, const char* column) {
  return DateTime::FromIso(row.Text(column, "yyyy-mm-dd"));
}

}  // namespace

F_Lager::F_Lager()
    : Screen("F_Lager"),
      chapter_(Context(), loading_, lblKapitel, txtKapitelN, txtKapitel, "HH_KAPITEL",
               BudgetCode::Kind::kBudget, [this] { return curPersonal; }),
      title_(Context(), loading_, lblTitel, txtTitelN, txtTitel, "HH_TITEL", BudgetCode::Kind::kBudget,
             [this] { return curPersonal; }),
      payment_kind_(Context(), loading_, lblZuhlungsart, txtZuhlungsartN, txtZuhlungsart, "ZUHLUNGSART",
                    BudgetCode::Kind::kPayment, [this] { return curPersonal; }),
      payment_reason_(Context(), loading_, lblZuhlungsgrund, txtZuhlungsgrundN, txtZuhlungsgrund,
                      "ZUHLUNGSGRUND", BudgetCode::Kind::kPayment, [this] { return curPersonal; }) {
  documents_.Connect([this] { ShowCurrentRow(); }, [this] { return Columns(); }, &btnBearbeiten);
  ConnectFields();
  ConnectButtons();
}

void F_Lager::Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t mode_dll,
                  std::string& strSelektion_Fr_Wh_dll, std::string& /*strSelektionFormula_dll*/) {
  selektion = strSelektion_Fr_Wh_dll;
  mode_ = mode_dll;
  const bool wants_position = WantsPosition(strPersonal_dll);
  fromPositions = wants_position ? kYes : "";
  curPersonal = ClientOf(wants_position ? strPersonal_dll.substr(kPositionMark.size()) : strPersonal_dll);
  Present(tvnvar, [this] {
    FillCurrencies(txtValuta, Context());
    client_number_ = ReadText(NumberOfClient(curPersonal));
    curId = 0;
    LoadList();
    ShowCurrentRow();
    entry_.Begin();
    if (!documents_.Empty() && mode_ == kOfVoucher) StandOnVouchersDocument();
  });
  strSelektion_Fr_Wh_dll = selektion;
}

// --- fields ---

void F_Lager::ConnectFields() {
  for (BudgetCode* code : {&chapter_, &title_, &payment_kind_, &payment_reason_}) code->Connect();
  NumberKeys(txtRechnungsBeitrag, Entry::kDecimal, Minus::kAllowed);
  for (DateControl* date : {&dtpDatumHaus, &dtpDatumBeleg, &dtpDatumRech}) LimitOnLeave(*date);
  ConnectChain({&txtKapitelN, &txtTitelN, &txtHul, &dtpDatumHaus, &txtBelegNr, &dtpDatumBeleg,
                &txtRechnungsNr, &dtpDatumRech, &txtRechnungsBeitrag, &txtValuta, &txtZuhlungsartN,
                &txtZuhlungsgrundN, &btnZuhlung});
  Rules(txtBelegNr).Left([this] {
    const bool changed = !entry_.IsNew() && txtBelegNr.Text() != documents_.Row().Text("NUMMER");
    if (changed) CurrentToolkit().Tell("Die Nummer eines Belegs, den es schon gibt, bleibt, wie sie ist.");
  });
}

void F_Lager::ConnectButtons() {
  btnSpeichern.Click = [this] { entry_.Save(); };
  btnLoschen.Click = [this] { Delete(); };
  btnPositionen.Click = [this] { OpenPositions(); };
  btnZuhlung.Click = [this] {
    if (payee_.Pick()) DataGrid1.Refresh();
  };
  btnDeleteMan.Click = [this] { payee_.Clear(); };
  CloseBy(btnOk);
}

// --- the list ---

void F_Lager::LoadList() {
  documents_.Load(sql::DocumentsOf(curPersonal));
}

void F_Lager::Reload() {
  LoadList();
  if (curId == 0 || documents_.Empty()) return ShowCurrentRow();
  find_saved_.Request();
}

void F_Lager::StandOnVouchersDocument() {
  const auto document = Neighbour<VoucherDocument>().OfCurrentVoucher();
  if (!document || !documents_.Find(*document)) documents_.MoveFirst();
}

std::vector<ShownColumn> F_Lager::Columns() const {
  const auto date = [](const char* field, const std::string& caption) {
    return ShownColumn{.data_field = field, .caption = caption, .number_format = "dd.mm.yyyy", .width = 1700};
  };
  return {{.data_field = "NUMMER", .caption = lblNummer.Caption(), .width = 1500},
          date("BUCHUNGSDAT", lblBuchDatum.Caption()),
          {.data_field = kChapterNumber, .caption = lblKapitel.Caption(), .width = 850},
          {.data_field = kTitleNumber, .caption = lblTitel.Caption(), .width = 850},
          date("TAGANORD", lblTag.Caption()),
          {.data_field = "RECHNUMER", .caption = lblRechnummer.Caption(), .width = 1900},
          date("RECHDATUM", lblRechDatum.Caption()),
          AmountColumn("RECHBERTRAG", lblRechnungsBeitrag.Caption(), 1750, "#0.00"),
          {.data_field = kPaymentKindNumber, .caption = lblZuhlungsart.Caption(), .width = 1250},
          {.data_field = kPaymentReasonNumber, .caption = lblZuhlungsgrund.Caption(), .width = 1550},
          {.data_field = "ZAHLUNGSEMFANGER", .caption = lblZuhlungsempanger.Caption(), .width = 2600}};
}

void F_Lager::ShowCurrentRow() {
  const CurrentRow row = documents_.Row();
  curId = row.Number("ID");
  row.Show("NUMMER", txtBelegNr);
  dtpDatumBeleg.SetValue(DayOf(row, "BUCHUNGSDAT"));
  chapter_.Show(row.Number("KAPITEL_ID"));
  title_.Show(row.Number("TITEL_ID"));
  row.Show("HULNR", txtHul);
  dtpDatumHaus.SetValue(DayOf(row, "TAGANORD"));
  row.Show("RECHNUMER", txtRechnungsNr);
  dtpDatumRech.SetValue(DayOf(row, "RECHDATUM"));
  ShowRounded(row, "RECHBERTRAG", txtRechnungsBeitrag);
  if (curId != 0) {
    FindComboText(txtValuta, row.Flag("RECHEURO") ? "EUR" : Context().strLocalCurrency);
  } else {
    txtValuta.SetListIndex(-1);
  }
  payment_kind_.Show(row.Number("ZAHLUNGSART"));
  payment_reason_.Show(row.Number("ZAHLUNGSGRUND"));
  payee_.Show(row.Number("ZAHLUNGSEMF"));
  NameSubject(curId == 0 ? "" : "Beleg " + txtBelegNr.Text());
}

void F_Lager::NameSubject(const std::string& document) {
  SetSubject("Forstbetrieb " + client_number_ + (document.empty() ? "" : ", " + document));
}

// --- view and edit ---

void F_Lager::SetViewState(bool view) {
  ViewSwitch({&btnNeu, &btnBearbeiten, &btnLoschen, &btnOk, &btnPositionen, &Frame1},
             {&btnSpeichern, &btnAbbrechen, &Frame4})
      .Set(view);
}

}  // namespace tarvoni
