#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/common/code_field.h"
#include "src/common/row_entry.h"

namespace tarvoni {

class F_Lager;

// The goods of a stores document, and for the current one its withdrawals from store, which book its cost onto work
// orders. A withdrawal is never changed, only cancelled. Fields and lists stand in f_positionen.cpp, the codes of a
// withdrawal in f_positionen_codes.cpp, what is written in f_positionen_save.cpp.
class F_Positionen : public Screen {
 public:
  F_Positionen();
  // `client` is PERSONAL.ID_PERSONAL, `document` LAGER.ID; `mode_dll` has no effect here.
  void Run(const TvnVar_Dll& tvnvar, std::int32_t client, std::int32_t document, std::uint8_t mode_dll);

 protected:
  layout::Node BuildLayout() override;

 private:
  // What is being entered; everything else is closed meanwhile.
  enum class Panel { kPosition, kWithdrawal };

  void ConnectFields();
  void ConnectButtons();
  void ConnectCodes();
  CodeField::Rule ProductOrderRule();
  CodeField::Rule WorkTypeRule();
  CodeField::Rule MethodRule();
  CodeField::Rule CostTypeRule();
  void CostCentreLeft();
  void ProductOrderLeft();
  void WorkTypeChanged();
  void FillSingleMethod();
  void ShowProductOrder(const std::string& name);

  void ReloadPositions();
  void ReloadWithdrawals();
  std::vector<ShownColumn> PositionColumns() const;
  std::vector<ShownColumn> WithdrawalColumns() const;
  void ShowPosition();
  void ShowWithdrawal();
  void SetPanelState(Panel panel, bool view);

  // --- cost and stock ---
  void CostPartLeft(TextBox& box);
  void TotalLeft();
  void DrawnLeft();

  RowEntry::Steps EntrySteps();
  Control& FillNewPosition();
  std::optional<std::int32_t> SavePosition();
  bool FitsInvoice();
  void WritePosition(std::int32_t id) const;
  void DeletePosition();
  std::string WithdrawalShown() const;
  void StartWithdrawal();
  void ClearWithdrawal();
  void SaveWithdrawal();
  bool TestWithdrawal();
  // The id of the new row; nothing if the store does not hold as much any more, and then nothing is written.
  std::optional<std::int32_t> WriteWithdrawal();
  void TellOverdrawn();
  void CancelWithdrawal();
  void LeaveWithdrawal();
  void HandOver();
  // The document's Screen; null while it is not open.
  static F_Lager* Document();

  std::int32_t curPersonal = 0;
  std::int32_t document_ = 0;
  std::int32_t curPosId = 0;
  std::int32_t curKlrId = 0;
  std::int32_t curProduktId = 0;
  std::string strFWJ;
  std::string client_number_;
  bool saVerfahren = false;
  std::string on_arrival_;  // what a box of the cost showed when it got the focus
  Guard loading_;

  DataControl Data1{*this, "Data1"};
  DataControl Adodc_KLR{*this, "Adodc_KLR"};

  Frame Frame1{*this, "Frame1"};
  Frame frmKostenE{*this, "frmKostenE"};
  TextBox txtKostenE{*this, "txtKostenE"};
  Frame frmMenge{*this, "frmMenge"};
  TextBox txtMenge{*this, "txtMenge"};
  ComboBox txtEinheit{*this, "txtEinheit"};
  Frame frmKosten{*this, "frmKosten"};
  TextBox txtKosten{*this, "txtKosten"};
  Label lblValuta{*this, "lblValuta"};
  ComboBox txtValuta{*this, "txtValuta"};
  Frame frmBezeichnung{*this, "frmBezeichnung"};
  TextBox txtBezeichnung{*this, "txtBezeichnung"};
  Frame frmLagerstand{*this, "frmLagerstand"};
  TextBox txtLagerstand{*this, "txtLagerstand"};
  DataGrid DataGrid1{*this, "DataGrid1"};

