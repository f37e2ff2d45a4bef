#include "src/wage/f_arbeitnehmer.h"

namespace tarvoni {

layout::Node F_Arbeitnehmer::BuildLayout() {
  using namespace layout;
  SetCaption("Arbeitnehmer");
  return Stack(
      Group(frmErfassung, "Erfassung",
            Row(lblBearbeitungsmonat, "Bearbeitungsmonat", Box(txtBearbeitungsmonat[1], 4),
                Shown(txtBearbeitungsmonat[2], 12), Box(txtBearbeitungsmonat[3], 6), Gap()),
            Row(lblVerlohnungs, "Verlohnungs (-Tag) -Monat", Box(txtVerlohnungs[0], 4),
                Box(txtVerlohnungs[1], 4), Shown(txtVerlohnungs[2], 12), Box(txtVerlohnungs[3], 6), Gap()),
            Row(lblPersonalnummer, "Personalnummer", Box(txtPersonalnummer[0], 12),
                Shown(txtPersonalnummer[1])),
            Row(lblLohnart, "Lohnart", Box(txtLohnart[0], 12), Shown(txtLohnart[1])),
            Row(lblAuszahlungsmonat, "Auszahlungsmonat", Box(txtAuszahlungsmonat[1], 4),
                Shown(txtAuszahlungsmonat[2], 12), Box(txtAuszahlungsmonat[3], 6), Gap()),
            Row(lblStunden, "Stunden", Box(txtStunden, 12), Text(lblSatz, "Satz"), ShownAmount(txtSatz, 12),
                Text(lblProzentsatz, "Prozentsatz"), Box(txtProzentsatz, 10),
                Text(lblGesamtbetrag, "Gesamtbetrag"), ShownAmount(txtGesamtbetrag, 12), Gap())),
      Table(DataGridArbeitnehmer),
      Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
          Push(btnSpeichern[0], "Speichern", Command::kSave),
          Push(btnSpeichern[1], "Speich.+Neu", Command::kSaveAndNew),
          Push(btnAbbrechen, "Abbr.", Command::kCancel), Push(btnLoschen, "Löschen", Command::kDelete), Gap(),
          Push(btnClose, "Schließen", Command::kClose)),
      Hidden({&AdodcArbeitnehmer}));
}

}  // namespace tarvoni
