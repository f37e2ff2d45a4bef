#include "src/stores/f_lager.h"

namespace tarvoni {

layout::Node F_Lager::BuildLayout() {
  using namespace layout;
  SetCaption("Lager");
  return Stack(
      Group(
          Frame4, "",
          Side(Stack(Group(frmHaushalt, "Haushalt",
                           Row(lblKapitel, "Kapitel", Box(txtKapitelN, 10), Shown(txtKapitel)),
                           Row(lblTitel, "Titel", Box(txtTitelN, 10), Shown(txtTitel)),
                           Row(lblHul, "HÜL-Nr.", Box(txtHul, 14), Gap()),
                           Row(lblTag, "Tag d. Anord.", Box(dtpDatumHaus), Gap())),
                     Group(FrmBeleg, "Beleg", Row(lblNummer, "Nummer", Box(txtBelegNr, 16), Gap()),
                           Row(lblBuchDatum, "Buchnungsdatum", Box(dtpDatumBeleg), Gap()))),
               Stack(Group(frmRechnung, "Rechnung",
                           Row(lblRechnummer, "Rechnungsnummer", Box(txtRechnungsNr, 14), Gap()),
                           Row(lblRechDatum, "Rechnungsdatum", Box(dtpDatumRech), Gap()),
                           Row(lblRechnungsBeitrag, "Rechnungsbetrag", Box(txtRechnungsBeitrag, 14),
                               Box(txtValuta, 6), Gap())),
                     Group(frmZuhlung, "Zahlung",
                           Row(lblZuhlungsart, "Zahlungsart", Box(txtZuhlungsartN, 7), Shown(txtZuhlungsart)),
                           Row(lblZuhlungsgrund, "Zahlungsgrund", Box(txtZuhlungsgrundN, 7),
                               Shown(txtZuhlungsgrund)),
                           Row(lblZuhlungsempanger, "Zahlungsempänger", Shown(txtZuhlungsemp, 7),
                               Shown(txtZuhlungsempanger)),
                           Row("", Push(btnZuhlung, "Wählen"), Push(btnDeleteMan, "Entfernen"), Gap()))))),
      Group(Frame1, "", Table(DataGrid1)),
      Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
          Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnAbbrechen, "Bearb. Abbr.", Command::kCancel), Push(btnLoschen, "Löschen", Command::kDelete),
          Gap(), Push(btnPositionen, "Positionen"), Gap(), Push(btnOk, "Schließen", Command::kClose)),
      Hidden({&Data1, &Timer1}));
}

}  // namespace tarvoni
