#include "src/piecework/f_zeilohn.h"

#include "src/common/box_rules.h"
#include "src/common/messages.h"
#include "src/common/view_switch.h"
#include "src/context/values/number_text.h"
#include "src/piecework/f_zeilohn_sql.h"

namespace tarvoni {

namespace sql = zeilohn_sql;

namespace {

constexpr const char* kShown = "0.00";

}  // namespace

F_Zeilohn::F_Zeilohn()
    : WageLines({.form = "F_Zeilohn",
                 .data = "AdodcZeilohn",
                 .grid = "DataGridZeiLohn",
                 .layout_key = "F_ZEILOHN_DATAGRID",
                 .unit = "txtMengeeinheit",
                 .caption = message::kTimeWage}) {
  ConnectBoxes(*this, TabOnEnter(*this));
  Rules(txtZuchslagA).Number("-##0.00");
  timber_.Pair().Connect(
      {.select = cmdAddSel, .release = cmdDelSel, .select_all = &cmdAddAll, .release_all = &cmdDelAll});
}

SqlText F_Zeilohn::Lines() const {
  return sql::LinesOfOrder(ID_ARA_Kopf_dll);
}

// The lists belong to the order, not to the row: they are read anew when the Screen opens and when editing ends, not
// when the user moves from line to line.
void F_Zeilohn::ShowOrder(const CurrentRow& row) {
  if (btnSpeichern.Enabled()) timber_.Load(Db(), Order());
  txtZuchslagA.SetText(row.IsNull("PROZENTSATZ_MZ") ? FormatNumber(Decimal(), kShown, CurrentLocale())
                                                    : row.Text("PROZENTSATZ_MZ", kShown));
}

void F_Zeilohn::SetViewState(bool view) {
  ViewSwitch({&btnBearbeiten, &btnClose, &AdodcLines, &DataGridLines},
             {&btnSpeichern, &btnAbbrechen, &frmKennzeichen})
      .Set(view);
  const CurrentRow row = Line();
  const bool takes_timber = row.Flag("LEISTUNGSARTALLOW_HOLZ");
  const bool on_line = entry_.IsNew() || HasLine();
  btnNeu.SetEnabled(view && !timber_.HasAssigned());
  btnLoschen.SetEnabled(view && HasLine());
  frmZuordnung.SetEnabled(!view && !on_line && takes_timber);
  frmErfassung.SetEnabled(!view && on_line && !row.Flag("LEISTUNGSARTZL_HAB") && !timber_.HasAssigned());
  frmNaturalvollzug.SetEnabled(!view && row.Flag("LEISTUNGSARTNV_KLR"));
  for (Button* button : {&cmdAddAll, &cmdAddSel, &cmdDelSel, &cmdDelAll}) button->SetEnabled(takes_timber);
  chkWerkzeuggeld.SetEnabled(!MonthClosed());
  SetTextBoxLocked(MonthClosed(), txtZuchslagA);
}

// --- saving ---

void F_Zeilohn::TestOrder() const {
  if (frmZuordnung.Enabled()) timber_.RequireStorable(Db(), Order());
}

void F_Zeilohn::WriteOrder() const {
  ExecuteOnRow(sql::UpdateOrder(ID_ARA_Kopf_dll, {.tool_money = chkWerkzeuggeld.Checked(),
                                                  .unusual = chkARAUntypisch.Checked(),
                                                  .percentage = txtZuchslagA.Text()}));
  if (frmZuordnung.Enabled()) timber_.Store(Db(), Order());
}

SqlText F_Zeilohn::UpdateLine(std::int32_t line) const {
  return sql::UpdateLine(
      line, {.species = txtHolzart[0].Tag(), .area = txtFlache.Text(), .quantity = txtMenge.Text()});
}

}  // namespace tarvoni
