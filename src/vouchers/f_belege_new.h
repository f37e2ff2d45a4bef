#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/common/activity.h"
#include "src/common/code_field.h"
#include "src/common/date_field.h"
#include "src/common/payee.h"
#include "src/common/position_codes.h"
#include "src/common/row_list.h"
#include "src/common/screen.h"

namespace tarvoni {

namespace voucher_sql {
struct Header;
struct Row;
}  // namespace voucher_sql

// The vouchers of a client, each spread over cost positions of work orders. List, header and states stand in
// f_belege_new.cpp, the rest by name in f_belege_new_{codes,entry,header,rows,storno,natural}.cpp.
class F_Belege_New : public Screen {
 public:
  F_Belege_New();
  // The mode that shows the vouchers of the work orders' current position and changes nothing.
  static constexpr std::uint8_t kOfCurrentPosition = 2;
  // `strPersonal_dll` is the client's id as text.
  void Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t mode_dll);

  // LAGER.ID of the stores document that the voucher shown belongs to.
  std::optional<std::int32_t> CurrentDocument() const;

 protected:
  layout::Node BuildLayout() override;

 private:
  layout::Node LayoutVoucher();
  layout::Node LayoutCodes();
  layout::Node LayoutAmounts();

  // --- list, header and states (f_belege_new.cpp) ---
  void Fill();
  void ConnectButtons();
  std::vector<ShownColumn> VoucherColumns() const;
  std::vector<ShownColumn> RowColumns() const;
  void LoadVouchers(std::int32_t voucher, std::int32_t position = 0);
  void ShowVoucher(std::int32_t position);
  void NameSubject();
  void ShowHeader(const CurrentRow& row);
  void LoadRows(std::int32_t voucher, std::int32_t position);
  void ShowRow();
  void ShowRowCodes(const CurrentRow& row);
  void ShowActivity(const CurrentRow& row);
  void ShowCostType(const CurrentRow& row);
  void ShowRowAmounts(const CurrentRow& row);
  void ShowRest();
  void SetViewState(bool view);
  void SetReadOnly();
  bool ReadOnly() const { return screenMode == kOfCurrentPosition; }
  bool IsNewEntry() const { return btnNeu.Tag() == "YES"; }
  DataGrid& CurrentGrid() { return SSTab1.Tab() == 0 ? DataGridBelege : DataGridKLR; }
  void FindVoucher();

  // --- codes (f_belege_new_codes.cpp) ---
  void ConnectFields();
  std::vector<Control*> EnterOrder();
  void ConnectAmounts();
  Client OfClient();
  CodeField::Rule BudgetRule(const Label& label, const std::string& table);
  CodeField::Rule ProductRule();
  CodeField::Rule OrderRule();
  CodeField::Rule ActivityRule();
  CodeField::Rule CostTypeRule();
  void MakeOrder();
  void CostCentreChanged();
  void OrderLeft();
  void ActivityLeft();
  void TakeActivity();
  void CostTypeLeft();
  void OpenAmounts(bool cost, bool revenue);
  static void Open(TextBox& box, bool open);

  // --- a new entry (f_belege_new_entry.cpp) ---
  void StartNew();
  void ClearHeader();
  void ClearRow();
  void ProposeStoresPosition();
  void ProposeCurrency(bool euro);
  void StartEditing();
  void Cancel();
  void Save();

  // --- the header and its number (f_belege_new_header.cpp) ---
  void SaveHeader();
  voucher_sql::Header TypedHeader() const;
  std::int32_t CodeNow(const std::string& table, const TextBox& box) const;
  template <typename Work>
  auto OfHeader(const Work& work);
  bool NumberIsFree();
  std::int32_t InsertVoucher();

  // --- a row of the allocation (f_belege_new_rows.cpp) ---
  bool RowMayBeSaved();
  bool AnythingEntered();
  bool AmountAgreed();
  bool RefuseRow(const std::string& text, Control& field);
  bool VoucherStillOpen();
  std::int32_t InsertRow(std::int32_t voucher);
  std::int32_t NextOrders(const std::string& header) const;
  voucher_sql::Row TypedRow() const;
  std::string UnitCostOfRow() const;
  // Gives whether the old row's natural execution was left behind.
  bool CopyNaturalExecution(std::int32_t from, std::int32_t to) const;
  std::vector<std::string> ColumnsBeside(std::string_view table, std::string_view key,
                                         std::string_view owner) const;

  // --- cancelling (f_belege_new_storno.cpp) ---
  void Storno();
  void StornoThenNew();
  bool CancelRow();
  bool CancelVoucher();
  bool HasNoTimber(std::int32_t position);

