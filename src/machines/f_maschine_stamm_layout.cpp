#include "src/machines/f_maschine_stamm.h"

namespace tarvoni {

layout::Node F_MaschineStamm::BuildLayout() {
  using namespace layout;
  SetCaption("Maschine-Stammdaten");
  SetSubject("Kostenarten der Maschinen");
  return Stack(
      Group(frmKosten, "", Row("", Text(lblKostenart, "Kostenart")),
            Row(lblAnschaff, "Anschaffungskosten", Box(txtAnschaffN, 8), Box(lblAnschaffName, 40)),
            Row(lblAbschreibung, "Summe-Abschreibung", Box(txtAbschreibN, 8), Box(lblAbschreibName, 40)),
            Row(lblSumme_Reparaturen, "Summe-Reparaturen"),
            Row(lblEigeneWA, "Eigene WA", Box(txtEigeneWAN, 8), Box(lblEigeneWANName, 40)),
            Row(lblUnthernehmen, "Unternehmen", Box(txtUnternehmenN, 8), Box(lblUnternehmenName, 40)),
            Row(lblSumme_Verbrau, "Summe-Verbrauchst."), Row(lblVK, "", Box(txtVKN, 8), Box(lblVKName, 40)),
            Row(lbOI, "", Box(txtOIN, 8), Box(lblOIName, 40)),
            Row(lblSteuer, "Steuer", Box(txtSteuerN, 8), Box(lblSteuerName, 40)),
            Row("", Text(lblMehrere, ""))),
      Bar(Gap(), Push(cmdSpeichern, "&Speichern", Command::kSave),
          Push(cmdSchliesen, "&Schließen", Command::kClose)));
}

}  // namespace tarvoni
