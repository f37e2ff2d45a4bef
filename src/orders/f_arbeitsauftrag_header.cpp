#include "src/common/currency_box.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_messages.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// The head of the order or plan.
namespace tarvoni {

namespace sql = work_order_sql;

std::string F_Arbeitsauftrag::HeaderTable() const {
  return isPlan ? "ARBEITSAUFTRAG_KOPF_PLANN" : "ARBEITSAUFTRAG_KOPF";
}

ColumnWriter F_Arbeitsauftrag::HeaderWriter() const {
  return {Context(), HeaderTable(), headerId};
}

void F_Arbeitsauftrag::FillHeaderLists() {
  txtEinheit.Clear();
  FillComboFromSql(Db(), txtEinheit, GetNamedSql(Context(), "WARENEINHEIT", {}));
  FillCurrencies(txtValuta, Context());
  standardForstamt = ToInt16(static_cast<double>(OptionNumber("STANDARD_FORSTAMP")));
  txtForstamt.Clear();
  const Value list = ReadValue(Db(), sql::OfficeList(standardForstamt));
  if (IsNull(list)) return;
  txtForstamt.AddItem("");
  FillComboFromSql(Db(), txtForstamt, sql::Offices(ToLong(list)));
}

void F_Arbeitsauftrag::LoadHeader() {
  headerName.clear();
  productNumber_.clear();
  const Recordset rows = Open(isPlan ? sql::PlanHeader(headerId) : sql::OrderHeader(headerId));
  if (rows.EndOfFile()) throw RowGoneError();
  ShowHeader(rows.Fields());
  if (positions_.Empty()) DefaultHeader();
}

void F_Arbeitsauftrag::ShowHeader(const FieldList& row) {
  txtKopfDatum.SetText(FieldText(row["DATUM"].Value(), "dd.mm.yyyy", CurrentLocale()));
  txtFWJ.SetText(ToText(row["FWJ"].Value()));
  FindComboItemData(txtForstamt, ToLong(row["FORSTAMT"].Value()));
  productId = ToLong(row["PRODUKT_ID"].Value());
  txtProduktN.SetText(ToText(row["PRODUKTN"].Value()));
  txtProdukt.SetText(ToText(row["PRODUKTT"].Value()));
  headerName = ToText(row["NAME"].Value());
  txtBeschreibung.SetText(ToText(row["BESCHREIBUNG"].Value()));
  if (isPlan) {
    txtPlanung_Lang.SetText(ToText(row["PLANUNG_LANG"].Value()));
  } else {
    txtSM.SetTag(ToText(row["ID_SONDERMERKMAL"].Value()));
    txtSM.SetText(ToText(row["SONDERMERKMALNUMMER"].Value()));
    closed_ = ToFlag(row["ABGENSCHLOSEN"].Value());
    chkAbgesch.SetChecked(closed_);
  }
}

// They lie over whatever the row held.
void F_Arbeitsauftrag::DefaultHeader() {
  txtFWJ.SetText(OptionText("STANDARD_FWJ"));
  FindComboItemData(txtForstamt, standardForstamt);
}

void F_Arbeitsauftrag::ShowTitle() {
  SetCaption(isPlan ? Message(message::kPlan) + " (" + headerName + ")"
                    : Message(message::kOrderAndCosts) + " (Arbeitsauftrag " + headerName + ")");
}

// Positions of a plan have no numbers, and those that came from elsewhere are known by their day and work type.
std::string F_Arbeitsauftrag::NumberOfPosition() const {
  if (isPlan || !HasPosition()) return "";
  const CurrentRow row = positions_.Row();
  if (!row.IsNull("ORDERS")) return row.Text("ORDERS");
  return "vom " + row.Text("DATUM_NR", "dd.mm.yyyy") + ", " + lblLeistungsart.Caption() + " " +
         row.Text("LEISTUNGSART");
}

void F_Arbeitsauftrag::NameSubject(const std::string& position) {
  SetSubject((isPlan ? "Plan " : "Auftrag ") + headerName +
             (position.empty() ? "" : ", Position " + position));
}

// Each column by itself.
void F_Arbeitsauftrag::SaveHeader() const {
  using enum ColumnWriter::Zero;
  const ColumnWriter head = HeaderWriter();
  head.Date("DATUM", kopfDatum_.Day());
  head.Text("FWJ", txtFWJ.Text());
  head.Number("FORSTAMT", txtForstamt.ListIndex() >= 1 ? txtForstamt.SelectedData() : 0, kIsValue);
  head.Number("PRODUKT_ID", productId);
  head.Text("BESCHREIBUNG", txtBeschreibung.Text());
  if (isPlan) return;
  head.Flag("ABGENSCHLOSEN", chkAbgesch.Checked());
  const bool has_feature = !utf8::Trim(txtSM.Text()).empty();
  head.Number("ID_SONDERMERKMAL", has_feature ? txtSM.Tag() : "", kIsValue);
}

// A call that failed may have left the check of another order.
void F_Arbeitsauftrag::Uncheck() {
  const auto hold = undoing_click_.Hold();
  chkAbgesch.SetChecked(false);
}

// Also raised by reading a closed order, and by putting the check back.
void F_Arbeitsauftrag::ClosedClicked() {
  if (undoing_click_) return;
  switch (chkAbgesch.Value()) {
    case 0:
      if (IsShown() && !Ask(Message(message::kReopenOrder), kBoxYesNo + kBoxWarning)) {
        chkAbgesch.SetChecked(true);
        return;
      }
      WriteClosed(false);
      SetViewState(true);
      return;
    case 1:
      WriteClosed(true);
      CutDownClosed();
      return;
    default:
      AppMsgBox("Debug: F_Arbeitsauftrag.chkAbgesch click - bad parameter");
  }
}

// Closing and reopening do not wait for saving. If the write fails, the check is as it was.
void F_Arbeitsauftrag::WriteClosed(bool closed) {
  try {
    Committed([&] { HeaderWriter().Flag("ABGENSCHLOSEN", closed); });
    closed_ = closed;
  } catch (...) {
    const auto hold = undoing_click_.Hold();
    chkAbgesch.SetChecked(closed_);
    throw;
  }
}

// Read-only unless the head is being edited.
void F_Arbeitsauftrag::EditDescription() {
  std::string text = txtBeschreibung.Text();
  CurrentSuite().Descriptions().EditText(Context(), headerId, !Frame4.Enabled(), HeaderTable(), text);
  txtBeschreibung.SetText(text);
}

}  // namespace tarvoni
