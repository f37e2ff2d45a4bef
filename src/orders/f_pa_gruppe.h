#pragma once

#include <cstdint>

#include "src/common/code_field.h"
#include "src/common/screen.h"

namespace tarvoni {

// One product-order group: its product, its category and the number under which its work orders run.
class F_PA_Gruppe : public Screen {
 public:
  F_PA_Gruppe();
  // `Id_PA_Gruppe` 0 asks for a name and makes the group; without a name nothing is made and nothing opens.
  void Run(std::int32_t Id_PA_Gruppe, std::int32_t ID_Mandant, const TvnVar_Dll& tvnvar);
  // Deletes a group without work orders, after a question.
  void Delete(std::int32_t ID_Item_dll, const TvnVar_Dll& tvnvar) const;

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectFields();
  void ConnectCode(CodeField& field);
  bool CreateGroup(const TvnVar_Dll& tvnvar);
  bool LoadGroup();
  void CategoryChanged();
  void ProposeNumber();
  void ToggleEdit();
  void StartEditing();
  void Save();
  bool MayBeSaved();
  bool FitsCentralCategory(const FieldList& category);
  bool NumberIsFree() const;
  void Cancel();

  CodeField::Rule ProductRule();
  CodeField::Rule CategoryRule();

  std::int32_t curGroupId = 0;
  std::int32_t curMandant = 0;
  bool bolNewGroup = false;  // made on this entry and not saved yet
  Guard loading_;

  Frame frmGruppe{*this, "frmGruppe"};
  Label lblPA_Gruppe{*this, "lblPA_Gruppe"};
  TextBox txtPA_Gruppe{*this, "txtPA_Gruppe"};
  Label lblMandant{*this, "lblMandant"};
  ControlArray<TextBox, 2> txtMandant{*this, "txtMandant"};
  Label lblProdukt{*this, "lblProdukt"};
  ControlArray<TextBox, 2> txtProdukt{*this, "txtProdukt"};
  Label lblKategorie{*this, "lblKategorie"};
  ControlArray<TextBox, 2> txtKategorie{*this, "txtKategorie"};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};
  Label lblPA_Nummer{*this, "lblPA_Nummer"};
  TextBox txtPA_Nummer{*this, "txtPA_Nummer"};
  Frame frmBeschreibung{*this, "frmBeschreibung"};
  TextBox txtBeschreibung{*this, "txtBeschreibung"};

  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnClose{*this, "btnClose"};

  CodeField produkt_{Context(), loading_, txtProdukt[0], &txtProdukt[1], ProductRule()};
  CodeField kategorie_{Context(), loading_, txtKategorie[0], &txtKategorie[1], CategoryRule()};
};

}  // namespace tarvoni
