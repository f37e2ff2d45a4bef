#include "src/machines/f_maschinenbuch.h"

namespace tarvoni {

layout::Node F_Maschinenbuch::BuildLayout() {
  using namespace layout;
  constexpr const char* kNotStored = "wird nicht gespeichert";
  const auto line = [](Label& label, const char* caption, TextBox& numbers, Node sum, Node hint) {
    return Row(label, caption, Shown(numbers, 16), std::move(sum), std::move(hint));
  };
  const auto booked = [&line](Label& label, const char* caption, TextBox& numbers, TextBox& sum) {
    return line(label, caption, numbers, ShownAmount(sum, 12), Gap());
  };
  SetCaption("Maschinenbuchführung");
  return Stack(
      Group(frmKopf, "Maschinendaten",
            Side(Stack(Row(lblNummer, "Nummer", Shown(txtNummer, 12), Gap()),
                       Row(lblBezeichnung, "Bezeichnung", Box(txtBezeichnung)),
                       Row(lblAnschaffjahr, "Anschaffungsjahr", Box(txtAnschaffjahr, 6), Gap()),
                       Row(lblNutzungs, "Nutzungsdauer", Box(txtNutzungs, 8), Text("Jahre"), Gap())),
                 Stack(Row(lblFahrgestellnumer, "Fahrgestellnumer", Box(txtFahrgestellnumer)),
                       Row(lblPolizeiliches, "Polizeiliches Kennz.", Box(txtPolizeiliches, 14), Gap()),
                       Row(lblObjekt, "Objekt", Box(txtObjektN, 10), Shown(txtObjekt)),
                       Row(lblMaschinenstunden, "Maschinenstunden", Box(txtMaschinenstunden, 10),
                           Text(lblStundenHinweis, kNotStored), Gap())))),
      Tabs(SSTab1,
           Page("Kosten",
                Side(Group(frmKosten, "Kosten",
                           Matrix({"", "Kostenarten", "Summe", ""},
                                  line(lblAnschaff, "Anschaffungskosten", txtAnschaff, Box(txtAnschaffS, 12),
                                       Text(lblAnschaffHinweis, kNotStored)),
                                  booked(lblAbschreibung, "Summe-Abschreibung", txtAbschreib, txtAbschreibS),
                                  booked(lblEigeneWA, "Eigene WA", txtEigeneWA, txtEigeneWAS),
                                  booked(lblUnternehmen, "Unternehmen", txtUnternehmen, txtUnternehmenS),
                                  booked(lblVK, "", txtVK, txtVKS), booked(lbOI, "", txtOI, txtOIS),
                                  line(lblSteuer, "Steuer", txtSteuer, Box(txtSteuerS, 12),
                                       Text(lblSteuerHinweis, kNotStored)))),
                     Group(frmKennzahlen, "Kennzahlen",
                           Row(lblAbschreibungssatz, "Abschreibungssatz",
                               ShownAmount(txtAbschreibungssatz, 12), Text("je Jahr")),
                           Row(lblMaschinenwert, "Maschinenwert", ShownAmount(txtMaschinenwert, 12), Gap()),
                           Row(lblBetriebskosten, "Betriebskosten", ShownAmount(txtBetriebskosten, 12),
                               Gap())))),
           Page("Lebenslauf", Table(DataLebenslauf))),
      Bar(Gap(), Push(cmdSpeichern, "Speichern", Command::kSave),
          Push(cmdSchliesen, "&Schließen", Command::kClose)),
      Hidden({&Data1}));
}

}  // namespace tarvoni
