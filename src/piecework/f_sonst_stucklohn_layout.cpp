#include "src/piecework/f_sonst_stucklohn.h"

namespace tarvoni {

layout::Node F_Sonst_Stucklohn::BuildLayout() {
  using namespace layout;
  return Stack(
      Group(frmKennzeichen, "Kennzeichen",
            Row(lblLohngrundlage, "Lohngrundlage", Box(txtLohngrundlage[0], 8), Shown(txtLohngrundlage[1]),
                Check(chkWerkzeuggeld, "Werkzeuggeld"), Check(chkARAUntypisch, "ARA untypisch"))),
      Group(frmErfassung, "Erfassung",
            Row(lblHolzart, "Holzart", Box(txtHolzart[0], 8), Shown(txtHolzart[1])),
            Row(lblFlache, "Fläche", Box(txtFlache, 10), Text(lblMengeKLR, "Menge KLR"), Box(txtMenge, 10),
                Shown(txtMengeeinheit[0], 6), Shown(txtMengeeinheit[1])),
            Row(lblMengeLohn, "Menge Lohn", Box(txtMengeLohn, 10), Text(lblMengeeinheitLohn, "Einheit"),
                Box(txtMengeeinheitLohn[0], 6), Shown(txtMengeeinheitLohn[1], 10),
                Text(lblVorgabeMinAZ, "Vorgabe min AZ"), Box(txtVorgabeMinAZ, 9),
                Text(lblVorgabeMinMZ, "Vorgabe min MZ"), Box(txtVorgabeMinMZ, 9), Gap())),
      NaturalGroup(), Table(DataGridLines), ButtonBar(), Hidden({&AdodcLines}));
}

}  // namespace tarvoni
