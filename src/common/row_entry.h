#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

#include "src/common/screen.h"

namespace tarvoni {

// The entry of one row of a list, from "Neu" or "Bearbeiten" to saving or cancelling. The tag of the new button is
// "YES" while the row is new. What a step writes is committed before tag, state and keys change, so that the Screen
// keeps step with the database, and a save that fails keeps what was typed.
class RowEntry {
 public:
  struct Buttons {
    Button& create;
    Button& edit;
    Button& cancel;
    Button* close_when_empty = nullptr;  // pressed when cancelling leaves an empty list
  };

  // A Screen needs no step that it leaves out.
  struct Steps {
    std::function<void(bool view)> set_view = {};
    // What a new row writes at once; gives its id.
    std::function<std::int32_t()> create = {};
    // Sets the fields of a new row; gives where its entry begins.
    std::function<Control&()> fill = {};
    // False if this row may not be edited, of which the user has been told.
    std::function<bool()> may_edit = {};
    // Where editing begins.
    std::function<Control&()> first = {};
    // Tests what was typed, then writes it and gives the row's id; nothing if a test failed, of which the user has been
    // told.
    std::function<std::optional<std::int32_t>()> save = {};
    // Removes what `create` wrote.
    std::function<void()> discard = {};
    // Reads the list anew.
    std::function<void()> reload = {};
  };

  // `current_id` is the Screen's: the row on which it stands, 0 for none.
  RowEntry(Screen& screen, RowList& list, std::int32_t& current_id, Buttons buttons, Steps steps);
  RowEntry(const RowEntry&) = delete;
  RowEntry& operator=(const RowEntry&) = delete;

  bool IsNew() const { return buttons_.create.Tag() == "YES"; }
  // The state in which the Screen opens: a new row if the list is empty, view otherwise.
  void Begin();
  // Saves and leaves through the cancel button, with nothing to discard. False if the entry goes on.
  bool Save();
  // Asks, deletes the current row, stands on the row that then has its place, and reloads the list.
  void Delete(const std::function<SqlText(std::int32_t id)>& statement);

 private:
  void StartNew();
  void StartEditing();
  void Cancel();

  Screen& screen_;
  RowList& list_;
  std::int32_t& current_id_;
  Buttons buttons_;
  Steps steps_;
};

}  // namespace tarvoni
