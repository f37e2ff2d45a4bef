#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "src/common/screen.h"

namespace tarvoni {

// A box for a code: Ctrl opens the list of codes, leaving checks the typed one (Rules::Code connects both). The code's
// id is the box's Tag, its name goes into a companion box.
class CodeField {
 public:
  // What stands behind a typed code; id 0 for none.
  struct Found {
    std::int32_t id = 0;
    std::string name = {};
  };
  struct Rule {
    std::function<SqlText()> offered = {};  // statement of the list, its first column is the code
    std::function<SqlText()> check = {};    // statement that finds the typed code
    std::function<Found(const std::string& typed)> find = {};  // in place of `check`: finds the typed code
    std::function<std::string()> caption = {};  // of the list, and of a code that `find` misses
    std::string name_column = {};               // of the companion box
    std::string option = {};                    // of LookupDialog
    std::function<std::string(const std::string& current)> pick = {};  // a choice other than the list
    // Behind the list's further button (option "102"): may fill the box; the list then opens again.
    std::function<void()> make_new = {};
    bool opens_locked = false;  // the list also opens on a locked box
    bool keeps_focus = true;    // a wrong code takes the focus back
    bool keeps_tag = false;     // a wrong code leaves the old Tag, until the emptied box is left
  };

  // `loading` silences the warning while the Screen fills its fields.
  CodeField(const TvnVar_Dll& context, const Guard& loading, TextBox& code, TextBox* companion, Rule rule);
  CodeField(const CodeField&) = delete;
  CodeField& operator=(const CodeField&) = delete;

  TextBox& Box() const { return code_; }
  // The list opens only on an open box, unless the rule tells otherwise.
  bool MayLookUp() const { return rule_.opens_locked || !code_.Locked(); }
  // Fills the box from the list and checks it; a cancelled list changes nothing.
  void Lookup();
  // The check on leaving. An empty box clears Tag and companion without a word; a wrong code clears all and
  // takes the focus back. True if the box holds a valid code.
  bool Check();
  void Clear();

  // The id behind the code changed, valid or cleared.
  Event<> Changed;

 private:
  std::string Picked();
  bool Validate();
  void Forget();
  bool TakeFound(bool report);

  const TvnVar_Dll& context_;
  const Guard& loading_;
  TextBox& code_;
  TextBox* companion_;
  Rule rule_;
};

// The rule of a field over the catalogue: keys STEM_GRID and STEM_VALID. `values` makes the values of both
// statements; the check adds the typed code.
CodeField::Rule NamedCode(const TvnVar_Dll& context, const TextBox& code, const Label& label,
                          const std::string& stem, const std::string& name_column,
                          std::function<NamedValues()> values);

// The rule of a forest location, chosen from the tree: the box holds its path, without the long name.
CodeField::Rule LocationCode(const TvnVar_Dll& context, const TextBox& box);

}  // namespace tarvoni
