#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "src/common/activity.h"
#include "src/common/code_field.h"
#include "src/common/column_writer.h"
#include "src/common/current_row.h"
#include "src/common/date_field.h"
#include "src/common/list_rules.h"
#include "src/common/position_codes.h"
#include "src/common/row_list.h"
#include "src/common/screen.h"
#include "src/common/table_code.h"

namespace tarvoni {

// One work order with its cost positions, or one plan with its planned position; which of them is fixed while the
// Screen is open. What stands where: entry and states in f_arbeitsauftrag.cpp, the rest by name in
// f_arbeitsauftrag_{header,plan,prefill,positions,shown,fields,save,sum,timber,grid}.cpp.
class F_Arbeitsauftrag : public Screen {
 public:
  F_Arbeitsauftrag();
  // `idPersonal_dll` is the client's id as text. With `ID` 0 an order is only made, in its dialog; a plan is asked
  // for its name and then opened.
  void Run(const TvnVar_Dll& tvnvar, const std::string& idPersonal_dll, std::int32_t ID, bool Plan_dll);

  // ARBEITSAUFTRAG.ID of the row the list stands on; nothing without a row, for a plan, or while the Screen is closed.
  std::optional<std::int32_t> CurrentPosition() const;

 protected:
  layout::Node BuildLayout() override;

 private:
  // --- the surface (…_layout.cpp) ---
  layout::Node LayoutHead();
  layout::Node LayoutCodes();
  layout::Node LayoutAmounts();
  layout::Node LayoutTimber();
  layout::Node LayoutFreeFields();

  // --- entry and states (f_arbeitsauftrag.cpp) ---
  void Fill();
  void BeginState();
  void ConnectButtons();
  void ShowMode();
  void SetViewState(bool view);
  void CutDownClosed();
  void BlockPosition();
  void SetFrames(bool enabled);
  void Cancel();
  bool StillOpen();

  // --- head (…_header.cpp) ---
  void FillHeaderLists();
  void LoadHeader();
  void ShowHeader(const FieldList& row);
  void DefaultHeader();
  void ShowTitle();
  void SaveHeader() const;
  ColumnWriter HeaderWriter() const;
  std::string HeaderTable() const;
  void ClosedClicked();
  void WriteClosed(bool closed);
  void EditDescription();

  // --- plans (…_plan.cpp, …_prefill.cpp) ---
  std::int32_t NewPlan(const TvnVar_Dll& tvnvar) const;
  void FillPlanList();
  void DeleteEmptyPlan() const;
  void TakePlan();
  void TakePlannedHeader(const FieldList& row);
  void TakePlannedCodes(const FieldList& row);
  void TakePlannedAmounts(const FieldList& row);
  void TakePlannedRest(const FieldList& row);

  // --- positions (…_positions.cpp, …_shown.cpp) ---
  void ReloadPositions();
  void NewPosition();
  void ClearPosition();
  void EditPosition();
  void RemovePosition();
  bool HasPosition() const { return positions_.Data().Recordset().HasCurrentRow(); }
  std::string PositionTable() const;
  void ShowPosition();
  void ShowCodes(const CurrentRow& row);
  void ShowSpecies(std::int32_t id);
  void ShowLocation(std::int32_t id);
  void ShowAmounts(const CurrentRow& row);
  void ShowUnit(std::int32_t unit);
  void ShowFreeFields(const CurrentRow& row);

  // --- fields (…_fields.cpp) ---
  void ConnectFields();
  void ConnectAmounts();
  std::vector<Control*> EnterOrder();
  void NextOnEnter();
  void LimitTexts();
  void AmountKeys(TextBox& box, const std::string& column = {});
  void LookUpActivity();
  void TakeActivity(const Activity& activity);
  void LockTimberFields(bool locked);
  void ActivityLeft();
  void GradeGroupLeft();
  void OfferGradeGroups();
  void CalculateTotal();
  void CalculateUnitCost();
  TextBox& Basis();
  std::function<std::int32_t()> OfClient() {
    return [this] { return idPersonal; };
  }
  CodeField::Rule ProductRule();
  CodeField::Rule ActivityRule();
  CodeField::Rule MethodRule();
  CodeField::Rule SpeciesRule();
  CodeField::Rule PerformanceRule();