  // --- timber and natural execution (f_belege_new_natural.cpp) ---
  void SetTimberStates();
  void AssignLists();
  void OpenNaturalExecution();

  std::uint8_t screenMode = 0;
  std::int32_t idPersonal = 0;
  bool isNewVoucher = false;   // the voucher has no row yet
  bool stornoThenNew = false;  // btnStornoNew is at work
  bool voucherCancelled = false;
  bool positionCancelled = false;
  std::int32_t stockPositionId = 0;  // the stores position of the current voucher
  bool view_ = true;
  std::string forest_year_;
  std::string client_number_;
  Activity activity_;
  std::int32_t cost_type_ = 0;
  bool revenue_ = false;  // of the cost type
  Guard loading_;

  DataControl AdodcBelege{*this, "AdodcBelege"};
  DataGrid DataGridBelege{*this, "DataGridBelege"};
  DataControl AdodcKLR{*this, "AdodcKLR"};
  DataGrid DataGridKLR{*this, "DataGridKLR"};
  TabControl SSTab1{*this, "SSTab1"};

  Frame Frame1{*this, "Frame1"};
  Frame frmBeleg{*this, "frmBeleg"};
  Label lblDatumBeleg{*this, "lblDatumBeleg"};
  TextBox txtDatumBeleg{*this, "txtDatumBeleg"};
  Label lblBelegNr{*this, "lblBelegNr"};
  TextBox txtBelegNr{*this, "txtBelegNr"};
  Frame frmHaushalt{*this, "frmHaushalt"};
  Label lblKapitel{*this, "lblKapitel"};
  TextBox txtKapitelN{*this, "txtKapitelN"};
  TextBox txtKapitel{*this, "txtKapitel"};
  Label lblTitel{*this, "lblTitel"};
  TextBox txtTitelN{*this, "txtTitelN"};
  TextBox txtTitel{*this, "txtTitel"};
  Label lblHul{*this, "lblHul"};
  TextBox txtHul{*this, "txtHul"};
  Label lblDatumHaus{*this, "lblDatumHaus"};
  TextBox txtDatumHaus{*this, "txtDatumHaus"};
  Frame frmRechnung{*this, "frmRechnung"};
  Label lblRechnungsNr{*this, "lblRechnungsNr"};
  TextBox txtRechnungsNr{*this, "txtRechnungsNr"};
  Label lblDatumRech{*this, "lblDatumRech"};
  TextBox txtDatumRech{*this, "txtDatumRech"};
  Label lblRechnungsBeitrag{*this, "lblRechnungsBeitrag"};
  TextBox txtRechnungsBeitrag{*this, "txtRechnungsBeitrag"};
  ComboBox txtValuta2{*this, "txtValuta2"};
  Frame frmZuhlung{*this, "frmZuhlung"};
  Label lblZuhlungsart{*this, "lblZuhlungsart"};
  TextBox txtZuhlungsartN{*this, "txtZuhlungsartN"};
  TextBox txtZuhlungsart{*this, "txtZuhlungsart"};
  Label lblZuhlungsgrund{*this, "lblZuhlungsgrund"};
  TextBox txtZuhlungsgrundN{*this, "txtZuhlungsgrundN"};
  TextBox txtZuhlungsgrund{*this, "txtZuhlungsgrund"};
  Label lblZuhlungsempanger{*this, "lblZuhlungsempanger"};
  TextBox txtZuhlungsempanger{*this, "txtZuhlungsempanger"};
  Button btnZuhlung{*this, "btnZuhlung"};
  Button btnDeleteMan{*this, "btnDeleteMan"};

