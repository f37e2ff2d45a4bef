#include "src/common/amount.h"
#include "src/common/column_writer.h"
#include "src/common/currency_box.h"
#include "src/common/messages.h"
#include "src/common/slot.h"
#include "src/context/values/clock.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/stores/f_lager.h"
#include "src/stores/f_positionen.h"
#include "src/stores/f_positionen_sql.h"
#include "src/stores/stores_messages.h"

// What F_Positionen writes: goods, withdrawals and their cancellation.
namespace tarvoni {

namespace sql = positionen_sql;

namespace {

constexpr int kPlacesOfUnitCost = 4;

// The cost of a unit as it is stored; "" without a quantity.
std::string UnitCostOf(const TextBox& total, const TextBox& quantity) {
  const auto cost = NumberIn(total), amount = NumberIn(quantity);
  const auto unit = cost && amount ? Quotient(*cost, *amount, kPlacesOfUnitCost) : std::nullopt;
  return unit ? NumberToText(*unit, CurrentLocale()) : "";
}

}  // namespace

void F_Positionen::ConnectButtons() {
  btnSpeichern[0].Click = [this] { entry_.Save(); };
  btnLoschen.Click = [this] { DeletePosition(); };
  cmdSet.Click = [this] { HandOver(); };
  btnNeu[1].Click = [this] { StartWithdrawal(); };
  btnSpeichern[1].Click = [this] { SaveWithdrawal(); };
  btnAbbrechen[1].Click = [this] { LeaveWithdrawal(); };
  btnAbbrechen[1].SetCausesValidation(false);
  btnStorno.Click = [this] { CancelWithdrawal(); };
  btnStornoNeu.Click = [this] {
    if (!btnStorno.Enabled()) return;
    btnStorno.Press();
    btnNeu[1].Press();
  };
  CloseBy(btnOk);
}

F_Lager* F_Positionen::Document() {
  const bool open = Slot<F_Lager>::Holds() && Slot<F_Lager>::Use()->IsShown();
  return open ? Slot<F_Lager>::Use().get() : nullptr;
}

// The caller of the document wants a position: it gets the current one, and both Screens close.
void F_Positionen::HandOver() {
  F_Lager* const lager = Document();
  if (!lager || curPosId == 0) return;
  if (lager->Selection().empty()) {
    CurrentToolkit().Tell("Das aufrufende Programm nimmt keine Position entgegen.");
    return;
  }
  lager->HandOver(curPosId);
  btnOk.Press();
}

// --- goods ---

RowEntry::Steps F_Positionen::EntrySteps() {
  return {.set_view = [this](bool view) { SetPanelState(Panel::kPosition, view); },
          .fill = [this]() -> Control& { return FillNewPosition(); },
          .may_edit = [this] { return curPosId != 0 && !F_Lager::notModify(Context(), document_, curPosId); },
          .first = [this]() -> Control& { return txtKostenE; },
          .save = [this] { return SavePosition(); },
          .reload = [this] { ReloadPositions(); }};
}

Control& F_Positionen::FillNewPosition() {
  for (TextBox* box : {&txtKostenE, &txtMenge, &txtKosten, &txtBezeichnung, &txtLagerstand}) box->Clear();
  txtEinheit.SetListIndex(-1);
  txtValuta.SetListIndex(-1);
  SetSubject("neue Position");
  return txtKostenE;
}

std::optional<std::int32_t> F_Positionen::SavePosition() {
  if (!FitsInvoice()) {
    Refuse(Message(stores_message::kMoreThanInvoice), txtKosten);
    return std::nullopt;
  }
  if (NumberOrZero(txtMenge) == Decimal()) {
    Refuse(Message(message::kEntryMissing) + " [" + frmMenge.Caption() + "]", txtMenge);
    return std::nullopt;
  }
  if (!entry_.IsNew()) {
    WritePosition(curPosId);
    return curPosId;
  }
  Execute(sql::InsertPosition(document_));
  const std::int32_t id = ReadNumber(sql::LastPosition());
  OrUndo([&] { WritePosition(id); }, sql::DeletePosition(id));
  return id;
}

// The goods of a document cost no more than its invoice; the one being edited counts by its new total.
bool F_Positionen::FitsInvoice() {
  const F_Lager* const lager = Document();
  const auto invoice = lager ? NumberIn(lager->InvoiceAmount()) : std::nullopt;
  if (!invoice) return true;
  const std::int32_t edited = entry_.IsNew() ? 0 : curPosId;
  Decimal sum = NumberOrZero(txtKosten);
  for (Recordset rows = Data1.Recordset().Clone(); !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList row = rows.Fields();
    if (ToLong(row["ID"].Value()) == edited) continue;
    sum = Add(sum, NumberOf(row["GESAMT"].Value(), CurrentLocale()).value_or(Decimal())).value();
  }
  return *invoice >= sum;
}

void F_Positionen::WritePosition(std::int32_t id) const {
  const ColumnWriter position(Context(), "LAGER_POS", id);
  position.Number("KOSTENE", WholeNumber(txtKostenE), ColumnWriter::Zero::kIsValue);
  position.Number("GESAMT", WholeNumber(txtKosten), ColumnWriter::Zero::kIsValue);
  position.Number("EINH_ID", txtEinheit.SelectedData());
  position.Number("MENGE", WholeNumber(txtMenge), ColumnWriter::Zero::kIsValue);
  position.Flag("EURO", IsEuro(txtValuta));
  position.Text("BEZEICHNUNG", txtBezeichnung.Text());
}

void F_Positionen::DeletePosition() {
  if (curPosId == 0) return;
  const std::string question = Message(stores_message::kShallThe) + " Position: '" + txtBezeichnung.Text() +
                               "' " + Message(stores_message::kReally) + " " +
                               Message(stores_message::kBeDeleted);
  if (!Ask(question)) return;
  const SqlText statement = sql::DeletePosition(curPosId);
  const std::int32_t neighbour = positions_.Neighbour();
  DeleteRow(statement, [&] {
    curPosId = neighbour;
    ReloadPositions();
  });
}

// --- withdrawals ---

std::string F_Positionen::WithdrawalShown() const {
  return txtBezeichnung.Text() + ", Entnahme" + (txtBelegNr.Empty() ? "" : " " + txtBelegNr.Text());
}

void F_Positionen::StartWithdrawal() {
  if (curPosId == 0) return;
  ClearWithdrawal();
  SetSubject(txtBezeichnung.Text() + ", neue Entnahme");
  SetPanelState(Panel::kWithdrawal, false);
  SafeSetFocus(txtBelegNr);
}

// The whole stock is proposed.
void F_Positionen::ClearWithdrawal() {
  const auto hold = loading_.Hold();
  for (CodeField* field :
       {&cost_centre_, &order_, &work_type_, &method_, &object_, &cost_type_, &location_}) {
    field->Clear();
  }
  for (TextBox* box : {&txtBelegNr, &txtProduktauftragName, &txtMenge_KLR, &txtMengeEinhait_KLR,
                       &txtLagerMengeAusbuchen, &txtGesamtKosten}) {
    box->SetText("");
  }
  curProduktId = 0;
  txtLagerMengeAusbuchen.SetText(txtLagerstand.Text());
  txtLagerMengeAusbuchen.LostFocus();
}

void F_Positionen::SaveWithdrawal() {
  if (!TestWithdrawal()) return;
  const auto id = Committed([this] { return WriteWithdrawal(); });
  if (!id) return TellOverdrawn();
  curKlrId = *id;
  SetSubject(WithdrawalShown());
  btnAbbrechen[1].SetEnabled(false);  // the entry of this withdrawal ends
  ReloadPositions();
  SafeSetFocus(dataGrid_KLR);
}

// Not onto the next button: that is the one which cancels a withdrawal.
void F_Positionen::LeaveWithdrawal() {
  ReloadWithdrawals();
  SafeSetFocus(dataGrid_KLR);
}

bool F_Positionen::TestWithdrawal() {
  const auto given = [this](TextBox& code, const Label& label) {
    return Require(!code.Empty() && !code.Tag().empty(), label, code);
  };
  const auto none_or_given = [&given](TextBox& code, const Label& label) {
    return code.Empty() || given(code, label);
  };
  return given(txtProduktauftragNr, lblAA_Name) && given(txtLeistungsart, lblLeistungsart) &&
         (!saVerfahren || given(txtArbeitsverfahren, lblArbeitsverfahren)) &&
         given(txtKostenart, lblKostenart) &&
         Require(!txtLagerMengeAusbuchen.Empty(), lblLagerMengeAusbuchen, txtLagerMengeAusbuchen) &&
         none_or_given(txtKostenstelle, lblKostenstelle) &&
         none_or_given(txtArbeitsverfahren, lblArbeitsverfahren) && none_or_given(txtObjekt, lblObjekt) &&
         none_or_given(txtWaldort, lblWaldort);
}

// The first write keeps others out until the commit, so the stock read behind it is the one that counts.
std::optional<std::int32_t> F_Positionen::WriteWithdrawal() {
  Execute(sql::InsertWithdrawal({.day = Clock::Today(),
                                 .position = curPosId,
                                 .slip = txtBelegNr.Text(),
                                 .cost_centre = txtKostenstelle.Tag(),
                                 .order = txtProduktauftragNr.Tag(),
                                 .work_type = txtLeistungsart.Tag(),
                                 .method = txtArbeitsverfahren.Tag(),
                                 .object = txtObjekt.Tag(),
                                 .cost_type = txtKostenart.Tag(),
                                 .location = txtWaldort.Tag(),
                                 .quantity = txtMenge_KLR.Text(),
                                 .unit_cost = UnitCostOf(txtKosten, txtMenge),
                                 .drawn = txtLagerMengeAusbuchen.Text(),
                                 .amount = txtGesamtKosten.Text()},
                                Context().strSqlDateFormat));
  const std::int32_t id = ReadNumber(sql::LastWithdrawal(curPosId));
  const auto rest = NumberOf(ReadValue(Db(), sql::StockOf(curPosId)), CurrentLocale());
  if (rest && *rest >= Decimal()) return id;
  Execute(sql::DeleteWithdrawal(id));
  return std::nullopt;
}

// Another workstation drew on the position, or deleted it, since its stock was shown. The entry stays open.
void F_Positionen::TellOverdrawn() {
  const Value rest = ReadValue(Db(), sql::StockOf(curPosId));
  if (IsNull(rest)) throw RowGoneError();
  txtLagerstand.SetText(FieldText(rest, "#0.00##", CurrentLocale()));
  Refuse("Inzwischen wurde an einem anderen Arbeitsplatz ausgebucht: Im Lager sind nur noch " +
             txtLagerstand.Text() + ". Es wurde nichts gebucht.",
         txtLagerMengeAusbuchen);
}

// One that was deleted elsewhere leaves the list, as it does when a row is deleted.
void F_Positionen::CancelWithdrawal() {
  if (curKlrId == 0) return;
  const std::string cancelled = WithdrawalShown();
  DeleteRow(sql::CancelWithdrawal(curKlrId, Clock::Today(), Context().strSqlDateFormat),
            [this] { ReloadPositions(); });
  SafeSetFocus(dataGrid_KLR);
  CurrentToolkit().Tell("Storniert: " + cancelled + ".");
}

}  // namespace tarvoni
