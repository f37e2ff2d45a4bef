#include "src/stores/f_positionen.h"

namespace tarvoni {

layout::Node F_Positionen::BuildLayout() {
  using namespace layout;
  SetCaption("Lagerpositionen");
  lblValuta.SetCaption("EUR");
  return Stack(
      Group(Frame1, "",
            Side(Group(frmKostenE, "Kosten pro Mengeneinheit", Row("", Box(txtKostenE, 12), Gap())),
                 Group(frmMenge, "Menge", Row("", Box(txtMenge, 10), Box(txtEinheit, 6), Gap())),
                 Group(frmKosten, "Gesamt kosten", Row("", Box(txtKosten, 12), Box(txtValuta, 6), Gap())),
                 Group(frmLagerstand, "Lagerstand", Row("", ShownAmount(txtLagerstand, 10), Gap()))),
            Group(frmBezeichnung, "Bezeichnung (Artikel)", Row("", Box(txtBezeichnung, 60), Gap()))),
      Table(DataGrid1, 4),
      Side(Push(btnNeu[0], "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
           Push(btnSpeichern[0], "Speichern", Command::kSave),
           Push(btnAbbrechen[0], "Bearb. Abbr.", Command::kCancel),
           Push(btnLoschen, "Löschen", Command::kDelete), Push(cmdSet, "Se&t"), Gap()),
      Group(frmKLR, "KLR-Zuordnung",
            Group(frmKLR_Data, "",
                  Side(Stack(Row(lblBelegNr, "Beleg-Nr", Box(txtBelegNr, 12), Gap()),
                             Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelle, 8),
                                 Shown(txtKostenstelleName)),
                             Row(lblAA_Name, "Produktauftrag", Box(txtProduktauftragNr, 8),
                                 Shown(txtProduktauftragName)),
                             Row(lblLeistungsart, "Leistsungsart", Box(txtLeistungsart, 8),
                                 Shown(txtLeistungsartName)),
                             Row(lblArbeitsverfahren, "Arbeitsverfahren", Box(txtArbeitsverfahren, 8),
                                 Shown(txtArbeitsverfahrenName)),
                             Row(lblObjekt, "Objekt", Box(txtObjekt, 8), Shown(txtObjektName))),
                       Stack(Row(lblKostenart, "Kostenart", Box(txtKostenart, 8), Shown(txtKostenartName)),
                             Row(lblWaldort, "Waldort", Box(txtWaldort)),
                             Row(lblMenge_KLR, "Menge_KLR", Box(txtMenge_KLR, 12),
                                 Shown(txtMengeEinhait_KLR, 6), Gap()),
                             Row(lblLagerMengeAusbuchen, "LagerMenge ausbuchen",
                                 Box(txtLagerMengeAusbuchen, 12), Gap()),
                             Row(lblGesamtKosten, "Gesamtkosten", Box(txtGesamtKosten, 12), Gap())))),
            Table(dataGrid_KLR)),
      Bar(Push(btnNeu[1], "Neu"), Push(btnSpeichern[1], "Speichern", Command::kSave),
          Push(btnAbbrechen[1], "Bearb. Abbr.", Command::kCancel), Push(btnStorno, "Storno"),
          Push(btnStornoNeu, "Storno+Neu"), Gap(), Push(btnOk, "Schließen", Command::kClose)),
      Hidden({&Data1, &Adodc_KLR, &lblValuta}));
}

}  // namespace tarvoni
