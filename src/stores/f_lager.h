#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/common/budget_code.h"
#include "src/common/payee.h"
#include "src/common/row_entry.h"

namespace tarvoni {

// The stores documents of a client: deliveries with the data of their invoice and its payment. Their goods are edited
// in F_Positionen. Fields and list stand in f_lager.cpp, what is written in f_lager_save.cpp.
class F_Lager : public Screen {
 public:
  F_Lager();
  // `strPersonal_dll` is the client's id, behind "F_POS" if the caller wants a position to be handed over: it then comes
  // back in `strSelektion_Fr_Wh_dll`, which must not be empty for that. With `mode_dll` 2 the list stands on the document
  // of the current voucher. `strSelektionFormula_dll` has no effect here.
  void Run(const TvnVar_Dll& tvnvar, const std::string& strPersonal_dll, std::uint8_t mode_dll,
           std::string& strSelektion_Fr_Wh_dll, std::string& strSelektionFormula_dll);

  // True if the position, or without one (0) anything of the document, is drawn onto cost positions in force; the user
  // has then been told.
  static bool notModify(const TvnVar_Dll& context, std::int32_t Lager_ID, std::int32_t Pos_ID);

  // --- what F_Positionen asks of the document it belongs to ---
  // kYes if the caller wants a position; the position's id once it was handed over.
  const std::string& FromPositions() const { return fromPositions; }
  // What the caller gave; "" if he takes nothing back.
  const std::string& Selection() const { return selektion; }
  void HandOver(std::int32_t position) { fromPositions = std::to_string(position); }
  const TextBox& InvoiceAmount() const { return txtRechnungsBeitrag; }

  // Stands before the client's id of a caller who wants a position, and before the position he gets.
  static constexpr std::string_view kPositionMark = "F_POS";
  static constexpr const char* kYes = "YES";

 protected:
  layout::Node BuildLayout() override;

 private:
  void ConnectFields();
  void ConnectButtons();
  void Reload();
  void LoadList();
  void StandOnVouchersDocument();
  std::vector<ShownColumn> Columns() const;
  void ShowCurrentRow();
  void NameSubject(const std::string& document);
  void SetViewState(bool view);

  RowEntry::Steps EntrySteps();
  Control& FillNew();
  std::optional<std::int32_t> Save();
  bool NumberIsFree();
  std::int32_t InsertDocument();
  void WriteFields(std::int32_t id) const;
  void Delete();
  void OpenPositions();

  std::int32_t curPersonal = 0;
  std::int32_t curId = 0;
  std::string client_number_;
  std::uint8_t mode_ = 0;
  std::string selektion;
  std::string fromPositions;
  Guard loading_;

  DataControl Data1{*this, "Data1"};
  Timer Timer1{*this, "Timer1"};
  Frame Frame4{*this, "Frame4"};

  Frame frmHaushalt{*this, "frmHaushalt"};
  Label lblKapitel{*this, "lblKapitel"};
  TextBox txtKapitelN{*this, "txtKapitelN"};
  TextBox txtKapitel{*this, "txtKapitel"};
  Label lblTitel{*this, "lblTitel"};
  TextBox txtTitelN{*this, "txtTitelN"};
  TextBox txtTitel{*this, "txtTitel"};
  Label lblHul{*this, "lblHul"};
  TextBox txtHul{*this, "txtHul"};
  Label lblTag{*this, "lblTag"};
  DateControl dtpDatumHaus{*this, "dtpDatumHaus"};

  Frame FrmBeleg{*this, "FrmBeleg"};
  Label lblNummer{*this, "lblNummer"};
  TextBox txtBelegNr{*this, "txtBelegNr"};
  Label lblBuchDatum{*this, "lblBuchDatum"};
  DateControl dtpDatumBeleg{*this, "dtpDatumBeleg"};

  Frame frmRechnung{*this, "frmRechnung"};
  Label lblRechnummer{*this, "lblRechnummer"};
  TextBox txtRechnungsNr{*this, "txtRechnungsNr"};
  Label lblRechDatum{*this, "lblRechDatum"};
  DateControl dtpDatumRech{*this, "dtpDatumRech"};
  Label lblRechnungsBeitrag{*this, "lblRechnungsBeitrag"};
  TextBox txtRechnungsBeitrag{*this, "txtRechnungsBeitrag"};
  ComboBox txtValuta{*this, "txtValuta"};

  Frame frmZuhlung{*this, "frmZuhlung"};
  Label lblZuhlungsart{*this, "lblZuhlungsart"};
  TextBox txtZuhlungsartN{*this, "txtZuhlungsartN"};
  TextBox txtZuhlungsart{*this, "txtZuhlungsart"};
  Label lblZuhlungsgrund{*this, "lblZuhlungsgrund"};
  TextBox txtZuhlungsgrundN{*this, "txtZuhlungsgrundN"};
  TextBox txtZuhlungsgrund{*this, "txtZuhlungsgrund"};
  Label lblZuhlungsempanger{*this, "lblZuhlungsempanger"};
  TextBox txtZuhlungsempanger{*this, "txtZuhlungsempanger"};
  TextBox txtZuhlungsemp{*this, "txtZuhlungsemp"};
  Button btnZuhlung{*this, "btnZuhlung"};
  Button btnDeleteMan{*this, "btnDeleteMan"};

  Frame Frame1{*this, "Frame1"};
  DataGrid DataGrid1{*this, "DataGrid1"};
  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnPositionen{*this, "btnPositionen"};
  Button btnOk{*this, "btnOk"};

  RowList documents_{*this, loading_, {.data = Data1, .grid = DataGrid1}};
  RowEntry entry_{*this, documents_, curId, {btnNeu, btnBearbeiten, btnAbbrechen, &btnOk}, EntrySteps()};
  // The list is read anew once the event that asked for it has ended its work.
  DeferredCall find_saved_{Timer1, [this] { documents_.Find(curId); }};
  BudgetCode chapter_;
  BudgetCode title_;
  BudgetCode payment_kind_;
  BudgetCode payment_reason_;
  Payee payee_{Context(), txtZuhlungsempanger, &txtZuhlungsemp};
};

}  // namespace tarvoni
