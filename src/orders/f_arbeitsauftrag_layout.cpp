#include "src/orders/f_arbeitsauftrag_surface.h"

namespace tarvoni {

// The list stands below the pages of the form, so that both are seen together. Outside of the frames stand the controls
// that are open while nothing is being edited.
layout::Node ArbeitsauftragSurface::BuildLayout() {
  using namespace layout;
  SetCaption("Arbeitsauftrag");
  return Stack(
      LayoutHead(),
      Row(lblBeschreibung, "Beschreibung", Shown(txtBeschreibung), Push(btnBeschreibung, "Beschreibung …")),
      Tabs(SSTab1, Page("Position", Side(LayoutCodes(), LayoutAmounts())),
           Page("Waldort, Holz und freie Felder", Side(LayoutTimber(), LayoutFreeFields()))),
      Row(lblPlanung_Lang, "Plantext", Lines(txtPlanung_Lang, 18)), Table(DataGrid1),
      Row("", Check(chkAbgesch, "Abgeschlossen"), Gap(), Text(lblGesamtSumme, "Gesamtsumme"),
          ShownAmount(txtGesamtSumme, 14), Box(lblGesamtSummeEuro, 4)),
      Bar(Push(btnNeu, "Neu", Command::kNew), Push(btnBearbeiten, "Bearbeiten", Command::kEdit),
          Push(btnSpeichern, "Speichern", Command::kSave),
          Push(btnAbbrechen, "Bearb. Abbr.", Command::kCancel), Push(btnLoschen, "Löschen", Command::kDelete),
          Gap(), Push(cmdHolz, "Holzlisten"), Push(btnNV, "Naturalvollzug"),
          Push(btnBelege, "Belege buchen..."), Push(btnAuftrag, "Auftragsabrechnung"), Gap(),
          Push(btnOk, "Schließen", Command::kClose)),
      Hidden({&Data1, &Timer1}));
}

layout::Node ArbeitsauftragSurface::LayoutHead() {
  using namespace layout;
  return Group(Frame4, "Arbeitsauftrag-Kopf",
               Side(Stack(Row(lblDatum, "Datum", Box(txtKopfDatum, 10), Text(lblFWJ, "FWJ"), Box(txtFWJ, 5),
                              Text(lblForstamt, "Forstamt"), Box(txtForstamt, 12), Gap()),
                          Row(lblProdukt, "Produkt", Box(txtProduktN, 6), Shown(txtProdukt),
                              Text(lblSM, "Sondermerkmal"), Box(txtSM, 5))),
                    Group(Frame13, "Plannummer", Row("", Box(cmbPlannummer, 14)))));
}

layout::Node ArbeitsauftragSurface::LayoutCodes() {
  using namespace layout;
  return Group(
      Frame3, "Kostenposition",
      Row(lblDatumNr, "Datum", Box(txtDatum, 10), Gap(), Text(lblQuelle, "Quelle"), Shown(txtQuelle, 4)),
      Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelleN, 7), Shown(txtKostenstelle)),
      Row(lblObjekt, "Objekt", Box(txtObjektN, 7), Shown(txtObjekt)),
      Row(lblLeistungsart, "Leistsungsart", Box(txtLeistungsartN, 7), Shown(txtLeistungsart)),
      Row(lblVerfahren, "Verfahren", Box(txtVerfahrenN, 7), Shown(txtVerfahren)),
      Row(lblKostenart, "Kostenart", Box(txtKostenartN, 7), Shown(txtKostenart)),
      Row(lblSondermerkmal, "Sondermerkmal", Box(txtSondermerkmal[0], 7), Shown(txtSondermerkmal[1])));
}

layout::Node ArbeitsauftragSurface::LayoutAmounts() {
  using namespace layout;
  return Group(
      frmBetriebs, "Betriebsdaten", Row(lblFlache, "Flache", Box(txtFlache, 11), Text(lblHa, "ha"), Gap()),
      Row(lblMenge, "Menge", Box(txtMenge, 11), Box(txtEinheit, 7), Gap()),
      Row(lblKostenE, "KostenE", Box(txtKostenE, 11), Option(optMenge, "pro Menge"), Option(optHa, "pro ha"),
          Gap()),
      Row(lblKosten, "Kosten", Box(txtKosten, 11), Box(lblValuta, 4), Gap()),
      Row(lblErlose, "Erlös", Box(txtErlos, 11), Text(lblWaehrung, "Währung"), Box(txtValuta, 6), Gap()),
      Row(lblStunden, "Stunden", Box(txtStunden, 11), Text(lblMAS, "MAS"), Box(txtMAS, 11), Gap()),
      Row(lblLeistung, "Kennzeichen Leistung", Box(txtLeistung[0], 6), Shown(txtLeistung[1], 15)));
}

layout::Node ArbeitsauftragSurface::LayoutTimber() {
  using namespace layout;
  return Group(frmWaldort, "Waldort und Holz", Row(lblWaldort, "Waldort", Box(txtWaldort)),
               Row(lblHolzart, "Holzart", Box(txtHolzartN, 7), Shown(txtHolzart)),
               Row(lblHSGR, "Holzsortengruppe", Box(txtHSGR, 7), Gap()),
               Group(Frame9, "Astung / Zaunschutz",
                     Row(lblMeter, "Astung", Box(txtMeter, 11), Text(lblM, "m"), Gap(),
                         Check(chkZaunsutz, "Zaunschutz"))));
}

layout::Node ArbeitsauftragSurface::LayoutFreeFields() {
  using namespace layout;
  Node texts{.kind = Kind::kStack}, numbers{.kind = Kind::kStack};
  for (std::size_t i = 0; i < kFree; ++i) {
    const std::string number = std::to_string(i + 1);
    texts.children.push_back(Row(lblTFrei.at(i), "T- Frei " + number, Box(txtTFrei.at(i))));
    numbers.children.push_back(Row(lblNFrei.at(i), "N - Frei " + number, Box(txtNFrei.at(i), 12)));
  }
  return Group(Frame6, "Freie Felder", Side(std::move(texts), std::move(numbers)));
}

}  // namespace tarvoni
