#pragma once

#include <string>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/data/sql_text.h"

namespace tarvoni {

class Connection;

// Two list boxes between which entries move: an offer and a selection. Only the boxes change.
class ListPair {
 public:
  struct Buttons {
    Button& select;
    Button& release;
    Button* select_all = nullptr;
    Button* release_all = nullptr;
  };

  ListPair(ListBox& offered, ListBox& selected) : offered_(offered), selected_(selected) {}
  ListPair(const ListPair&) = delete;
  ListPair& operator=(const ListPair&) = delete;

  // What each button does on a click.
  void Connect(const Buttons& buttons);

  // The chosen entry goes to the end of the other list; without one nothing happens.
  void Select();
  void Release();
  // Every entry, from the last to the first.
  void SelectAll();
  void ReleaseAll();

  ListBox& Offered() const { return offered_; }
  ListBox& Selected() const { return selected_; }

  Event<> Selecting;  // before an entry goes into the selection
  Event<> Released;   // after one has left it

 private:
  ListBox& offered_;
  ListBox& selected_;
};

// Adds the first column of each row of the statement; clears nothing.
void AddRows(Connection& connection, ListBox& box, const SqlText& statement);
// The texts of all entries.
std::vector<std::string> EntryTexts(const ItemList& list);
// All entries as an IN takes them: "'a','b'". Nothing for an empty list; a quote inside an entry is an error.
SqlText InList(const ItemList& list);
// The same as a text that goes elsewhere: a quote inside an entry stays as it stands.
std::string QuotedEntries(const ItemList& list);

}  // namespace tarvoni
