#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// A plan fills what is still empty in the open head and position, and writes nothing.
namespace tarvoni {

namespace sql = work_order_sql;

namespace {

void FillEmpty(TextBox& box, const Field& field, std::string_view format = {}) {
  if (box.Empty()) box.SetText(FieldText(field.Value(), format, CurrentLocale()));
}

// A number counts as empty if it is 0.
void FillEmptyNumber(TextBox& box, const Field& field, std::string_view format) {
  const auto number = ParseNumber(box.Text(), CurrentLocale());
  if (box.Empty() || (number && *number == Decimal()))
    box.SetText(FieldText(field.Value(), format, CurrentLocale()));
}

void FillEmptyCode(CodeField& code, const Field& field) {
  if (!code.Box().Empty()) return;
  FillEmpty(code.Box(), field);
  code.Check();
}

}  // namespace

void F_Arbeitsauftrag::TakePlan() {
  const std::int32_t plan = cmbPlannummer.SelectedData();
  if (suppressEvents || cmbPlannummer.Empty() || plan == 0) return;
  const auto hold = suppressEvents.Hold();
  const Recordset head = Open(sql::PlannedHeader(idPersonal, plan));
  if (!head.EndOfFile()) TakePlannedHeader(head.Fields());
  const Recordset position = Open(sql::PlannedPosition(plan));
  if (position.EndOfFile()) return;
  TakePlannedCodes(position.Fields());
  TakePlannedAmounts(position.Fields());
  TakePlannedRest(position.Fields());
  CalculateTotal();
}

void F_Arbeitsauftrag::TakePlannedHeader(const FieldList& row) {
  FillEmpty(txtFWJ, row["FWJ"]);
  if (txtForstamt.Empty()) FindComboItemData(txtForstamt, ToLong(row["FORSTAMT"].Value()));
  if (txtProduktN.Empty()) {
    productId = ToLong(row["PRODUKT_ID"].Value());
    FillEmpty(txtProduktN, row["PRODUKTN"]);
    txtProdukt.SetText(ToText(row["PRODUKTT"].Value()));
  }
  FillEmpty(txtBeschreibung, row["BESCHREIBUNG"]);
}

void F_Arbeitsauftrag::TakePlannedCodes(const FieldList& row) {
  FillEmpty(txtDatum, row["DATUM_NR"], "dd.mm.yyyy");
  FillEmptyCode(kostenstelle_, row[0]);
  FillEmptyCode(objekt_, row[1]);
  FillEmpty(txtLeistungsartN, row["LEISTUNGSART"]);
  FillEmpty(txtVerfahrenN, row["VERFAHREN"]);
  LookUpActivity();
  verfahren_.Check();
  FillEmptyCode(kostenart_, row[4]);
  if (txtHolzartN.Empty()) ShowSpecies(ToLong(row["HOLZART_ID"].Value()));
  FillEmpty(txtHSGR, row["HSGR"]);
  if (txtWaldort.Empty()) ShowLocation(ToLong(row["WO_ID"].Value()));
}

void F_Arbeitsauftrag::TakePlannedAmounts(const FieldList& row) {
  FillEmptyNumber(txtFlache, row["FLAECHE"], "0.0000");
  FillEmptyNumber(txtMenge, row["MENGE"], "0.00");
  if (txtEinheit.SelectedData() == 0) ShowUnit(ToLong(row["EINH_ID"].Value()));
  FillEmptyNumber(txtKostenE, row["KOSTEN"], "#0.00");
  FillEmptyNumber(txtKosten, row["GESAMT"], "#0.00");
  FillEmptyNumber(txtErlos, row["ERLOS"], "#0.00");
  FillEmptyNumber(txtStunden, row["STUNDEN"], "#0.00");
  FillEmptyNumber(txtMAS, row["MAS"], "#0.00");
}

void F_Arbeitsauftrag::TakePlannedRest(const FieldList& row) {
  if (txtLeistung[0].Empty()) {
    txtLeistung[0].SetTag(ToText(row["LEISTUNG"].Value()));
    FillEmpty(txtLeistung[0], row["RELTABLEKURZNAME"]);
    txtLeistung[1].SetText(ToText(row["RELTABLELANGNAME"].Value()));
  }
  FillEmptyNumber(txtMeter, row["ASTUNG"], "");
  if (!chkZaunsutz.Checked()) chkZaunsutz.SetChecked(ToFlag(row["ZAUNSCHUTZ"].Value()));
  for (std::size_t i = 0; i < kFree; ++i) {
    const std::string number = std::to_string(i + 1);
    FillEmpty(txtTFrei.at(i), row["T_FREI" + number]);
    FillEmpty(txtNFrei.at(i), row["N_FREI" + number]);
  }
}

}  // namespace tarvoni
