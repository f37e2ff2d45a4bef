#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "src/common/row_entry.h"
#include "src/piecework/natural_entry.h"

namespace tarvoni {

// The lines of one wage order, each with at most one natural execution: what the Screens of time wage and of other
// piecework do alike. An order without lines has one row, whose ID is NULL.
class WageLines : public Screen {
 public:
  void Run(const TvnVar_Dll& tvnvar, std::int32_t client, std::int32_t order);

 protected:
  // What the Screens call differently.
  struct Names {
    std::string form;
    std::string data;
    std::string grid;
    std::string layout_key;
    std::string unit;          // the boxes of the unit for cost accounting
    std::int32_t caption = 0;  // number of a message
  };
  explicit WageLines(const Names& names);

  // --- what each Screen adds ---
  virtual SqlText Lines() const = 0;
  virtual void ShowOrder(const CurrentRow& row) = 0;
  virtual void SetViewState(bool view) = 0;
  // The box where new and changed rows begin.
  virtual TextBox& FirstBox() = 0;
  // Columns beside those of every line.
  virtual std::vector<ShownColumn> FurtherColumns() const { return {}; }
  virtual void ShowFurther(const CurrentRow& /*row*/) {}
  virtual void ClearFurther() {}
  // Tests that come before all writes; a failed one is an error.
  virtual void TestOrder() const {}
  virtual void WriteOrder() const = 0;
  virtual SqlText UpdateLine(std::int32_t line) const = 0;

  void ReloadAndReposition();
  CurrentRow Line() const { return lines_.Row(); }
  bool HasLine() const { return !Line().IsNull("ID"); }
  bool MonthClosed() const { return Line().Number("MODIFY") == 1; }

  // Pieces of both surfaces.
  layout::Node NaturalGroup();
  layout::Node ButtonBar();

  std::int32_t ID_Mandant_dll = 0;
  std::int32_t ID_ARA_Kopf_dll = 0;
  std::int32_t CurrentLineId = 0;
  Guard IsLoading;

  DataControl AdodcLines;
  DataGrid DataGridLines;

  Frame frmKennzeichen{*this, "frmKennzeichen"};
  CheckBox chkWerkzeuggeld{*this, "chkWerkzeuggeld"};
  CheckBox chkARAUntypisch{*this, "chkARAUntypisch"};

  Frame frmErfassung{*this, "frmErfassung"};
  Label lblHolzart{*this, "lblHolzart"};
  ControlArray<TextBox, 2> txtHolzart{*this, "txtHolzart"};
  Label lblFlache{*this, "lblFlache"};
  TextBox txtFlache{*this, "txtFlache"};
  Label lblMengeKLR{*this, "lblMengeKLR"};
  TextBox txtMenge{*this, "txtMenge"};
  ControlArray<TextBox, 2> txtMengeeinheit;

  Frame frmNaturalvollzug{*this, "frmNaturalvollzug"};

  Button btnNeu{*this, "btnNeu"};
  Button btnBearbeiten{*this, "btnBearbeiten"};
  Button btnSpeichern{*this, "btnSpeichern"};
  Button btnAbbrechen{*this, "btnAbbrechen"};
  Button btnLoschen{*this, "btnLoschen"};
  Button btnClose{*this, "btnClose"};

  RowList lines_;
  RowEntry entry_{*this, lines_, CurrentLineId, {btnNeu, btnBearbeiten, btnAbbrechen}, EntrySteps()};
  NaturalEntry natural_{*this,
                        Context(),
                        IsLoading,
                        {.height_box = "txtAstungshohe",
                         .add_button = "btnWaldortEinfugen",
                         .remove_button = "btnWaldortLoschen",
                         .activity = [this] { return Activity(); }}};

 private:
  RowEntry::Steps EntrySteps();
  CodeField::Rule SpeciesRule();
  std::vector<ShownColumn> Columns() const;
  SqlText Activity() const;
  void ShowCurrentLine();
  std::string LineShown() const;
  void NameSubject(const std::string& line);
  void ShowLocations(const CurrentRow& row);
  void PrepareNewLine();

  std::optional<std::int32_t> Save();
  bool CheckWaldortList();
  bool CheckLine(bool with_natural);
  std::int32_t SaveNewLine(const std::optional<natural_sql::Values>& natural);
  void StoreNatural(std::int32_t line, std::int32_t id, const std::optional<natural_sql::Values>& values);

  std::int32_t caption_;
  CodeField species_{Context(), IsLoading, txtHolzart[0], &txtHolzart[1], SpeciesRule()};
};

}  // namespace tarvoni
