#include "src/vouchers/f_belege_new.h"

namespace tarvoni {

layout::Node F_Belege_New::BuildLayout() {
  using namespace layout;
  SetCaption("Belege");
  return Stack(Tabs(SSTab1, Page("Belege", Table(DataGridBelege), LayoutVoucher()),
                    Page("Kostenaufteilung", Table(DataGridKLR), Side(LayoutCodes(), LayoutAmounts()))),
               Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
                   Push(btnSpeichern, "Speichern", Command::kSave),
                   Push(btnAbbrechen, "Bearb. Abbr.", Command::kCancel), Push(btnStorno, "Storno"),
                   Push(btnStornoNew, "Storno+New"), Gap(), Push(btnFind, "Suchen …"), Push(btnHolz, "Holz"),
                   Push(btnNV, "Naturalvollzug"), Gap(), Push(btnOk, "Schließen", Command::kClose)),
               Hidden({&AdodcBelege, &AdodcKLR}));
}

layout::Node F_Belege_New::LayoutVoucher() {
  using namespace layout;
  return Group(
      Frame1, "",
      Side(Stack(Group(frmBeleg, "Beleg", Row(lblDatumBeleg, "Buchungsdatum", Box(txtDatumBeleg, 10)),
                       Row(lblBelegNr, "Nummer", Box(txtBelegNr))),
                 Group(frmHaushalt, "Haushalt",
                       Row(lblKapitel, "Kapitel", Box(txtKapitelN, 6), Shown(txtKapitel)),
                       Row(lblTitel, "Titel", Box(txtTitelN, 6), Shown(txtTitel)),
                       Row(lblHul, "HÜL - Nr.", Box(txtHul, 10)),
                       Row(lblDatumHaus, "Tag d. Anord.", Box(txtDatumHaus, 10)))),
           Stack(Group(frmRechnung, "Rechnung", Row(lblRechnungsNr, "Rechnungsnummer", Box(txtRechnungsNr)),
                       Row(lblDatumRech, "Rechnungsdatum", Box(txtDatumRech, 10)),
                       Row(lblRechnungsBeitrag, "Rechnungbeitrag", Box(txtRechnungsBeitrag, 10),
                           Box(txtValuta2, 6))),
                 Group(frmZuhlung, "Zuhlung",
                       Row(lblZuhlungsart, "Zahlungsart", Box(txtZuhlungsartN, 6), Shown(txtZuhlungsart)),
                       Row(lblZuhlungsgrund, "Zahlungsgrund", Box(txtZuhlungsgrundN, 6),
                           Shown(txtZuhlungsgrund)),
                       Row(lblZuhlungsempanger, "Empfänger", Shown(txtZuhlungsempanger),
                           Push(btnZuhlung, "Wählen …"), Push(btnDeleteMan, "Entfernen"))))));
}

layout::Node F_Belege_New::LayoutCodes() {
  using namespace layout;
  return Group(
      frmData, "Zuordnung", Row(lblProdukt, "Produkt", Box(txtProduktN, 6), Shown(txtProdukt)),
      Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelleN, 6), Shown(txtKostenstelle)),
      Row(lblName, "Auftrag", Box(txtPaN, 6), Shown(txtPA)),
      Row(lblLeistungsart, "Leistsungsart", Box(txtLeistungsartN, 6), Shown(txtLeistungsart)),
      Row(lblKostenart, "Kostenart", Box(txtKostenartN, 6), Shown(txtKostenart)),
      Row(lblSondermerkmal, "Sondermerkmal", Box(txtSondermerkmal[0], 6), Shown(txtSondermerkmal[1])));
}

layout::Node F_Belege_New::LayoutAmounts() {
  using namespace layout;
  return Stack(
      Group(
          frmBetriebs, "Betriebsdaten",
          Row(lblFlache, "Flache", Box(txtFlache, 8), Option(optHa, "pro ha"), Gap()),
          Row(lblMenge, "Menge", Box(txtMenge, 8), Box(txtEinheit, 5), Option(optMenge, "pro Menge"), Gap()),
          Row(lblKosten, "Kosten", Box(txtKosten, 8), Text(lblErlos, "Erlos"), Box(txtErlos, 8),
              Box(txtValuta, 5)),
          Row(lblMehrwertsteuer, "Mehrwertsteuer", Box(txtMehrwertsteuer[0], 6), Shown(txtMehrwertsteuer[1])),
          Row(lblStunden, "Stunden", Box(txtStunden, 8), Text(lblMAS, "MAS"), Box(txtMAS, 8), Gap())),
      Group(frmWaldort, "Lage", Row(lblWaldort, "Waldort", Box(txtWaldort))));
}

}  // namespace tarvoni
