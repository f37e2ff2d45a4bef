#pragma once

#include <functional>
#include <string>

#include "src/common/code_field.h"
#include "src/common/current_row.h"
#include "src/piecework/forest_locations.h"
#include "src/piecework/natural_sql.h"

namespace tarvoni {

// The natural execution as Screens enter it: an execution mark, the four groups of data of which a mark demands some,
// and the forest locations. A box's Tag is the id behind its code.
class NaturalEntry {
 public:
  // What differs from Screen to Screen.
  struct Shape {
    std::string height_box;
    std::string add_button;
    std::string remove_button;
    std::function<SqlText()> activity;               // LEISTUNGSART.ID, as statements get it
    std::function<SqlText()> stand_types = nullptr;  // offered in place of the named list
  };

  // `loading` is set while the Screen fills its fields.
  NaturalEntry(Form& form, const TvnVar_Dll& context, Guard& loading, Shape shape);
  NaturalEntry(const NaturalEntry&) = delete;
  NaturalEntry& operator=(const NaturalEntry&) = delete;

  bool HasMark() const { return !txtNutzungsart[0].Tag().empty(); }
  // Without mark, data and locations.
  void Clear();
  // Takes a mark, "" for none, as if it had been typed.
  void Propose(const std::string& mark);
  // The columns that every statement calls alike: the codes of the origin with their ids, and what is plain text.
  void ShowData(const CurrentRow& row);
  // Opens the groups that the mark demands; empties and locks the others. A mark that is not permitted changes none.
  void ApplyExecutionMarkRules();
  // An error with one sentence unless the one with this id, 0 for none, is still among the rows that the owner has:
  // another workstation may have entered or removed it.
  static void RequireStill(std::int32_t id, Recordset owned);
  // What a save writes. Mark and target type come from the Tags.
  natural_sql::Values Values() const;

  Label lblNutzungsart;
  ControlArray<TextBox, 2> txtNutzungsart;
  Label lblBestandeszieltyp;
  ControlArray<TextBox, 2> txtBestandeszieltyp;
  Label lblHerkunft;
  TextBox txtBundesland;
  TextBox txtLandesstelle;
  TextBox txtBaum_Herk;
  TextBox txtLFD_Nummer;
  TextBox txtKategorie;
  TextBox txtHerkunft;
  Label lblAstungshohe;
  TextBox txtAstungshohe;
  CheckBox chkZaunbau;
  Label lblWaldort;
  ListBox ListWaldort;
  Button btnWaldortEinfugen;
  Button btnWaldortLoschen;

  ForestLocations locations{ListWaldort};

 private:
  CodeField::Rule MarkRule();
  CodeField::Rule StandTypeRule();
  CodeField::Rule OriginRule(const TextBox& box, const std::string& stem, const std::string& caption);
  void Connect();
  void MarkLeft();
  void Demand(bool stand_type, bool origin, bool height, bool fence);

  const TvnVar_Dll& context_;
  Guard& loading_;
  Shape shape_;
  bool mark_changed_ = false;  // since the rules were applied
  CodeField mark_;
  CodeField stand_type_;
  CodeField state_;
  CodeField origin_;
  CodeField category_;
};

}  // namespace tarvoni
