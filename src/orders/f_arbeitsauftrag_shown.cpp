#include "src/common/code_in_use.h"
#include "src/common/currency_box.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// The current row of the list in the form.
namespace tarvoni {

namespace sql = work_order_sql;

namespace {

// The code 0 shows as empty.
std::string CodeText(const std::string& number) {
  return number == "0" ? std::string() : number;
}

// A code that may not be chosen any more shows as empty too.
void ShowCode(CodeField& code, const std::string& number) {
  code.Box().SetText(CodeText(number));
  code.Check();
}

}  // namespace

// Area and quantity go in before the work type, whose timber lists may put their sum over them, and unit and basis
// behind it, whose own they then are.
void F_Arbeitsauftrag::ShowPosition() {
  {
    const auto hold = suppressEvents.Hold();
    const CurrentRow row = positions_.Row();
    positionId = row.Number("ID");
    row.Show("DATUM_NR", txtDatum, "dd.mm.yyyy");
    row.Show("FLAECHE", txtFlache, "0.0000");
    row.Show("MENGE", txtMenge, "0.00");
    ShowCodes(row);
    ShowSpecies(row.Number("HOLZART_ID"));
    row.Show("HSGR", txtHSGR);
    ShowLocation(row.Number("WO_ID"));
    ShowAmounts(row);
    ShowFreeFields(row);
    total_worked_from_ = Factors();
  }
  NameSubject(NumberOfPosition());
  SetViewState(true);
}

// The numbers of cost centre, object and cost type stand in columns without a name.
void F_Arbeitsauftrag::ShowCodes(const CurrentRow& row) {
  const int first = isPlan ? 2 : 3;
  ShowCode(kostenstelle_, row.Text(first));
  ShowCode(objekt_, row.Text(first + 1));
  txtLeistungsartN.SetText(CodeText(row.Text("LEISTUNGSART")));
  LookUpActivity();
  FillPlanList();
  if (!isPlan) FindComboText(cmbPlannummer, row.Text("PLANUNG_ID"));
  ShowCode(verfahren_, row.Text("VERFAHREN"));
  ShowCostType(CodeText(row.Text(first + 4)));
  row.ShowCode("SONDERMERKMAL_ID", "SONDERMERKMALNUMMER", "SONDERMERKMALNAME", txtSondermerkmal);
}

// Id and name in one statement: this runs for every row that is shown.
void F_Arbeitsauftrag::ShowCostType(const std::string& number) {
  kostenart_.Clear();
  if (number.empty()) return;
  const Recordset found = Open(CodeInUse("ID,NAME", "KOSTENART", number, idPersonal));
  if (found.EndOfFile()) return;
  const CurrentRow row(found);
  txtKostenartN.SetText(number);
  txtKostenartN.SetTag(row.Text("ID"));
  row.Show("NAME", txtKostenart);
}

void F_Arbeitsauftrag::ShowSpecies(std::int32_t id) {
  txtHolzartN.SetText(id == 0 ? "" : CodeText(ReadText(sql::SpeciesCode(id))));
  holzart_.Check();
}

void F_Arbeitsauftrag::ShowLocation(std::int32_t id) {
  std::int32_t found = id;
  txtWaldort.SetText(id == 0 ? "" : GetWaldortText(found, Context(), true));
  txtWaldort.SetTag(found == 0 ? "" : std::to_string(found));
}

void F_Arbeitsauftrag::ShowAmounts(const CurrentRow& row) {
  ShowUnit(row.Number("EINH_ID"));
  (row.Flag("PRO_MENGE") ? optMenge : optHa).SetValue(true);
  row.Show("KOSTEN", txtKostenE, "#0.00");
  row.Show("GESAMT", txtKosten, "#0.00");
  row.Show("ERLOS", txtErlos, "#0.00");
  ShowCurrency(txtValuta, row.Flag("EURO"), Context());
  row.Show("STUNDEN", txtStunden, "#0.00");
  row.Show("MAS", txtMAS, "#0.00");
  row.ShowCode("LEISTUNG", "RELTABLEKURZNAME", "RELTABLELANGNAME", txtLeistung);
  row.Show("ASTUNG", txtMeter);
  chkZaunsutz.SetChecked(row.Flag("ZAUNSCHUTZ"));
}

void F_Arbeitsauftrag::ShowUnit(std::int32_t unit) {
  if (unit == 0 && txtEinheit.ListCount() > 0)
    txtEinheit.SetListIndex(0);
  else
    FindComboItemData(txtEinheit, unit);
}

void F_Arbeitsauftrag::ShowFreeFields(const CurrentRow& row) {
  for (std::size_t i = 0; i < kFree; ++i) {
    const std::string number = std::to_string(i + 1);
    row.Show("T_FREI" + number, txtTFrei.at(i));
    row.Show("N_FREI" + number, txtNFrei.at(i));
  }
  row.Show("QUELLE", txtQuelle);
}

}  // namespace tarvoni
