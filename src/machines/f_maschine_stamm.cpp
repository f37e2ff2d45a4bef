#include "src/machines/f_maschine_stamm.h"

#include "src/common/box_rules.h"
#include "src/context/values/number_text.h"
#include "src/machines/f_maschine_stamm_sql.h"

namespace tarvoni {

namespace sql = maschine_stamm_sql;

F_MaschineStamm::F_MaschineStamm()
    : Screen("F_MaschineStamm"),
      groups_{{{"ANS", lblAnschaff, txtAnschaffN, lblAnschaffName, idAnschaff},
               {"EIG", lblEigeneWA, txtEigeneWAN, lblEigeneWANName, idEigeneWA},
               {"ABS", lblAbschreibung, txtAbschreibN, lblAbschreibName, idAbschreib},
               {"UNT", lblUnthernehmen, txtUnternehmenN, lblUnternehmenName, idUnternehmen},
               {"VK", lblVK, txtVKN, lblVKName, idVK},
               {"OI", lbOI, txtOIN, lblOIName, idOI},
               {"STE", lblSteuer, txtSteuerN, lblSteuerName, idSteuer}}} {
  for (const CostGroup& group : groups_) ConnectGroup(group);
  cmdSpeichern.Click = [this] { SaveGroups(); };
  CloseBy(cmdSchliesen);
  cmdSchliesen.SetCausesValidation(false);
}

void F_MaschineStamm::Run(const TvnVar_Dll& tvnvar) {
  Present(tvnvar, [this] {
    for (const CostGroup& group : groups_) LoadGroup(group);
    TellSeveral();
  });
}

void F_MaschineStamm::ConnectGroup(const CostGroup& group) {
  SelectOnFocus(group.code);
  group.code.KeyDown = [this, &code = group.code](int key, int) {
    if (key == kKeyCtrl) PickCostType(code);
  };
  group.code.Validate = [this, &group](bool& cancel) { cancel = !CheckCode(group); };
}

void F_MaschineStamm::LoadGroup(const CostGroup& group) {
  group.kostenart_id = ToInt16(ReadCostType(group.label));
  const SqlText is_cost_type = sql::IsCostType(group.kostenart_id);
  ValueHelper& values = CurrentSuite().Values();
  group.name.SetCaption(values.LookupColumn(Context(), "NAME", "KOSTENART", is_cost_type));
  group.code.SetText(values.LookupColumn(Context(), "NUMBER", "KOSTENART", is_cost_type));
}

// Makes the row of a group that has none yet.
std::int32_t F_MaschineStamm::ReadCostType(const char* label) {
  const Recordset row = Open(sql::CostTypeOfGroup(label));
  if (!row.EndOfFile()) return ToLong(row.Fields()[0].Value());
  Execute(sql::InsertGroup(label));
  return 0;
}

void F_MaschineStamm::PickCostType(TextBox& code) {
  code.SetText(
      CurrentSuite().Lookup().Pick(Context(), sql::OfferedCostTypes(), "KOSTENART", code.Text(), "000"));
}

bool F_MaschineStamm::CheckCode(const CostGroup& group) {
  group.kostenart_id = 0;
  group.name.SetCaption("");
  if (group.code.Empty()) return true;
  const Recordset row = Open(sql::FindCostType(group.code.Text()));
  if (row.EndOfFile()) {
    ReportMissingField(group.caption.Caption(), false, Context());
    SelectActiveText();
    return false;
  }
  group.kostenart_id = ToInt16(ToLong(row.Fields()["ID"].Value()));
  group.name.SetCaption(CurrentSuite().Values().FieldText("NAME", row));
  return true;
}

void F_MaschineStamm::SaveGroups() {
  Committed([this] {
    for (const CostGroup& group : groups_) {
      ReadCostType(group.label);  // for the row it makes
      ExecuteOnRow(sql::SetCostType(group.label, group.kostenart_id));
    }
  });
  TellSeveral();
}

// A group may have more cost types than the one its box shows: saving puts that one in place of all.
void F_MaschineStamm::TellSeveral() {
  std::string several;
  for (const CostGroup& group : groups_) {
    if (!HasRow(Db(), sql::OtherCostTypes(group.label, group.kostenart_id))) continue;
    several += (several.empty() ? "" : ", ") + group.caption.Caption();
  }
  lblMehrere.SetCaption(several.empty() ? "" : "Speichern ersetzt weitere Kostenarten von: " + several);
}

}  // namespace tarvoni
