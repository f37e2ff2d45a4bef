#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/common/code_field.h"
#include "src/common/month_fields.h"
#include "src/context/rules/est_pricing.h"
#include "src/piecework/timber_lists.h"

namespace tarvoni {

// What the logs of one wage order are worth in EST piecework: the timber lists assigned to it, each log with its marks
// and its row of the tariff. Prices come from the statement and are shown only.
class F_EST_Stucklohn : public Screen {
 public:
  F_EST_Stucklohn();
  void Run(const TvnVar_Dll& tvnvar, std::int32_t ID_Mandant_dll, std::int32_t ID_ARA_Kopf_dll);

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectFields();
  void ConnectLists();
  void ConnectButtons();
  CodeField::Rule MarkRule(const std::string& stem, const TextBox& mark, const Label& label) const;

  // --- the list and its current row ---
  void ReloadAndReposition();
  void LoadEstData();
  std::vector<ShownColumn> Columns() const;
  void LoadSurcharges();
  void ShowCurrentRow();
  void ShowMonth(const CurrentRow& row);
  void ShowSurcharges(const CurrentRow& row);
  void SetViewState(bool view);

  // --- entry and saving (f_est_stucklohn_save.cpp) ---
  void LoadLists(const CurrentRow& row);
  void MonthLeft();
  void Cancel();
  void Save();
  bool TestMonth();
  void Write() const;

  std::int32_t ID_Mandant_dll_ = 0;
  std::int32_t ID_ARA_Kopf_dll_ = 0;
  est_pricing::Groupings groupings_;  // StandardHs and StandardHa
  std::int32_t CurrentLogId = 0;
  std::string order_name_;
  Guard IsLoading;

  DataControl AdodcEST{*this, "AdodcEST"};
  DataGrid DataGridEST{*this, "DataGridEST"};

  Frame frmHAB{*this, "frmHAB"};
  TextBox txtHAB{*this, "txtHAB"};
  Frame frmZuschlagA{*this, "frmZuschlagA"};
  TextBox txtZuschlagA{*this, "txtZuschlagA"};
  Label lblPercent{*this, "lblPercent"};

  Frame frmZuschlagB{*this, "frmZuschlagB"};
  TextBox txtA_Fichte{*this, "txtA_Fichte"};
  TextBox txtA_Tanne{*this, "txtA_Tanne"};
  TextBox txtA_Kiefer{*this, "txtA_Kiefer"};
  TextBox txtA_Buche{*this, "txtA_Buche"};
  TextBox txtA_Eiche{*this, "txtA_Eiche"};
  TextBox txtM_Fichte{*this, "txtM_Fichte"};
  TextBox txtM_Tanne{*this, "txtM_Tanne"};
  TextBox txtM_Kiefer{*this, "txtM_Kiefer"};
  TextBox txtM_Buche{*this, "txtM_Buche"};
  TextBox txtM_Eiche{*this, "txtM_Eiche"};

  Frame frmKennzeichen{*this, "frmKennzeichen"};
  CheckBox chkARAUntypisch{*this, "chkARAUntypisch"};
  CheckBox chkWerkzeuggeld{*this, "chkWerkzeuggeld"};

  Frame Frame1{*this, "Frame1"};
  Label lblESTMerkmal{*this, "lblESTMerkmal"};
  ControlArray<TextBox, 2> txtESTMerkmal{*this, "txtESTMerkmal"};
  Label lblRindenzustand{*this, "lblRindenzustand"};
  ControlArray<TextBox, 2> txtRindenzustand{*this, "txtRindenzustand"};
  Label lblVorlieferstufe{*this, "lblVorlieferstufe"};
  ControlArray<TextBox, 2> txtVorlieferstufe{*this, "txtVorlieferstufe"};
  Label lblDMSchichtholz{*this, "lblDMSchichtholz"};
  TextBox txtDMSchichtholz{*this, "txtDMSchichtholz"};

  Frame frmSonderzuschlag{*this, "frmSonderzuschlag"};
  FlexGrid MSFGSonder{*this, "MSFGSonder"};

  Frame frmZuordnung{*this, "frmZuordnung"};
  ListBox listeAll{*this, "listeAll"};
  ListBox listeSel{*this, "listeSel"};
  Button cmdAddSel{*this, "cmdAddSel"};
  Button cmdDelSel{*this, "cmdDelSel"};
  Button cmdAddAll{*this, "cmdAddAll"};
  Button cmdDelAll{*this, "cmdDelAll"};
  Label lblAbrechnungsmonat{*this, "lblAbrechnungsmonat"};
  ControlArray<TextBox, 3> txtAbrechnungsmonat{*this, "txtAbrechnungsmonat", 1};

  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnAusdruck{*this, "btnAusdruck"};
  Button btnClose{*this, "btnClose"};

  RowList logs_{
      *this,
      IsLoading,
      {.data = AdodcEST, .grid = DataGridEST, .layout_key = "F_EST_STUCKLOHN_EST", .id_column = "ID_LOG"}};
  TimberLists lists_{listeAll, listeSel};
  MonthFields pay_month_{Context(), txtAbrechnungsmonat[1], &txtAbrechnungsmonat[2], &txtAbrechnungsmonat[3]};
  CodeField est_{Context(), IsLoading, txtESTMerkmal[0], &txtESTMerkmal[1],
                 MarkRule("EST", txtESTMerkmal[0], lblESTMerkmal)};
  CodeField bark_{Context(), IsLoading, txtRindenzustand[0], &txtRindenzustand[1],
                  MarkRule("MEFVERF", txtRindenzustand[0], lblRindenzustand)};
  CodeField skidding_{Context(), IsLoading, txtVorlieferstufe[0], &txtVorlieferstufe[1],
                      MarkRule("RUCKE", txtVorlieferstufe[0], lblVorlieferstufe)};
};

}  // namespace tarvoni
