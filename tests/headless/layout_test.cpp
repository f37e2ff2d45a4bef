#include "src/context/controls/layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "src/context/controls/form.h"

namespace tarvoni {
namespace {

using namespace layout;
using testing::ElementsAre;

// A small Screen without a list: seven rows of code and name under column titles.
struct SmallScreen : Form {
  SmallScreen() : Form("F_MaschineStamm") { Load(); }
  Node BuildLayout() override {
    return Stack(
        Group(frmKosten, "",  //
              Matrix({"", "Kostenart", ""},
                     Row(lblAnschaff, "Anschaffungskosten", Box(txtAnschaffN, 8), Box(lblAnschaffName)),
                     Row(lblSteuer, "Steuer", Box(txtSteuerN, 8), Box(lblSteuerName)))),
        Bar(Push(cmdSpeichern, "&Speichern"), Gap(), Push(cmdSchliesen, "&Schließen")));
  }
  Button cmdSchliesen{*this, "cmdSchliesen"};
  Button cmdSpeichern{*this, "cmdSpeichern"};
  Frame frmKosten{*this, "frmKosten"};
  TextBox txtSteuerN{*this, "txtSteuerN"};
  TextBox txtAnschaffN{*this, "txtAnschaffN"};
  Label lblAnschaff{*this, "lblAnschaff"};
  Label lblSteuer{*this, "lblSteuer"};
  Label lblAnschaffName{*this, "lblAnschaffName"};
  Label lblSteuerName{*this, "lblSteuerName"};
};

// A list above, frames of fields with pairs of boxes beside each other, a frame inside a frame, a long button
// bar.
struct ListScreen : Form {
  ListScreen() : Form("F_ARA") { Load(); }
  Node BuildLayout() override {
    return Stack(
        Table(DataGridArbeitsauftrag),
        Side(
            Group(frmArbeitsauftrag, "Arbeitsauftrag",
                  Row(lblKostenstelle, "Kostenstelle", Box(txtKostenstelle[0], 8), Shown(txtKostenstelle[1])),
                  Group(frmBeschreibung, "Beschreibung der Arbeit", Lines(txtBeschreibung, 4))),
            Stack(Last(Group(frmSelektion, "Selektion", Row("Kostenstelle", Box(txtSel, 8)))),
                  Group(frmSummen, "Summen", Row(lblMenge, "Menge", Shown(txtMenge, 10), Text("fm"))))),
        Bar(Push(btnNeu, "Neu"), Push(btnClose, "Schließen")), Hidden({&AdodcArbeitsauftrag, &Timer1}));
  }
  DataControl AdodcArbeitsauftrag{*this, "AdodcArbeitsauftrag"};
  Timer Timer1{*this, "Timer1"};
  DataGrid DataGridArbeitsauftrag{*this, "DataGridArbeitsauftrag"};
  Frame frmArbeitsauftrag{*this, "frmArbeitsauftrag"};
  Frame frmBeschreibung{*this, "frmBeschreibung_der_Arbeit"};
  Frame frmSummen{*this, "frmSummen"};
  Frame frmSelektion{*this, "frmSelektion"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  Label lblMenge{*this, "lblMenge"};
  ControlArray<TextBox, 2> txtKostenstelle{*this, "txtKostenstelle"};
  TextBox txtBeschreibung{*this, "txtBegrundung_der_Anordnung"};
  TextBox txtMenge{*this, "txtMenge"};
  TextBox txtSel{*this, "txtKostenstelleSel"};
  Button btnNeu{*this, "btnNeu"};
  Button btnClose{*this, "btnClose"};
};

std::vector<std::string> FocusRound(const Form& form) {
  std::vector<std::string> names;
  const Control* first = form.NextInTabOrder(nullptr);
  for (const Control* control = first; names.empty() || control != first;
       control = form.NextInTabOrder(control)) {
    names.push_back(control->FullName());
  }
  return names;
}

TEST(Layout, TabOrderAndCaptionsComeFromTheDescription) {
  const SmallScreen screen;
  EXPECT_THAT(FocusRound(screen), ElementsAre("txtAnschaffN", "txtSteuerN", "cmdSpeichern", "cmdSchliesen"));
  EXPECT_EQ(screen.lblSteuer.Caption(), "Steuer");
  EXPECT_EQ(screen.txtSteuerN.Container(), &screen.frmKosten);
  EXPECT_EQ(screen.lblSteuerName.Container(), &screen.frmKosten);
  EXPECT_EQ(screen.cmdSpeichern.Container(), nullptr);
}

TEST(Layout, FramesNestAndGovernWhatStandsInThem) {
  ListScreen screen;
  EXPECT_THAT(FocusRound(screen),
              ElementsAre("DataGridArbeitsauftrag", "txtKostenstelle(0)", "txtBegrundung_der_Anordnung",
                          "btnNeu", "btnClose", "txtKostenstelleSel"))
      << "boxes that only show are no stops, and the selection comes last";
  EXPECT_EQ(screen.frmBeschreibung.Container(), &screen.frmArbeitsauftrag);
  EXPECT_EQ(screen.txtBeschreibung.Container(), &screen.frmBeschreibung);
  screen.frmArbeitsauftrag.SetEnabled(false);
  EXPECT_FALSE(screen.txtBeschreibung.IsEnabled());
  EXPECT_TRUE(screen.txtSel.IsEnabled());
  EXPECT_TRUE(screen.txtBeschreibung.MultiLine());
  EXPECT_TRUE(screen.txtMenge.Locked());
}

TEST(Layout, ControlsAreFoundByNameAndIndex) {
  ListScreen screen;
  EXPECT_EQ(screen.FindByFullName("TXTKOSTENSTELLE(1)"), &screen.txtKostenstelle[1]);
  EXPECT_EQ(screen.Find("txtKostenstelle", 0), &screen.txtKostenstelle[0]);
  EXPECT_EQ(screen.Find("txtKostenstelle"), nullptr);
}

}  // namespace
}  // namespace tarvoni
