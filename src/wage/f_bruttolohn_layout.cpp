#include "src/wage/f_bruttolohn.h"

namespace tarvoni {

layout::Node F_Bruttolohn::BuildLayout() {
  using namespace layout;
  SetCaption("Bruttolohn");
  return Stack(
      Side(
          Group(frmStammdaten, "Stammdaten",
                Row(lblForstbetrieb, "Forstbetrieb", Shown(txtForstbetrieb[0], 8), Shown(txtForstbetrieb[1])),
                Row(lblArbeitnehmer, "Arbeitnehmer", Shown(txtArbeitnehmer[0], 8), Shown(txtArbeitnehmer[1])),
                Row(lblBearbeitungsmonat, "Bearbeitungsmonat", Shown(txtBearbeitungsmonat[1], 4),
                    Shown(txtBearbeitungsmonat[2], 10), Text(lblBearbeitungsjahr, "Bearbeitungsjahr"),
                    Shown(txtBearbeitungsmonat[3], 6), Text(lblFWJ, "FWJ"), Box(txtFWJ, 6), Gap())),
          Group(frmVerlohnungs, "Verlohnungs",
                Row(lblVerlohnungs, "Monat", Box(txtVerlohnungs[1], 4), Shown(txtVerlohnungs[2], 10),
                    Box(txtVerlohnungs[3], 6), Gap()))),
      Side(Group(
               frmErfassung, "Erfassung", Row(lblTag, "Tag", Box(txtTag, 4), Gap()),
               Row(lblLohnart, "Lohnart", Box(txtLohnart[0], 10), Shown(txtLohnart[1])),
               Row(lblAuszahlungsmonat, "Auszahlungsmonat", Box(txtAuszahlungsmonat[1], 4),
                   Shown(txtAuszahlungsmonat[2], 10), Box(txtAuszahlungsmonat[3], 6), Gap()),
               Row(lblWert, "Wert", Box(txtWert, 10), Text(lblSatz, "Satz"), ShownAmount(txtSatz, 10), Gap()),
               Row(lblProzentsatz, "Prozent", Box(txtProzentsatz, 10), Text(lblBetrag, "Betrag"),
                   ShownAmount(txtGesamtbetrag, 12), Gap())),
           Group(frmErfassungKLR, "ErfassungKLR",
                 Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelle[0], 8), Shown(txtKostenstelle[1])),
                 Row(lblProduktauftragNr, "Produktauftrag-Nr.", Box(txtProduktauftragNr[0], 8),
                     Shown(txtProduktauftragNr[1])),
                 Row(lblLeistungsart, "Leistsungsart", Box(txtLeistungsart[0], 8), Shown(txtLeistungsart[1])),
                 Row(lblVerfahren, "Verfahren", Box(txtVerfahren[0], 8), Shown(txtVerfahren[1])),
                 Row(lblObjekt, "Objekt", Box(txtObjekt[0], 8), Shown(txtObjekt[1])))),
      Table(DataGridBruttoLohn), Last(Table(MSFlexGrid1, 5)),
      Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
          Push(btnSpeichern[0], "Speichern", Command::kSave),
          Push(btnSpeichern[1], "Speich.+Neu", Command::kSaveAndNew),
          Push(btnAbbrechen, "Abbr.", Command::kCancel), Push(btnLoschen, "Löschen", Command::kDelete), Gap(),
          Push(btnAusdruck, "Ausdruck"), Push(btnClose, "Schließen", Command::kClose)),
      Hidden({&AdodcBruttoLohn}));
}

}  // namespace tarvoni
