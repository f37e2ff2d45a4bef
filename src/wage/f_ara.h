#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/common/code_field.h"
#include "src/common/row_entry.h"
#include "src/context/values/decimal.h"

namespace tarvoni {

// The wage orders of one client in the standard forest year. List, selection and lookups stand in f_ara.cpp;
// creating, saving, cancelling and the total in f_ara_save.cpp.
class F_ARA : public Screen {
 public:
  F_ARA();
  // `strPersonal_dll` is the client's id as text; `mode_dll` has no effect here.
  void Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t mode_dll);

 protected:
  layout::Node BuildLayout() override;

 private:
  // --- the list and its current row (f_ara.cpp) ---
  void ConnectFields();
  void ConnectButtons();
  void LoadGridAndPosition();
  std::vector<ShownColumn> Columns() const;
  void ShowCurrentRow();
  void SetViewState(bool bolView);
  // The price of an order's direct hours, by the group of its service; read once.
  const SqlText& StundenCase();
  void ProductOrderLeft();
  void CostCentreLeft();
  void SelectionChanged();
  SqlText ProductOrderFilter() const;
  SqlText WorkTypeFilter() const;

  CodeField::Rule SelectedCostCentreRule();
  CodeField::Rule SelectedWorkTypeRule();
  CodeField::Rule ServiceRule();
  CodeField::Rule CostCentreRule();
  CodeField::Rule ProductOrderRule();
  CodeField::Rule WorkTypeRule();
  CodeField::Rule TeamRule();

  // What limits the list, codes and names, as it was when the list was read.
  struct Selection {
    struct Shown {
      std::string text = {}, tag = {};
    };
    std::array<TextBox*, 4> boxes;
    std::array<Shown, 4> shown = {};
    void Remember();
    void PutBack();
  };

  // --- what is written (f_ara_save.cpp) ---
  RowEntry::Steps EntrySteps();
  std::int32_t CreateNewAra();
  Control& FillNewAra();
  void ClearFields();
  std::optional<std::int32_t> Save();
  void EndEdit();
  bool TakeNumber();
  bool ProductOrderGiven();
  void Storno();
  std::optional<DateTime> AskStornoDay();
  void OpenVorgaben();
  void OpenStunden();
  Decimal CalculateGesamtKosten();
  void WriteGesamtKosten();
  // The name that a saved order has: cost centre, year and number.
  std::string OrderName() const;

  std::int32_t curPersonal = 0;
  std::string curFwj;
  std::int32_t curAraId = 0;
  std::int32_t curProduktId = 0;
  std::int32_t new_number_ = 0;  // of an order just made
  Guard loadingFlag;
  SqlText stundenCaseText;
  bool saVerfahrenFlag = false;

  DataControl AdodcArbeitsauftrag{*this, "AdodcArbeitsauftrag"};
  DataGrid DataGridArbeitsauftrag{*this, "DataGridArbeitsauftrag"};

  Frame frmArbeitsauftrag{*this, "frmArbeitsauftrag"};
  Label lblForstbetrieb{*this, "lblForstbetrieb"};
  TextBox txtForstbetrieb{*this, "txtForstbetrieb"};
  Label lblFWJ{*this, "lblFWJ"};
  TextBox txtFWJ{*this, "txtFWJ"};
  Label lblArbeitsauftrag{*this, "lblArbeitsauftrag"};
  TextBox txtArbeitsauftrag{*this, "txtArbeitsauftrag"};
  Label lblErstellungsDatum{*this, "lblErstellungsDatum"};
  TextBox txtErstellungsDatum{*this, "txtErstellungsDatum"};
  Label lblLeistung{*this, "lblLeistung"};
  ControlArray<TextBox, 2> txtLeistung{*this, "txtLeistung"};
  Label lblRotte{*this, "lblRotte"};
  ControlArray<TextBox, 2> txtRotte{*this, "txtRotte"};