  Frame frmData{*this, "frmData"};
  Label lblProdukt{*this, "lblProdukt"};
  TextBox txtProduktN{*this, "txtProduktN"};
  TextBox txtProdukt{*this, "txtProdukt"};
  Label lblKostenstelle{*this, "lblKostenstelle"};
  TextBox txtKostenstelleN{*this, "txtKostenstelleN"};
  TextBox txtKostenstelle{*this, "txtKostenstelle"};
  Label lblName{*this, "lblName"};
  TextBox txtPaN{*this, "txtPaN"};
  TextBox txtPA{*this, "txtPA"};
  Label lblLeistungsart{*this, "lblLeistungsart"};
  TextBox txtLeistungsartN{*this, "txtLeistungsartN"};
  TextBox txtLeistungsart{*this, "txtLeistungsart"};
  Label lblKostenart{*this, "lblKostenart"};
  TextBox txtKostenartN{*this, "txtKostenartN"};
  TextBox txtKostenart{*this, "txtKostenart"};
  Label lblSondermerkmal{*this, "lblSondermerkmal"};
  ControlArray<TextBox, 2> txtSondermerkmal{*this, "txtSondermerkmal"};
  Frame frmBetriebs{*this, "frmBetriebs"};
  Label lblFlache{*this, "lblFlache"};
  TextBox txtFlache{*this, "txtFlache"};
  Label lblMenge{*this, "lblMenge"};
  TextBox txtMenge{*this, "txtMenge"};
  ComboBox txtEinheit{*this, "txtEinheit"};
  OptionButton optMenge{*this, "optMenge"};
  OptionButton optHa{*this, "optHa"};
  Label lblKosten{*this, "lblKosten"};
  TextBox txtKosten{*this, "txtKosten"};
  Label lblErlos{*this, "lblErlos"};
  TextBox txtErlos{*this, "txtErlos"};
  ComboBox txtValuta{*this, "txtValuta"};
  Label lblMehrwertsteuer{*this, "lblMehrwertsteuer"};
  ControlArray<TextBox, 2> txtMehrwertsteuer{*this, "txtMehrwertsteuer"};
  Label lblStunden{*this, "lblStunden"};
  TextBox txtStunden{*this, "txtStunden"};
  Label lblMAS{*this, "lblMAS"};
  TextBox txtMAS{*this, "txtMAS"};
  Frame frmWaldort{*this, "frmWaldort"};
  Label lblWaldort{*this, "lblWaldort"};
  TextBox txtWaldort{*this, "txtWaldort"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnStorno{*this, "btnStorno"};
  Button btnStornoNew{*this, "btnStornoNew"};
  Button btnFind{*this, "btnFind"};
  Button btnHolz{*this, "btnHolz"};
  Button btnNV{*this, "btnNV"};
  Button btnOk{*this, "btnOk"};

  RowList vouchers_{
      *this, loading_, {.data = AdodcBelege, .grid = DataGridBelege, .layout_key = "F_BELEGE_NEW1"}};
  RowList rows_{*this, loading_, {.data = AdodcKLR, .grid = DataGridKLR, .layout_key = "F_BELEGE_NEW2"}};
  DateField datumBeleg_{Context(), loading_, txtDatumBeleg, lblDatumBeleg};
  DateField datumHaus_{Context(), loading_, txtDatumHaus, lblDatumHaus};
  DateField datumRech_{Context(), loading_, txtDatumRech, lblDatumRech};
  Payee payee_{Context(), txtZuhlungsempanger};
  CodeField kapitel_{Context(), loading_, txtKapitelN, &txtKapitel, BudgetRule(lblKapitel, "HH_KAPITEL")};
  CodeField titel_{Context(), loading_, txtTitelN, &txtTitel, BudgetRule(lblTitel, "HH_TITEL")};
  CodeField zuhlungsart_{Context(), loading_, txtZuhlungsartN, &txtZuhlungsart,
                         BudgetRule(lblZuhlungsart, "ZUHLUNGSART")};
  CodeField zuhlungsgrund_{Context(), loading_, txtZuhlungsgrundN, &txtZuhlungsgrund,
                           BudgetRule(lblZuhlungsgrund, "ZUHLUNGSGRUND")};
  CodeField produkt_{Context(), loading_, txtProduktN, &txtProdukt, ProductRule()};
  CodeField kostenstelle_{Context(), loading_, txtKostenstelleN, &txtKostenstelle,
                          CostCentreCode(Context(), txtKostenstelleN, lblKostenstelle, OfClient())};
  CodeField auftrag_{Context(), loading_, txtPaN, &txtPA, OrderRule()};
  CodeField leistungsart_{Context(), loading_, txtLeistungsartN, &txtLeistungsart, ActivityRule()};
  CodeField kostenart_{Context(), loading_, txtKostenartN, &txtKostenart, CostTypeRule()};
  CodeField sondermerkmal_{Context(), loading_, txtSondermerkmal[0], &txtSondermerkmal[1],
                           FeatureCode(Context(), txtSondermerkmal[0], lblSondermerkmal)};
  CodeField mehrwertsteuer_{Context(), loading_, txtMehrwertsteuer[0], &txtMehrwertsteuer[1],
                            NamedCode(Context(), txtMehrwertsteuer[0], lblMehrwertsteuer, "MWST", "LONG",
                                      [] { return NamedValues{}; })};
  CodeField waldort_{Context(), loading_, txtWaldort, nullptr, LocationCode(Context(), txtWaldort)};
};

}  // namespace tarvoni
