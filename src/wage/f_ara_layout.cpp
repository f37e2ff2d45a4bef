#include "src/wage/f_ara.h"

namespace tarvoni {

layout::Node F_ARA::BuildLayout() {
  using namespace layout;
  constexpr const char* kNotStored =
      "wird nicht gespeichert";  // but summed up from what lies behind "Vorgaben"
  SetCaption("Arbeitsaufträge");
  return Stack(
      Side(Group(frmArbeitsauftrag, "Arbeitsauftrag",
                 Row(lblForstbetrieb, "Forstbetrieb", Shown(txtForstbetrieb, 8), Text(lblFWJ, "FWJ"),
                     Shown(txtFWJ, 5), Gap()),
                 Row(lblArbeitsauftrag, "Arbeitsauftrag", Box(txtArbeitsauftrag, 8),
                     Text(lblErstellungsDatum, "Erstellungsdatum"), Shown(txtErstellungsDatum, 11), Gap()),
                 Row(lblLeistung, "Leistung", Box(txtLeistung[0], 8), Shown(txtLeistung[1])),
                 Row(lblRotte, "Rotte", Box(txtRotte[0], 8), Shown(txtRotte[1]))),
           Group(frmZuordnungPA, "Zuordnung Produktauftrag",
                 Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelle[0], 8), Shown(txtKostenstelle[1])),
                 Row(lblProduktauftragNr, "Produktauftrag-Nr.", Box(txtProduktauftragNr[0], 8),
                     Shown(txtProduktauftragNr[1])),
                 Row(lblLeistungsart, "Leistsungsart", Box(txtLeistungsart[0], 8), Shown(txtLeistungsart[1])),
                 Row(lblWaldort, "Waldort", Box(txtWaldort)))),
      Side(
          Group(frmBeschreibung_der_Arbeit, "Beschreibung der Arbeit", Lines(txtBegrundung_der_Anordnung, 3)),
          Group(frmSummen, "Summen",
                Side(Stack(Row(lblFlache, "Flache", Box(txtFlache, 12), Text(lblFlacheHinweis, kNotStored),
                               Gap()),
                           Row(lblMenge, "Menge", Box(txtMenge, 12), Shown(txtMengeEinhait, 6),
                               Text(lblMengeHinweis, kNotStored), Gap())),
                     Stack(Row(lblStunden_dir_Lohn, "Stunden direkter Lohn",
                               ShownAmount(txtStunden_dir_Lohn, 12)),
                           Row(lblGesamtKosten, "Gesamtkosten", Box(txtGesamtKosten, 12)))))),
      // Behind the buttons: a changed selection reads the list anew, and with it what is being edited.
      Last(Group(frmSelektion, "Selektion",
                 Side(Stack(Row(lblKostenstelleSel, "Kostenstelle", Box(txtKostenstelleSel[0], 8),
                                Shown(txtKostenstelleSel[1]))),
                      Stack(Row(lblLeistungsartSel, "Leistsungsart", Box(txtLeistungsartSel[0], 8),
                                Shown(txtLeistungsartSel[1])))))),
      Table(DataGridArbeitsauftrag),
      Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
          Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnSpeichernNew, "Speichern+Neu", Command::kSaveAndNew),
          Push(btnAbbrechen, "Bearb. Abbr.", Command::kCancel), Push(btnStorno, "Storno"),
          Push(btnStornoNew, "Storno+New"), Gap(), Push(btnVorgaben, "Vorgaben"), Push(btnStunden, "Stunden"),
          Gap(), Push(btnClose, "Schließen", Command::kClose)),
      Hidden({&AdodcArbeitsauftrag}));
}

}  // namespace tarvoni
