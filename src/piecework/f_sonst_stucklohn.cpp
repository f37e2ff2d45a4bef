#include "src/piecework/f_sonst_stucklohn.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/view_switch.h"
#include "src/piecework/f_sonst_stucklohn_sql.h"

namespace tarvoni {

namespace sql = sonst_stucklohn_sql;

namespace {

constexpr const char* kShown = "0.00";

NamedValues NoValues() {
  return {};
}

}  // namespace

F_Sonst_Stucklohn::F_Sonst_Stucklohn()
    : WageLines({.form = "F_Sonst_Stucklohn",
                 .data = "AdodcSonstStucklohn",
                 .grid = "DataGridSonstStucklohn",
                 .layout_key = "F_SONST_STUCKLOHN",
                 .unit = "txtMengeeinheitKLR",
                 .caption = message::kOtherPiecework}),
      wage_basis_(Context(), IsLoading, txtLohngrundlage[0], &txtLohngrundlage[1],
                  NamedCode(Context(), txtLohngrundlage[0], lblLohngrundlage, "LOHNGRUND", "LONG", NoValues)),
      wage_unit_(Context(), IsLoading, txtMengeeinheitLohn[0], &txtMengeeinheitLohn[1],
                 NamedCode(Context(), txtMengeeinheitLohn[0], lblMengeeinheitLohn, "WARENEINHEIT", "LONG",
                           NoValues)) {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtLohngrundlage[0]).Code(wage_basis_);
  Rules(txtMengeeinheitLohn[0]).Code(wage_unit_);
  for (TextBox* box : {&txtMengeLohn, &txtVorgabeMinAZ, &txtVorgabeMinMZ}) Rules(*box).Number("-####0.00");
}

SqlText F_Sonst_Stucklohn::Lines() const {
  return sql::LinesOfOrder(ID_ARA_Kopf_dll);
}

std::vector<ShownColumn> F_Sonst_Stucklohn::FurtherColumns() const {
  return {{.data_field = "HOLZARTHA", .caption = lblHolzart.Caption(), .width = 1000}};
}

void F_Sonst_Stucklohn::ShowOrder(const CurrentRow& row) {
  row.ShowCode("ID_LOHNGRUND", "LOHNGRUNDSHORT", "LOHNGRUNDLONG", txtLohngrundlage);
}

void F_Sonst_Stucklohn::ShowFurther(const CurrentRow& row) {
  row.Show("MENGELOHN", txtMengeLohn, kShown);
  row.ShowCode("ID_WARENEINHEITLOHN", "WARENEINHEITLOHNEINHEIT", "WARENEINHEITLOHNBESCHREIBUNG",
               txtMengeeinheitLohn);
  row.Show("AZ", txtVorgabeMinAZ, kShown);
  row.Show("MZ", txtVorgabeMinMZ, kShown);
}

void F_Sonst_Stucklohn::ClearFurther() {
  wage_unit_.Clear();
  for (TextBox* box : {&txtMengeLohn, &txtVorgabeMinAZ, &txtVorgabeMinMZ}) box->SetText("");
}

// A closed month freezes what the wage rests on; the rest of a line stays open.
void F_Sonst_Stucklohn::SetViewState(bool view) {
  ViewSwitch({&btnBearbeiten, &btnClose, &AdodcLines, &DataGridLines},
             {&btnSpeichern, &btnAbbrechen, &frmKennzeichen})
      .Set(view);
  const bool closed = MonthClosed();
  btnNeu.SetEnabled(view && !closed);
  btnLoschen.SetEnabled(view && HasLine() && !closed);
  frmErfassung.SetEnabled(!view && (entry_.IsNew() || HasLine()));
  frmNaturalvollzug.SetEnabled(!view && Line().Flag("LEISTUNGSARTNV_KLR"));
  chkWerkzeuggeld.SetEnabled(!closed);
  for (TextBox* box : {&txtMengeLohn, &txtMengeeinheitLohn[0], &txtVorgabeMinAZ, &txtVorgabeMinMZ}) {
    SetTextBoxLocked(closed, *box);
  }
}

// --- saving ---

void F_Sonst_Stucklohn::WriteOrder() const {
  ExecuteOnRow(sql::UpdateOrder(ID_ARA_Kopf_dll, {.tool_money = chkWerkzeuggeld.Checked(),
                                                  .unusual = chkARAUntypisch.Checked(),
                                                  .wage_basis = txtLohngrundlage[0].Tag()}));
}

SqlText F_Sonst_Stucklohn::UpdateLine(std::int32_t line) const {
  return sql::UpdateLine(line, {.species = txtHolzart[0].Tag(),
                                .area = txtFlache.Text(),
                                .quantity = txtMenge.Text(),
                                .wage_quantity = txtMengeLohn.Text(),
                                .wage_unit = txtMengeeinheitLohn[0].Tag(),
                                .minutes_worker = txtVorgabeMinAZ.Text(),
                                .minutes_machine = txtVorgabeMinMZ.Text()});
}

}  // namespace tarvoni