  Frame frmZuordnungPA{*this, "frmZuordnungPA"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  ControlArray<TextBox, 2> txtKostenstelle{*this, "txtKostenstelle"};
  Label lblProduktauftragNr{*this, "lblProduktauftragNr"};
  ControlArray<TextBox, 2> txtProduktauftragNr{*this, "txtProduktauftragNr"};
  Label lblLeistungsart{*this, "lblLeistungsart"};
  ControlArray<TextBox, 2> txtLeistungsart{*this, "txtLeistungsart"};
  Label lblWaldort{*this, "lblWaldort"};
  TextBox txtWaldort{*this, "txtWaldort"};

  Frame frmBeschreibung_der_Arbeit{*this, "frmBeschreibung_der_Arbeit"};
  TextBox txtBegrundung_der_Anordnung{*this, "txtBegrundung_der_Anordnung"};

  Frame frmSummen{*this, "frmSummen"};
  Label lblFlache{*this, "lblFlache"};
  TextBox txtFlache{*this, "txtFlache"};
  Label lblFlacheHinweis{*this, "lblFlacheHinweis"};
  Label lblMenge{*this, "lblMenge"};
  TextBox txtMenge{*this, "txtMenge"};
  TextBox txtMengeEinhait{*this, "txtMengeEinhait"};
  Label lblMengeHinweis{*this, "lblMengeHinweis"};
  Label lblStunden_dir_Lohn{*this, "lblStunden_dir_Lohn"};
  TextBox txtStunden_dir_Lohn{*this, "txtStunden_dir_Lohn"};
  Label lblGesamtKosten{*this, "lblGesamtKosten"};
  TextBox txtGesamtKosten{*this, "txtGesamtKosten"};

  Frame frmSelektion{*this, "frmSelektion"};
  Label lblKostenstelleSel{*this, "lblKostenstelleSel"};
  ControlArray<TextBox, 2> txtKostenstelleSel{*this, "txtKostenstelleSel"};
  Label lblLeistungsartSel{*this, "lblLeistungsartSel"};
  ControlArray<TextBox, 2> txtLeistungsartSel{*this, "txtLeistungsartSel"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnSpeichernNew{*this, "btnSpeichernNew"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnStorno{*this, "btnStorno"};
  Button btnStornoNew{*this, "btnStornoNew"};
  Button btnVorgaben{*this, "btnVorgaben"};
  Button btnStunden{*this, "btnStunden"};
  Button btnClose{*this, "btnClose"};

  RowList orders_{*this,
                  loadingFlag,
                  {.data = AdodcArbeitsauftrag,
                   .grid = DataGridArbeitsauftrag,
                   .layout_key = "F_ARBEITSAUFTRAG_ARA",
                   .id_column = "ID_ARA_KOPF"}};
  Selection selection_{.boxes = {&txtKostenstelleSel[0], &txtKostenstelleSel[1], &txtLeistungsartSel[0],
                                 &txtLeistungsartSel[1]}};
  RowEntry entry_{*this, orders_, curAraId, {btnNeu, btnBearbeiten, btnAbbrechen}, EntrySteps()};
  CodeField kostenstelleSel_{Context(), loadingFlag, txtKostenstelleSel[0], &txtKostenstelleSel[1],
                             SelectedCostCentreRule()};
  CodeField leistungsartSel_{Context(), loadingFlag, txtLeistungsartSel[0], &txtLeistungsartSel[1],
                             SelectedWorkTypeRule()};
  CodeField leistung_{Context(), loadingFlag, txtLeistung[0], &txtLeistung[1], ServiceRule()};
  CodeField kostenstelle_{Context(), loadingFlag, txtKostenstelle[0], &txtKostenstelle[1], CostCentreRule()};
  CodeField produktauftrag_{Context(), loadingFlag, txtProduktauftragNr[0], nullptr, ProductOrderRule()};
  CodeField leistungsart_{Context(), loadingFlag, txtLeistungsart[0], &txtLeistungsart[1], WorkTypeRule()};
  CodeField rotte_{Context(), loadingFlag, txtRotte[0], &txtRotte[1], TeamRule()};
  CodeField waldort_{Context(), loadingFlag, txtWaldort, nullptr, LocationCode(Context(), txtWaldort)};
};

}  // namespace tarvoni
