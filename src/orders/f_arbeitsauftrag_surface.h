#pragma once

#include <array>

#include "src/common/screen.h"

namespace tarvoni {

// The controls of F_Arbeitsauftrag and how they are laid out. What they do, the Screen itself tells.
class ArbeitsauftragSurface : public Screen {
 protected:
  using Screen::Screen;
  layout::Node BuildLayout() override;

  static constexpr int kFree = 5;  // free texts, and as many free numbers

  DataControl Data1{*this, "Data1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  Timer Timer1{*this, "Timer1"};
  TabControl SSTab1{*this, "SSTab1"};

  Frame Frame4{*this, "Frame4"};
  Label lblDatum{*this, "lblDatum"};
  TextBox txtKopfDatum{*this, "txtKopfDatum"};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};
  Label lblForstamt{*this, "lblForstamt"};
  ComboBox txtForstamt{*this, "txtForstamt"};
  Label lblProdukt{*this, "lblProdukt"};
  TextBox txtProduktN{*this, "txtProduktN"};
  TextBox txtProdukt{*this, "txtProdukt"};
  Label lblSM{*this, "lblSM"};
  TextBox txtSM{*this, "txtSM"};
  Label lblPlanung_Lang{*this, "lblPlanung_Lang"};
  TextBox txtPlanung_Lang{*this, "txtPlanung_Lang"};
  Frame Frame13{*this, "Frame13"};
  ComboBox cmbPlannummer{*this, "cmbPlannummer"};
  Label lblBeschreibung{*this, "lblBeschreibung"};
  TextBox txtBeschreibung{*this, "txtBeschreibung"};
  Button btnBeschreibung{*this, "btnBeschreibung"};
  CheckBox chkAbgesch{*this, "chkAbgesch"};

  Frame Frame3{*this, "Frame3"};
  Label lblDatumNr{*this, "lblDatumNr"};
  TextBox txtDatum{*this, "txtDatum"};
  Label lblQuelle{*this, "lblQuelle"};
  TextBox txtQuelle{*this, "txtQuelle"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  TextBox txtKostenstelleN{*this, "txtKostenstelleN"};
  TextBox txtKostenstelle{*this, "txtKostenstelle"};
  Label lblObjekt{*this, "lblObjekt"};
  TextBox txtObjektN{*this, "txtObjektN"};
  TextBox txtObjekt{*this, "txtObjekt"};
  Label lblLeistungsart{*this, "lblLeistungsart"};
  TextBox txtLeistungsartN{*this, "txtLeistungsartN"};
  TextBox txtLeistungsart{*this, "txtLeistungsart"};
  Label lblVerfahren{*this, "lblVerfahren"};
  TextBox txtVerfahrenN{*this, "txtVerfahrenN"};
  TextBox txtVerfahren{*this, "txtVerfahren"};
  Label lblKostenart{*this, "lblKostenart"};
  TextBox txtKostenartN{*this, "txtKostenartN"};
  TextBox txtKostenart{*this, "txtKostenart"};
  Label lblSondermerkmal{*this, "lblSondermerkmal"};
  ControlArray<TextBox, 2> txtSondermerkmal{*this, "txtSondermerkmal"};

  Frame frmBetriebs{*this, "frmBetriebs"};
  Label lblFlache{*this, "lblFlache"};
  TextBox txtFlache{*this, "txtFlache"};
  Label lblHa{*this, "lblHa"};
  Label lblMenge{*this, "lblMenge"};
  TextBox txtMenge{*this, "txtMenge"};
  ComboBox txtEinheit{*this, "txtEinheit"};
  OptionButton optMenge{*this, "optMenge"};
  OptionButton optHa{*this, "optHa"};
  Label lblKostenE{*this, "lblKostenE"};
  TextBox txtKostenE{*this, "txtKostenE"};
  Label lblKosten{*this, "lblKosten"};
  TextBox txtKosten{*this, "txtKosten"};
  Label lblErlose{*this, "lblErlose"};
  TextBox txtErlos{*this, "txtErlos"};
  Label lblWaehrung{*this, "lblWaehrung"};
  ComboBox txtValuta{*this, "txtValuta"};
  Label lblValuta{*this, "lblValuta"};
  Label lblStunden{*this, "lblStunden"};
  TextBox txtStunden{*this, "txtStunden"};
  Label lblMAS{*this, "lblMAS"};
  TextBox txtMAS{*this, "txtMAS"};
  Label lblLeistung{*this, "lblLeistung"};
  ControlArray<TextBox, 2> txtLeistung{*this, "txtLeistung"};

  Frame frmWaldort{*this, "frmWaldort"};
  Label lblWaldort{*this, "lblWaldort"};
  TextBox txtWaldort{*this, "txtWaldort"};
  Label lblHolzart{*this, "lblHolzart"};
  TextBox txtHolzartN{*this, "txtHolzartN"};
  TextBox txtHolzart{*this, "txtHolzart"};
  Label lblHSGR{*this, "lblHSGR"};
  TextBox txtHSGR{*this, "txtHSGR"};
  Frame Frame9{*this, "Frame9"};
  Label lblMeter{*this, "lblMeter"};
  TextBox txtMeter{*this, "txtMeter"};
  Label lblM{*this, "lblM"};
  CheckBox chkZaunsutz{*this, "chkZaunsutz"};

  Frame Frame6{*this, "Frame6"};
  // txtTFrei1 to txtTFrei5 and txtNFrei1 to txtNFrei5, from 0.
  std::array<Label, kFree> lblTFrei{{{*this, "lblTFrei1"},
                                     {*this, "lblTFrei2"},
                                     {*this, "lblTFrei3"},
                                     {*this, "lblTFrei4"},
                                     {*this, "lblTFrei5"}}};
  std::array<TextBox, kFree> txtTFrei{{{*this, "txtTFrei1"},
                                       {*this, "txtTFrei2"},
                                       {*this, "txtTFrei3"},
                                       {*this, "txtTFrei4"},
                                       {*this, "txtTFrei5"}}};
  std::array<Label, kFree> lblNFrei{{{*this, "lblNFrei1"},
                                     {*this, "lblNFrei2"},
                                     {*this, "lblNFrei3"},
                                     {*this, "lblNFrei4"},
                                     {*this, "lblNFrei5"}}};
  std::array<TextBox, kFree> txtNFrei{{{*this, "txtNFrei1"},
                                       {*this, "txtNFrei2"},
                                       {*this, "txtNFrei3"},
                                       {*this, "txtNFrei4"},
                                       {*this, "txtNFrei5"}}};

  Label lblGesamtSumme{*this, "lblGesamtSumme"};
  TextBox txtGesamtSumme{*this, "txtGesamtSumme"};
  Label lblGesamtSummeEuro{*this, "lblGesamtSummeEuro"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnLoschen{*this, "btnLoschen"};
  Button cmdHolz{*this, "cmdHolz"};
  Button btnNV{*this, "btnNV"};
  Button btnBelege{*this, "btnBelege"};
  Button btnAuftrag{*this, "btnAuftrag"};
  Button btnOk{*this, "btnOk"};

 private:
  layout::Node LayoutHead();
  layout::Node LayoutCodes();
  layout::Node LayoutAmounts();
  layout::Node LayoutTimber();
  layout::Node LayoutFreeFields();
};

}  // namespace tarvoni