  Frame frmKLR{*this, "frmKLR"};
  Frame frmKLR_Data{*this, "frmKLR_Data"};
  Label lblBelegNr{*this, "lblBelegNr"};
  TextBox txtBelegNr{*this, "txtBelegNr"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  TextBox txtKostenstelle{*this, "txtKostenstelle"};
  TextBox txtKostenstelleName{*this, "txtKostenstelleName"};
  Label lblAA_Name{*this, "lblAA_Name"};
  TextBox txtProduktauftragNr{*this, "txtProduktauftragNr"};
  TextBox txtProduktauftragName{*this, "txtProduktauftragName"};
  Label lblLeistungsart{*this, "lblLeistungsart"};
  TextBox txtLeistungsart{*this, "txtLeistungsart"};
  TextBox txtLeistungsartName{*this, "txtLeistungsartName"};
  Label lblArbeitsverfahren{*this, "lblArbeitsverfahren"};
  TextBox txtArbeitsverfahren{*this, "txtArbeitsverfahren"};
  TextBox txtArbeitsverfahrenName{*this, "txtArbeitsverfahrenName"};
  Label lblObjekt{*this, "lblObjekt"};
  TextBox txtObjekt{*this, "txtObjekt"};
  TextBox txtObjektName{*this, "txtObjektName"};
  Label lblKostenart{*this, "lblKostenart"};
  TextBox txtKostenart{*this, "txtKostenart"};
  TextBox txtKostenartName{*this, "txtKostenartName"};
  Label lblWaldort{*this, "lblWaldort"};
  TextBox txtWaldort{*this, "txtWaldort"};
  Label lblMenge_KLR{*this, "lblMenge_KLR"};
  TextBox txtMenge_KLR{*this, "txtMenge_KLR"};
  TextBox txtMengeEinhait_KLR{*this, "txtMengeEinhait_KLR"};
  Label lblLagerMengeAusbuchen{*this, "lblLagerMengeAusbuchen"};
  TextBox txtLagerMengeAusbuchen{*this, "txtLagerMengeAusbuchen"};
  Label lblGesamtKosten{*this, "lblGesamtKosten"};
  TextBox txtGesamtKosten{*this, "txtGesamtKosten"};
  DataGrid dataGrid_KLR{*this, "dataGrid_KLR"};

  ControlArray<Button, 2> btnNeu{*this, "btnNeu"};
  ControlArray<Button, 2> btnSpeichern{*this, "btnSpeichern"};
  ControlArray<Button, 2> btnAbbrechen{*this, "btnAbbrechen"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnStorno{*this, "btnStorno"};
  Button btnStornoNeu{*this, "btnStornoNeu"};
  Button cmdSet{*this, "cmdSet"};
  Button btnOk{*this, "btnOk"};

  RowList positions_{*this, loading_, {.data = Data1, .grid = DataGrid1, .layout_key = "F_POSITIONEN_DATA1"}};
  RowList withdrawals_{
      *this, loading_, {.data = Adodc_KLR, .grid = dataGrid_KLR, .layout_key = "F_POSITIONEN_DATAKLR"}};
  RowEntry entry_{
      *this, positions_, curPosId, {btnNeu[0], btnBearbeiten, btnAbbrechen[0], &btnOk}, EntrySteps()};
  CodeField cost_centre_;
  CodeField order_{Context(), loading_, txtProduktauftragNr, nullptr, ProductOrderRule()};
  CodeField work_type_{Context(), loading_, txtLeistungsart, &txtLeistungsartName, WorkTypeRule()};
  CodeField method_{Context(), loading_, txtArbeitsverfahren, &txtArbeitsverfahrenName, MethodRule()};
  CodeField object_;
  CodeField cost_type_{Context(), loading_, txtKostenart, &txtKostenartName, CostTypeRule()};
  CodeField location_{Context(), loading_, txtWaldort, nullptr, LocationCode(Context(), txtWaldort)};
};

}  // namespace tarvoni
