#include "src/piecework/f_est_stucklohn.h"

namespace tarvoni {

layout::Node F_EST_Stucklohn::BuildLayout() {
  using namespace layout;
  constexpr int kPercent = 5, kCode = 8, kLists = 15, kListRows = 6;
  SetCaption("Holzdaten zu EST-Stücklohn");
  const auto percent = [](TextBox& box) { return ShownAmount(box, kPercent); };
  return Stack(
      Side(Stack(
               Side(Group(frmHAB, "HAB", Row("", Shown(txtHAB, kLists), Gap())),
                    Group(frmZuschlagA, "Zuschlag A",
                          Row("", percent(txtZuschlagA), Text(lblPercent, "%"), Gap()))),
               Group(Frame1, "Merkmale",
                     Row(lblESTMerkmal, "EST-Merkmal", Box(txtESTMerkmal[0], kCode), Shown(txtESTMerkmal[1])),
                     Row(lblRindenzustand, "Rindenzustand", Box(txtRindenzustand[0], kCode),
                         Shown(txtRindenzustand[1])),
                     Row(lblVorlieferstufe, "Vorlieferstufe", Box(txtVorlieferstufe[0], kCode),
                         Shown(txtVorlieferstufe[1])),
                     Row(lblDMSchichtholz, "DM (Schichtholz)", Box(txtDMSchichtholz, kCode), Gap()))),
           Group(frmZuordnung, "Zuordnung der HABs",
                 Side(Stack(Text("Frei"), List(listeAll, kListRows, kLists)),
                      Stack(Text(""), Push(cmdAddSel, "Zuordnen"), Push(cmdDelSel, "Freigeben"),
                            Push(cmdAddAll, "Alle zuordnen"), Push(cmdDelAll, "Alle freigeben")),
                      Stack(Text("Zugeordnet"), List(listeSel, kListRows, kLists))),
                 Row(lblAbrechnungsmonat, "Abrechnungsmonat", Box(txtAbrechnungsmonat[1], 3),
                     Shown(txtAbrechnungsmonat[2], 12), Shown(txtAbrechnungsmonat[3], 6), Gap()))),
      Side(Group(frmZuschlagB, "Zuschlag B",
                 Matrix({"", "Fichte", "Tanne", "Kiefer", "Buche", "Eiche"},
                        Row("Arbeiter (%)", percent(txtA_Fichte), percent(txtA_Tanne), percent(txtA_Kiefer),
                            percent(txtA_Buche), percent(txtA_Eiche)),
                        Row("Maschine (%)", percent(txtM_Fichte), percent(txtM_Tanne), percent(txtM_Kiefer),
                            percent(txtM_Buche), percent(txtM_Eiche)))),
           Group(frmKennzeichen, "Kennzeichen", Row("", Check(chkARAUntypisch, "ARA untypisch")),
                 Row("", Check(chkWerkzeuggeld, "Werkzeuggeld"))),
           // Behind the logs, where the Tab key comes first.
           Last(Group(frmSonderzuschlag, "Sonderzuschlag", Table(MSFGSonder, 1)))),
      Table(DataGridEST),
      Bar(Push(btnBearbeiten, "Bearbeiten", Command::kEdit), Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnAbbrechen, "Bearb. abbr.", Command::kCancel), Gap(), Push(btnAusdruck, "Ausdruck"), Gap(),
          Push(btnClose, "Schließen", Command::kClose)),
      Hidden({&AdodcEST}));
}

}  // namespace tarvoni
