#include <array>

#include "src/common/currency_box.h"
#include "src/common/messages.h"
#include "src/common/page_focus.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// Saving a position, column by column, and the head with it, in one commit.
namespace tarvoni {

namespace sql = work_order_sql;
using enum ColumnWriter::Zero;

void F_Arbeitsauftrag::Save() {
  if (!EntryComplete() || !AmountsFit()) return;
  RequireWritable();
  if (!StillOpen()) return;
  positionId = Committed([this] { return WritePosition(); });
  isNewPosition = false;
  SetFrames(false);
  ReloadPositions();
  NameSubject(NumberOfPosition());
  ShowSum();
  SetViewState(true);
  FocusList();
}

// A plan asks for the special feature of its head too, although it has none.
bool F_Arbeitsauftrag::EntryComplete() {
  return RequireGiven(!txtSM.Empty(), txtSM) && RequireGiven(!txtForstamt.Empty(), txtForstamt) &&
         RequireGiven(!txtLeistungsartN.Empty(), txtLeistungsartN) &&
         RequireGiven(!txtVerfahrenN.Empty(), txtVerfahrenN) &&
         RequireGiven(!txtKostenartN.Empty(), txtKostenartN) &&
         RequireGiven(!txtSondermerkmal[0].Tag().empty(), txtSondermerkmal[0]);
}

bool F_Arbeitsauftrag::RequireGiven(bool given, Control& field) {
  if (given) return true;
  AppMsgBox(Message(message::kEntryMissing), kBoxWarning);
  FocusOnPage(field);
  return false;
}

// Amounts beyond their columns would be refused one by one, behind what was written already.
bool F_Arbeitsauftrag::AmountsFit() {
  struct Limit {
    TextBox& box;
    const Label& label;
    int digits;  // before the separator
  };
  const std::array limits = {Limit{txtFlache, lblFlache, 8},    Limit{txtMenge, lblMenge, 8},
                             Limit{txtStunden, lblStunden, 8},  Limit{txtMAS, lblMAS, 8},
                             Limit{txtKostenE, lblKostenE, 14}, Limit{txtKosten, lblKosten, 14},
                             Limit{txtErlos, lblErlose, 14},    Limit{txtMeter, lblMeter, 7}};
  for (const Limit& limit : limits) {
    if (utf8::Trim(limit.box.Text()).empty()) continue;
    const Decimal bound(PowerOfTen(limit.digits), 0), below(-PowerOfTen(limit.digits), 0);
    const auto number = ParseNumber(limit.box.Text(), CurrentLocale());
    if (number && *number<bound&& * number> below) continue;
    FocusOnPage(limit.box);
    return Require(false, limit.label, limit.box);
  }
  return true;
}

// A text with a quote is an error before anything is written.
void F_Arbeitsauftrag::RequireWritable() const {
  for (const TextBox* box : {&txtFWJ, &txtBeschreibung, &txtHSGR, &txtPlanung_Lang})
    (void)TextOrNull(box->Text());
  (void)TextOrNull(cmbPlannummer.Text());
  for (std::size_t i = 0; i < kFree; ++i) {
    (void)TextOrNull(txtTFrei.at(i).Text());
    (void)TextOrNull(txtNFrei.at(i).Text());
  }
}

// If a new row cannot be filled it is taken away again.
std::int32_t F_Arbeitsauftrag::WritePosition() {
  const std::int32_t position = isNewPosition ? InsertPosition() : positionId;
  const auto write = [&] {
    WriteFields(position);
    SaveHeader();
  };
  if (isNewPosition)
    OrUndo(write, sql::DeletePosition(PositionTable(), position));
  else
    write();
  return position;
}

std::int32_t F_Arbeitsauftrag::InsertPosition() {
  if (isPlan) {
    Execute(sql::InsertPlanPosition(headerId));
  } else {
    const Value orders = ReadValue(Db(), sql::NextOrders(headerId));
    Execute(sql::InsertPosition(headerId, IsNull(orders) ? 1 : ToLong(orders)));
  }
  return ReadNumber(sql::NewestPosition(PositionTable()));
}

void F_Arbeitsauftrag::WriteFields(std::int32_t position) const {
  const ColumnWriter writer(Context(), PositionTable(), position);
  writer.Date("DATUM_NR", datum_.Day());
  WriteCodes(writer);
  WriteAmounts(writer);
  WriteFreeFields(writer);
}

void F_Arbeitsauftrag::WriteCodes(const ColumnWriter& position) const {
  position.Number("LEISTUNGSART_ID", activityId_);
  position.Number("VERFAHREN_ID", txtVerfahrenN.Tag());
  position.Number("KOSTENART_ID", txtKostenartN.Tag());
  position.Number("KOSTENSTELLE_ID", txtKostenstelleN.Tag());
  position.Number("OBJEKT_ID", txtObjektN.Tag());
  position.Number("SONDERMERKMAL_ID", txtSondermerkmal[0].Tag());
  position.Text("HSGR", txtHSGR.Text());
  position.Number("HOLZART_ID", txtHolzartN.Tag());
  position.Number("WO_ID", txtWaldort.Tag());
}

// ERLOS is written twice.
void F_Arbeitsauftrag::WriteAmounts(const ColumnWriter& position) const {
  position.Number("FLAECHE", txtFlache.Text(), kIsValue);
  position.Number("MENGE", txtMenge.Text(), kIsValue);
  position.Number("GESAMT", txtKosten.Text(), kIsValue);
  position.Number("ERLOS", txtErlos.Text(), kIsValue);
  position.Number("STUNDEN", txtStunden.Text(), kIsValue);
  position.Number("MAS", txtMAS.Text(), kIsValue);
  position.Number("EINH_ID", txtEinheit.SelectedData());
  position.Number("KOSTEN", txtKostenE.Text(), kIsValue);
  position.Number("ERLOS", txtErlos.Text(), kIsValue);
  position.Flag("EURO", IsEuro(txtValuta));
}

void F_Arbeitsauftrag::WriteFreeFields(const ColumnWriter& position) const {
  for (std::size_t i = 0; i < kFree; ++i)
    position.Text("T_FREI" + std::to_string(i + 1), txtTFrei.at(i).Text());
  for (std::size_t i = 0; i < kFree; ++i)
    position.Text("N_FREI" + std::to_string(i + 1), txtNFrei.at(i).Text());
  const std::string_view meters = utf8::Trim(txtMeter.Text());
  position.Number("ASTUNG", meters.empty() ? "0" : meters, kIsValue);
  position.Number("LEISTUNG", txtLeistung[0].Tag());
  if (isPlan)
    HeaderWriter().Text("PLANUNG_LANG", txtPlanung_Lang.Text());
  else
    position.Text("PLANUNG_ID", cmbPlannummer.Text());
  position.Flag("ZAUNSCHUTZ", chkZaunsutz.Checked());
}

}  // namespace tarvoni
