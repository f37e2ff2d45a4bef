#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/common/code_field.h"
#include "src/common/month_fields.h"
#include "src/common/row_entry.h"

namespace tarvoni {

// The hours of one wage order: who, in which month, at the rate of which day.
class F_Arbeitnehmer : public Screen {
 public:
  F_Arbeitnehmer();
  void Run(const TvnVar_Dll& tvnvar, std::int32_t araId);

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectFields();
  void ConnectButtons();
  CodeField::Rule WorkerRule();
  CodeField::Rule WageTypeRule();

  void Reload();
  std::vector<ShownColumn> Columns() const;
  void ShowCurrentRow();
  void SetViewState(bool bolView);

  // --- rate and amount of the entry ---
  void DayLeft();
  // Reads the rate for the wage type once more.
  void PriceAgain();
  void PriceForWorker();
  void WageTypeLeft();
  void ReadRate();
  void ClearRate();
  std::string Amount() const;
  void ShowAmount();
  std::optional<DateTime> Day() const;
  std::string DayText() const;

  RowEntry::Steps EntrySteps();
  Control& FillNew();
  void ProposeFirst();
  std::optional<std::int32_t> Save();
  bool TestEntry();
  void WriteHours(std::int32_t id) const;

  std::int32_t curAraId = 0;
  std::string curFwj;
  std::int32_t curStundenId = 0;
  Guard loadingFlag;
  bool wage_type_changed_ = false;         // since its rate was read
  std::optional<std::string> priced_day_;  // of the stored row; nothing for a new one

  DataControl AdodcArbeitnehmer{*this, "AdodcArbeitnehmer"};
  DataGrid DataGridArbeitnehmer{*this, "DataGridArbeitnehmer"};

  Frame frmErfassung{*this, "frmErfassung"};
  Label lblBearbeitungsmonat{*this, "lblBearbeitungsmonat"};
  ControlArray<TextBox, 3> txtBearbeitungsmonat{*this, "txtBearbeitungsmonat", 1};
  Label lblVerlohnungs{*this, "lblVerlohnungs"};
  ControlArray<TextBox, 4> txtVerlohnungs{*this, "txtVerlohnungs"};
  Label lblPersonalnummer{*this, "lblPersonalnummer"};
  ControlArray<TextBox, 2> txtPersonalnummer{*this, "txtPersonalnummer"};
  Label lblLohnart{*this, "lblLohnart"};
  ControlArray<TextBox, 2> txtLohnart{*this, "txtLohnart"};
  Label lblAuszahlungsmonat{*this, "lblAuszahlungsmonat"};
  ControlArray<TextBox, 3> txtAuszahlungsmonat{*this, "txtAuszahlungsmonat", 1};
  Label lblStunden{*this, "lblStunden"};
  TextBox txtStunden{*this, "txtStunden"};
  Label lblSatz{*this, "lblSatz"};
  TextBox txtSatz{*this, "txtSatz"};
  Label lblProzentsatz{*this, "lblProzentsatz"};
  TextBox txtProzentsatz{*this, "txtProzentsatz"};
  Label lblGesamtbetrag{*this, "lblGesamtbetrag"};
  TextBox txtGesamtbetrag{*this, "txtGesamtbetrag"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  ControlArray<Button, 2> btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnClose{*this, "btnClose"};

  RowList hours_{
      *this,
      loadingFlag,
      {.data = AdodcArbeitnehmer, .grid = DataGridArbeitnehmer, .layout_key = "F_ARBEITNEHMER_DATAGRID"}};
  RowEntry entry_{*this, hours_, curStundenId, {btnNeu, btnBearbeiten, btnAbbrechen}, EntrySteps()};
  MonthFields working_month_{Context(), txtBearbeitungsmonat[1], &txtBearbeitungsmonat[2],
                             &txtBearbeitungsmonat[3]};
  MonthFields pay_month_{Context(), txtVerlohnungs[1], &txtVerlohnungs[2], &txtVerlohnungs[3]};
  MonthFields paying_month_{Context(), txtAuszahlungsmonat[1], &txtAuszahlungsmonat[2],
                            &txtAuszahlungsmonat[3]};
  CodeField worker_{Context(), loadingFlag, txtPersonalnummer[0], &txtPersonalnummer[1], WorkerRule()};
  CodeField wage_type_{Context(), loadingFlag, txtLohnart[0], &txtLohnart[1], WageTypeRule()};
};

}  // namespace tarvoni
