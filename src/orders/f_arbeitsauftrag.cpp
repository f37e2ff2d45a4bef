#include "src/orders/f_arbeitsauftrag.h"

#include "src/common/contracts.h"
#include "src/common/messages.h"
#include "src/common/page_focus.h"
#include "src/common/view_switch.h"
#include "src/context/values/number_text.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// Entry, and the states: which buttons and frames are open.
namespace tarvoni {

namespace sql = work_order_sql;

F_Arbeitsauftrag::F_Arbeitsauftrag() : ArbeitsauftragSurface("F_Arbeitsauftrag") {
  DataGrid1.SetStruck("STATUS", "S");
  positions_.Connect([this] { ShowPosition(); }, [this] { return Columns(); }, &btnBearbeiten);
  DataGrid1.Click = [this] {
    if (HasPosition() && positions_.CurrentId() != positionId) ShowPosition();
  };
  DataGrid1.HeadClick = [this](int column) {
    const auto hold = suppressEvents.Hold();
    Data1.OrderBy(column);
  };
  Form_Activate = [this] { ShowMode(); };
  ConnectFields();
  ConnectButtons();
}

void F_Arbeitsauftrag::Run(const TvnVar_Dll& tvnvar, const std::string& idPersonal_dll, std::int32_t ID,
                           bool Plan_dll) {
  isPlan = Plan_dll;
  idPersonal = ToInt32(idPersonal_dll, CurrentLocale());
  headerId = ID;
  if (headerId == 0) {
    btnAbbrechen.SetTag("NEW");
    // The order is opened by a second call with its id.
    if (!isPlan) {
      Neighbour<NewWorkOrder>().Ask(tvnvar, idPersonal);
      return;
    }
    headerId = NewPlan(tvnvar);
  }
  if (headerId == 0) return;
  Present(tvnvar, [this] { Fill(); });
}

void F_Arbeitsauftrag::Fill() {
  {
    const auto hold = suppressEvents.Hold();
    positionId = 0;
    Uncheck();
    LimitTexts();
    FillHeaderLists();
    positions_.Load(isPlan ? sql::PlanPositions(headerId) : sql::OrderPositions(headerId));
    widths_.Read(Db());
    ShowColumns(DataGrid1, Columns());
    LoadHeader();
    BeginState();
  }
  if (!positions_.Empty()) {
    positions_.MoveFirst();
    FocusList();
  }
  lblGesamtSummeEuro.SetCaption("EUR");
  ReadEuroFactor();
  ShowSum();
  ShowTitle();
}

// An empty order begins with its first position, unless it is closed.
void F_Arbeitsauftrag::BeginState() {
  isNewPosition = false;
  if (!positions_.Empty()) {
    SetFrames(false);
    if (!chkAbgesch.Checked()) SetViewState(true);
  } else if (chkAbgesch.Checked()) {
    ClearPosition();
    SetFrames(false);
    SetViewState(true);
  } else {
    kostenstelle_.Clear();
    NewPosition();
    SetViewState(false);
  }
  SSTab1.SetTab(0);
  lblQuelle.SetVisible(!isPlan);
  txtQuelle.SetVisible(!isPlan);
  if (isPlan) Frame3.SetCaption("");
  SetTextBoxLocked(!isPlan, txtKostenstelleN);
}

void F_Arbeitsauftrag::ShowMode() {
  for (Control* control : std::initializer_list<Control*>{&txtPlanung_Lang, &lblPlanung_Lang})
    control->SetVisible(isPlan);
  for (Control* control : std::initializer_list<Control*>{&cmdHolz, &chkAbgesch, &btnAuftrag, &btnBelege,
                                                          &cmbPlannummer, &Frame13, &DataGrid1})
    control->SetVisible(!isPlan);
}

std::optional<std::int32_t> F_Arbeitsauftrag::CurrentPosition() const {
  if (!IsLoaded() || isPlan || !HasPosition()) return std::nullopt;
  return positions_.CurrentId();
}

void F_Arbeitsauftrag::ConnectButtons() {
  btnNeu.Click = [this] { NewPosition(); };
  btnBearbeiten.Click = [this] { EditPosition(); };
  btnSpeichern.Click = [this] { Save(); };
  btnAbbrechen.Click = [this] { Cancel(); };
  btnAbbrechen.SetCausesValidation(false);
  btnLoschen.Click = [this] { RemovePosition(); };
  chkAbgesch.Click = [this] { ClosedClicked(); };
  btnBeschreibung.Click = [this] { EditDescription(); };
  btnBelege.Click = [this] { Neighbour<Vouchers>().OpenOfCurrentPosition(Context(), idPersonal); };
  btnAuftrag.Click = [] {
    CurrentToolkit().Tell("Eine Auftragsabrechnung gibt es in diesem Programm nicht. Es wurde nichts getan.");
  };
  cmdHolz.Click = [this] { AssignLists(); };
  btnNV.Click = [this] { OpenNaturalExecution(); };
  CloseBy(btnOk);
  Closing = [this] {
    widths_.Store(Db(), DataGrid1);
    if (isPlan) DeleteEmptyPlan();
  };
}

// --- states ---

void F_Arbeitsauftrag::SetViewState(bool view) {
  ViewSwitch({&btnBearbeiten, &btnOk, &btnBelege, &btnAuftrag, &chkAbgesch, &DataGrid1},
             {&btnSpeichern, &btnAbbrechen})
      .Set(view);
  btnNeu.SetEnabled(view && !isPlan);
  btnLoschen.SetEnabled(view && !isPlan && HasPosition());
  cmdHolz.SetEnabled(TimberOpen());
  BlockPosition();
  if (chkAbgesch.Checked()) CutDownClosed();
  btnNV.SetEnabled(NaturalExecutionOpen());
}

void F_Arbeitsauftrag::CutDownClosed() {
  for (Button* button :
       {&btnNeu, &btnBearbeiten, &btnSpeichern, &btnAbbrechen, &btnLoschen, &btnAuftrag, &btnBelege})
    button->SetEnabled(false);
}

// What others wrote, and what is cancelled, is not changed here.
void F_Arbeitsauftrag::BlockPosition() {
  if (isPlan || !HasPosition()) return;
  const CurrentRow row = positions_.Row();
  const bool cancelled = row.Text("STATUS") == "S";
  const bool written_elsewhere = row.Text("QUELLE").find_first_of("LA") != std::string::npos;
  if (row.IsNull("BELEGE_ID") && !cancelled && !written_elsewhere) return;
  for (Button* button : {&btnBearbeiten, &btnLoschen, &btnAuftrag}) button->SetEnabled(false);
  if (cancelled || written_elsewhere) cmdHolz.SetEnabled(false);
}

void F_Arbeitsauftrag::SetFrames(bool enabled) {
  for (Frame* frame : {&frmWaldort, &Frame3, &frmBetriebs, &Frame6, &Frame4}) frame->SetEnabled(enabled);
  if (txtPlanung_Lang.Visible()) txtPlanung_Lang.SetEnabled(enabled);
}

// Where one goes on in view state; a plan shows no list.
void F_Arbeitsauftrag::FocusList() {
  SafeSetFocus(isPlan ? static_cast<Control&>(btnBearbeiten) : DataGrid1);
}

// Without any position the head is all there is: it is saved, and the Screen closes.
void F_Arbeitsauftrag::Cancel() {
  for (DateField* date : {&kopfDatum_, &datum_}) date->TakeBack();
  isNewPosition = false;
  SetViewState(true);
  SetFrames(false);
  if (!positions_.Empty()) {
    ShowPosition();
    FocusList();
    return;
  }
  if (txtForstamt.Empty()) {
    Refuse(Message(message::kEntryMissing), txtForstamt, kBoxOk);
    return;
  }
  if (!StillOpen()) return;
  RequireWritable();
  Committed([this] { SaveHeader(); });
  btnOk.Press();
}

// False if the order was closed at another workstation, of which the user has been told; a RowGoneError if it was
// deleted there.
bool F_Arbeitsauftrag::StillOpen() {
  const Recordset rows = Open(isPlan ? sql::PlanExists(headerId) : sql::IsClosed(headerId));
  if (rows.EndOfFile()) throw RowGoneError();
  if (isPlan || chkAbgesch.Checked() || !ToFlag(rows.Fields()[0].Value())) return true;
  AppMsgBox(
      "Dieser Auftrag wurde inzwischen an einem anderen Arbeitsplatz abgeschlossen. Es wurde nichts "
      "gespeichert.",
      kBoxWarning);
  return false;
}

}  // namespace tarvoni