  // --- saving (…_save.cpp) ---
  void Save();
  bool EntryComplete();
  bool RequireGiven(bool given, Control& field);
  bool AmountsFit();
  void RequireWritable() const;
  std::int32_t WritePosition();
  std::int32_t InsertPosition();
  void WriteFields(std::int32_t position) const;
  void WriteCodes(const ColumnWriter& position) const;
  void WriteAmounts(const ColumnWriter& position) const;
  void WriteFreeFields(const ColumnWriter& position) const;

  // --- the order's sum (…_sum.cpp) ---
  void ReadEuroFactor();
  void ShowSum();

  // --- timber and natural execution (…_timber.cpp) ---
  bool TimberOpen();
  bool NaturalExecutionOpen();
  void AssignLists();
  void OpenNaturalExecution();

  // --- the grid's columns (…_grid.cpp) ---
  void ReadWidths();
  std::vector<ShownColumn> Columns() const;
  void StoreWidths();

  static constexpr int kFree = 5;  // free texts, and as many free numbers

  std::int32_t idPersonal = 0;
  bool isPlan = false;
  std::int32_t headerId = 0;
  Guard suppressEvents;
  bool isNewPosition = false;
  std::int32_t positionId = 0;
  std::int16_t standardForstamt = 0;
  std::int32_t productId = 0;
  std::int32_t activityId_ = 0;
  std::string headerName;
  bool closed_ = false;  // as it was last read or written
  Guard undoing_click_;
  double euroFactor = 1.0;
  std::vector<int> widths_;
  bool widths_stored_ = false;

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

  RowList positions_{
      *this, suppressEvents, {.data = Data1, .grid = DataGrid1, .at_end = RowList::AtEnd::kStays}};
  DeferredCall refresh_{Timer1, [this] { positions_.Refresh(); }};
  DateField kopfDatum_{Context(), suppressEvents, txtKopfDatum, lblDatum};
  DateField datum_{Context(), suppressEvents, txtDatum, lblDatumNr};
  CodeField produkt_{Context(), suppressEvents, txtProduktN, &txtProdukt, ProductRule()};
  CodeField sm_{Context(), suppressEvents, txtSM, nullptr, FeatureCode(Context(), txtSM, lblSM)};
  CodeField kostenstelle_{Context(), suppressEvents, txtKostenstelleN, &txtKostenstelle,
                          CostCentreCode(Context(), txtKostenstelleN, lblKostenstelle, OfClient())};
  CodeField objekt_{Context(), suppressEvents, txtObjektN, &txtObjekt,
                    CostObjectCode(Context(), txtObjektN, lblObjekt, OfClient())};
  CodeField leistungsart_{Context(), suppressEvents, txtLeistungsartN, &txtLeistungsart, ActivityRule()};
  CodeField verfahren_{Context(), suppressEvents, txtVerfahrenN, &txtVerfahren, MethodRule()};
  CodeField kostenart_{Context(), suppressEvents, txtKostenartN, &txtKostenart,
                       TableCode(Context(), lblKostenart, "KOSTENART", OfClient())};
  CodeField sondermerkmal_{Context(), suppressEvents, txtSondermerkmal[0], &txtSondermerkmal[1],
                           FeatureCode(Context(), txtSondermerkmal[0], lblSondermerkmal)};
  CodeField holzart_{Context(), suppressEvents, txtHolzartN, &txtHolzart, SpeciesRule()};
  CodeField leistung_{Context(), suppressEvents, txtLeistung[0], &txtLeistung[1], PerformanceRule()};
  CodeField waldort_{Context(), suppressEvents, txtWaldort, nullptr, LocationCode(Context(), txtWaldort)};
};

}  // namespace tarvoni
