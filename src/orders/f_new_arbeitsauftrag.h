#pragma once

#include <cstdint>

#include "src/common/code_field.h"
#include "src/common/screen.h"

namespace tarvoni {

// Makes the header of a work order: its number, drawn from a product-order group or the range of the group's category,
// and the name made of it.
class F_NewArbeitsauftrag : public Screen {
 public:
  F_NewArbeitsauftrag();
  // Gives ARBEITSAUFTRAG_KOPF.ID of the header made and KOSTENSTELLE.ID; both 0 when the dialog was cancelled.
  void Run(std::int32_t payee, std::int32_t& header, std::int32_t& cost_centre, const TvnVar_Dll& tvnvar);

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectFields();
  void FillDefaults();
  void GroupChanged();
  void TakeGroup(const FieldList& group);
  void CostCentreChanged();
  void ProposeNumber();
  void EditDescription();
  void Confirm();
  bool Filled();
  bool NumberInRange() const;
  std::int32_t MakeHeader() const;
  std::string OrderName() const;

  CodeField::Rule GroupRule();
  CodeField::Rule ProductRule();
  CodeField::Rule FeatureRule();
  CodeField::Rule CostCentreRule();

  std::int32_t curPersonal = 0;
  std::int16_t numVon = 0;  // the range of the group's category
  std::int16_t numBis = 0;
  std::int32_t made_header_ = 0;
  std::int32_t made_in_cost_centre_ = 0;
  Guard loading_;

  Frame frmNummer{*this, "frmNummer"};
  Label lblMandant{*this, "lblMandant"};
  TextBox txtMandant{*this, "txtMandant"};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};
  Label lblPA_Gruppe{*this, "lblPA_Gruppe"};
  ControlArray<TextBox, 2> txtPA_Gruppe{*this, "txtPA_Gruppe"};
  Label lblProdukt{*this, "lblProdukt"};
  ControlArray<TextBox, 2> txtProdukt{*this, "txtProdukt"};
  Label lblSondermerkmal{*this, "lblSondermerkmal"};
  ControlArray<TextBox, 2> txtSondermerkmal{*this, "txtSondermerkmal"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  ControlArray<TextBox, 1> txtKostenstelle{*this, "txtKostenstelle"};
  Label lblNummer{*this, "lblNummer"};
  TextBox txtNummer{*this, "txtNummer"};
  Label lblBeschreibung{*this, "lblBeschreibung"};
  TextBox txtBeschreibung{*this, "txtBeschreibung"};
  Button cmdOK{*this, "cmdOK"};
  Button cmdCancel{*this, "cmdCancel"};

  CodeField gruppe_{Context(), loading_, txtPA_Gruppe[0], &txtPA_Gruppe[1], GroupRule()};
  CodeField produkt_{Context(), loading_, txtProdukt[0], &txtProdukt[1], ProductRule()};
  CodeField sondermerkmal_{Context(), loading_, txtSondermerkmal[0], &txtSondermerkmal[1], FeatureRule()};
  CodeField kostenstelle_{Context(), loading_, txtKostenstelle[0], nullptr, CostCentreRule()};
};

}  // namespace tarvoni
