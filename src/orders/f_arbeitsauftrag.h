#pragma once

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
#include "src/common/table_code.h"
#include "src/orders/f_arbeitsauftrag_surface.h"
#include "src/orders/position_widths.h"

namespace tarvoni {

// One work order with its cost positions, or one plan with its planned position; which of them is fixed while the
// Screen is open. What stands where: entry and states in f_arbeitsauftrag.cpp, the rest by name in
// f_arbeitsauftrag_{header,plan,prefill,positions,shown,fields,save,sum,timber,grid}.cpp.
class F_Arbeitsauftrag : public ArbeitsauftragSurface {
 public:
  F_Arbeitsauftrag();
  // `idPersonal_dll` is the client's id as text. With `ID` 0 an order is only made, in its dialog; a plan is asked
  // for its name and then opened.
  void Run(const TvnVar_Dll& tvnvar, const std::string& idPersonal_dll, std::int32_t ID, bool Plan_dll);

  // ARBEITSAUFTRAG.ID of the row the list stands on; nothing without a row, for a plan, or while the Screen is closed.
  std::optional<std::int32_t> CurrentPosition() const;

 private:
  // --- entry and states (f_arbeitsauftrag.cpp) ---
  void Fill();
  void BeginState();
  void ConnectButtons();
  void ShowMode();
  void SetViewState(bool view);
  void CutDownClosed();
  void BlockPosition();
  void SetFrames(bool enabled);
  void FocusList();
  void Cancel();
  bool StillOpen();

  // --- head (…_header.cpp) ---
  void FillHeaderLists();
  void LoadHeader();
  void ShowHeader(const FieldList& row);
  void DefaultHeader();
  void ShowTitle();
  std::string NumberOfPosition() const;
  void NameSubject(const std::string& position);
  void SaveHeader() const;
  ColumnWriter HeaderWriter() const;
  std::string HeaderTable() const;
  void Uncheck();
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
  void ShowCostType(const std::string& number);
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
  void LookUpProduct();
  void TakeActivity(const Activity& activity);
  void LockTimberFields(bool locked);
  void ActivityLeft();
  void GradeGroupLeft();
  void OfferGradeGroups();
  void CalculateTotal();
  void BasisLeft();
  std::string Factors();
  void TotalLeft();
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

  // --- the list's columns (…_grid.cpp) ---
  std::vector<ShownColumn> Columns() const;

  std::int32_t idPersonal = 0;
  bool isPlan = false;
  std::int32_t headerId = 0;
  Guard suppressEvents;
  bool isNewPosition = false;
  std::int32_t positionId = 0;
  std::int16_t standardForstamt = 0;
  std::int32_t productId = 0;
  std::string productNumber_;  // what productId was found by
  std::int32_t activityId_ = 0;
  std::string headerName;
  std::string total_on_arrival_;  // what txtKosten showed when it got the focus
  std::string
      total_worked_from_;  // the basis and unit cost that the total belongs to; "" once a basis was typed
  bool closed_ = false;    // as it was last read or written
  Guard undoing_click_;
  double euroFactor = 1.0;
  PositionWidths widths_;

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
