#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/common/code_field.h"
#include "src/common/month_fields.h"
#include "src/common/position_codes.h"
#include "src/common/row_entry.h"

namespace tarvoni {

// The gross wage journal of one worker and month: its lines, each with its cost assignment, and the summary of all that
// the month brings him.
class F_Bruttolohn : public Screen {
 public:
  F_Bruttolohn();
  // The header (STUNDENBUCH_HEADER) exists already.
  void Run(const TvnVar_Dll& tvnvar, std::int32_t Id_StundenBuch);

  // For looking at the list by hand: its statement and its rows, parted by semicolons, in BruttoLohn.sql under the work
  // directory, whose path is then told. Nothing on the Screen calls it.
  void WriteListToFile() const;

 protected:
  layout::Node BuildLayout() override;

 private:
  // --- the list, the month's summary and the current row (f_bruttolohn.cpp) ---
  void ConnectFields();
  void ConnectButtons();
  void Reload();
  std::vector<ShownColumn> Columns() const;
  void FillSummary();
  void ShapeSummary();
  std::string SummaryText() const;
  std::string Worker() const;
  void ShowCurrentRow();
  void SetViewState(bool bolView);

  // --- codes, rate and amount of the entry (f_bruttolohn_entry.cpp) ---
  std::int32_t ClientId() const;
  CodeField::Rule WageTypeRule();
  CodeField::Rule ProductOrderRule();
  CodeField::Rule WorkTypeRule();
  CodeField::Rule MethodRule();
  void ProductOrderLeft();
  void DayLeft();
  std::string DayText() const;
  // Reads the rate for the wage type once more.
  void PriceAgain();
  void WageTypeLeft();
  void ReadRate();
  void ShowUnit(const std::string& unit);
  void ClearRate();
  void ShowAmount();

  // --- entering, saving and deleting (f_bruttolohn_save.cpp) ---
  RowEntry::Steps EntrySteps();
  Control& FillNew();
  std::optional<std::int32_t> Save();
  bool TestEntry();
  std::int32_t InsertLine() const;
  void WriteLine(std::int32_t id) const;

  std::int32_t curHeaderId = 0;
  std::int32_t curLineId = 0;
  std::string curFwj;
  std::int32_t curProduktId = 0;
  Guard loadingFlag;
  bool wage_type_changed_ = false;         // since its rate was read
  std::optional<std::string> priced_day_;  // of the stored line; nothing for a new one
  bool summary_is_old_ = false;            // lines were written since it was filled

  DataControl AdodcBruttoLohn{*this, "AdodcBruttoLohn"};
  DataGrid DataGridBruttoLohn{*this, "DataGridBruttoLohn"};
  FlexGrid MSFlexGrid1{*this, "MSFlexGrid1"};

  Frame frmStammdaten{*this, "frmStammdaten"};
  Label lblForstbetrieb{*this, "lblForstbetrieb"};
  ControlArray<TextBox, 2> txtForstbetrieb{*this, "txtForstbetrieb"};
  Label lblArbeitnehmer{*this, "lblArbeitnehmer"};
  ControlArray<TextBox, 2> txtArbeitnehmer{*this, "txtArbeitnehmer"};
  Label lblBearbeitungsmonat{*this, "lblBearbeitungsmonat"};
  Label lblBearbeitungsjahr{*this, "lblBearbeitungsjahr"};
  ControlArray<TextBox, 3> txtBearbeitungsmonat{*this, "txtBearbeitungsmonat", 1};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};

  Frame frmVerlohnungs{*this, "frmVerlohnungs"};
  Label lblVerlohnungs{*this, "lblVerlohnungs"};
  ControlArray<TextBox, 3> txtVerlohnungs{*this, "txtVerlohnungs", 1};

  Frame frmErfassung{*this, "frmErfassung"};
  Label lblTag{*this, "lblTag"};
  TextBox txtTag{*this, "txtTag"};
  Label lblLohnart{*this, "lblLohnart"};
  ControlArray<TextBox, 2> txtLohnart{*this, "txtLohnart"};
  Label lblAuszahlungsmonat{*this, "lblAuszahlungsmonat"};
  ControlArray<TextBox, 3> txtAuszahlungsmonat{*this, "txtAuszahlungsmonat", 1};
  Label lblWert{*this, "lblWert"};
  TextBox txtWert{*this, "txtWert"};
  Label lblSatz{*this, "lblSatz"};
  TextBox txtSatz{*this, "txtSatz"};
  Label lblProzentsatz{*this, "lblProzentsatz"};
  TextBox txtProzentsatz{*this, "txtProzentsatz"};
  Label lblBetrag{*this, "lblBetrag"};
  TextBox txtGesamtbetrag{*this, "txtGesamtbetrag"};

  Frame frmErfassungKLR{*this, "frmErfassungKLR"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  ControlArray<TextBox, 2> txtKostenstelle{*this, "txtKostenstelle"};
  Label lblProduktauftragNr{*this, "lblProduktauftragNr"};
  ControlArray<TextBox, 2> txtProduktauftragNr{*this, "txtProduktauftragNr"};
  Label lblLeistungsart{*this, "lblLeistungsart"};
  ControlArray<TextBox, 2> txtLeistungsart{*this, "txtLeistungsart"};
  Label lblVerfahren{*this, "lblVerfahren"};
  ControlArray<TextBox, 2> txtVerfahren{*this, "txtVerfahren"};
  Label lblObjekt{*this, "lblObjekt"};
  ControlArray<TextBox, 2> txtObjekt{*this, "txtObjekt"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  ControlArray<Button, 2> btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnAusdruck{*this, "btnAusdruck"};
  Button btnClose{*this, "btnClose"};

  RowList lines_{*this, loadingFlag, {.data = AdodcBruttoLohn, .grid = DataGridBruttoLohn}};
  RowEntry entry_{*this, lines_, curLineId, {btnNeu, btnBearbeiten, btnAbbrechen}, EntrySteps()};
  MonthFields working_month_{Context(), txtBearbeitungsmonat[1], &txtBearbeitungsmonat[2],
                             &txtBearbeitungsmonat[3]};
  MonthFields pay_month_{Context(), txtVerlohnungs[1], &txtVerlohnungs[2], &txtVerlohnungs[3]};
  MonthFields paying_month_{Context(), txtAuszahlungsmonat[1], &txtAuszahlungsmonat[2],
                            &txtAuszahlungsmonat[3]};
  CodeField wage_type_{Context(), loadingFlag, txtLohnart[0], &txtLohnart[1], WageTypeRule()};
  CodeField cost_centre_{
      Context(), loadingFlag, txtKostenstelle[0], &txtKostenstelle[1],
      CostCentreCode(Context(), txtKostenstelle[0], lblKostenstelle, [this] { return ClientId(); })};
  CodeField product_order_{Context(), loadingFlag, txtProduktauftragNr[0], nullptr, ProductOrderRule()};
  CodeField work_type_{Context(), loadingFlag, txtLeistungsart[0], &txtLeistungsart[1], WorkTypeRule()};
  CodeField method_{Context(), loadingFlag, txtVerfahren[0], &txtVerfahren[1], MethodRule()};
  CodeField object_{Context(), loadingFlag, txtObjekt[0], &txtObjekt[1],
                    CostObjectCode(Context(), txtObjekt[0], lblObjekt, [this] { return ClientId(); })};
};

}  // namespace tarvoni
