#include "src/common/amount.h"
#include "src/common/column_writer.h"
#include "src/common/currency_box.h"
#include "src/common/messages.h"
#include "src/common/slot.h"
#include "src/context/values/utf8.h"
#include "src/stores/f_lager.h"
#include "src/stores/f_lager_sql.h"
#include "src/stores/f_positionen.h"
#include "src/stores/stores_messages.h"

// Entering, saving and deleting stores documents, and the way to their goods.
namespace tarvoni {

namespace sql = lager_sql;

RowEntry::Steps F_Lager::EntrySteps() {
  return {.set_view = [this](bool view) { SetViewState(view); },
          .fill = [this]() -> Control& { return FillNew(); },
          .may_edit = [this] { return curId != 0 && !notModify(Context(), curId, 0); },
          .first = [this]() -> Control& { return txtKapitelN; },
          .save = [this] { return Save(); },
          .reload = [this] { Reload(); }};
}

Control& F_Lager::FillNew() {
  for (BudgetCode* code : {&chapter_, &title_, &payment_kind_, &payment_reason_}) code->Clear();
  for (TextBox* box : {&txtBelegNr, &txtHul, &txtRechnungsNr, &txtRechnungsBeitrag}) box->Clear();
  for (DateControl* date : {&dtpDatumBeleg, &dtpDatumHaus, &dtpDatumRech}) date->SetValue(std::nullopt);
  txtValuta.SetListIndex(-1);
  payee_.Clear();
  NameSubject("neuer Beleg");
  return txtKapitelN;
}

// --- use ---

bool F_Lager::notModify(const TvnVar_Dll& context, std::int32_t Lager_ID, std::int32_t Pos_ID) {
  if (tarvoni::ReadNumber(DbOf(context), sql::CountWithdrawals(Lager_ID, Pos_ID)) == 0) return false;
  AppMsgBox(CurrentSuite().Messages().GetMessage(stores_message::kDrawnAlready, context), kBoxWarning);
  return true;
}

// --- saving ---

std::optional<std::int32_t> F_Lager::Save() {
  if (utf8::Trim(txtBelegNr.Text()).empty()) {
    Refuse(Message(message::kEntryMissing), txtBelegNr);
    return std::nullopt;
  }
  if (!NumberIsFree()) return std::nullopt;
  if (!entry_.IsNew()) {
    WriteFields(curId);
    return curId;
  }
  const std::int32_t id = InsertDocument();
  OrUndo([&] { WriteFields(id); }, sql::DeleteDocument(id));
  NameSubject("Beleg " + txtBelegNr.Text());
  return id;
}

// A number that two documents bear already keeps neither from being edited.
bool F_Lager::NumberIsFree() {
  const bool taken = HasRow(Db(), sql::FindNumber(txtBelegNr.Text()));
  if (!taken || !entry_.IsNew()) return true;
  return Refuse(Message(stores_message::kTheEntry) + " " + Message(stores_message::kNumber) + " " +
                    Message(stores_message::kExistsAlready),
                txtBelegNr);
}

std::int32_t F_Lager::InsertDocument() {
  Execute(sql::InsertDocument(txtBelegNr.Text(), curPersonal));
  return ReadNumber(sql::LastDocument());
}

void F_Lager::WriteFields(std::int32_t id) const {
  const ColumnWriter document(Context(), "LAGER", id);
  document.Date("BUCHUNGSDAT", dtpDatumBeleg.Value());
  document.Number("KAPITEL_ID", chapter_.Id());
  document.Number("TITEL_ID", title_.Id());
  document.Text("HULNR", txtHul.Text());
  document.Date("TAGANORD", dtpDatumHaus.Value());
  document.Text("RECHNUMER", txtRechnungsNr.Text());
  document.Date("RECHDATUM", dtpDatumRech.Value());
  document.Number("RECHBERTRAG", WholeNumber(txtRechnungsBeitrag), ColumnWriter::Zero::kIsValue);
  document.Flag("RECHEURO", IsEuro(txtValuta));
  document.Number("ZAHLUNGSART", payment_kind_.Id());
  document.Number("ZAHLUNGSGRUND", payment_reason_.Id());
  document.Number("ZAHLUNGSEMF", payee_.Id());
}

// --- deleting ---

void F_Lager::Delete() {
  if (curId == 0 || notModify(Context(), curId, 0)) return;
  const std::string question = Message(stores_message::kShallThe) + " " + Message(stores_message::kNumber) +
                               " '" + documents_.Row().Text("NUMMER") + "' " +
                               Message(stores_message::kReally) + " " + Message(stores_message::kBeDeleted);
  if (!Ask(question)) return;
  const std::string confirmed = CurrentSuite().Deletes().ConfirmDelete(
      sql::PositionsOf(curId), stores_message::kHasPositions, stores_message::kDeletePositionsToo, Context());
  if (!ToFlag(confirmed)) return;
  const std::int32_t id = curId;
  curId = documents_.Neighbour();
  try {
    Committed([&] {
      ExecuteOnRow(sql::DeleteDocument(id));
      Execute(sql::DeletePositions(id));
    });
  } catch (...) {
    curId = id;
    Reload();
    throw;
  }
  Reload();
}

// --- goods ---

void F_Lager::OpenPositions() {
  if (curId == 0) return;
  const auto positions = Slot<F_Positionen>::Use();
  positions->Run(Context(), curPersonal, curId, mode_);
  Slot<F_Positionen>::Clear();
  DataGrid1.Refresh();
  if (fromPositions == kYes || selektion.empty()) return;
  selektion = std::string(kPositionMark) + fromPositions;
  btnOk.Press();
}

}  // namespace tarvoni
