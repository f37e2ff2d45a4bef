#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "src/context/controls/form.h"
#include "src/context/data/database.h"
#include "src/context/data/tvn_var_dll.h"

namespace tarvoni {

// The forest locations of a natural execution in a list box: an entry's text is the path, its number ID_WALDORT.
class ForestLocations {
 public:
  explicit ForestLocations(ListBox& list) : list_(list) {}

  bool Empty() const { return list_.ListCount() == 0; }
  // Of all entries; one that was chosen twice stands twice.
  std::vector<std::int32_t> Ids() const;
  void Clear() { list_.Clear(); }
  void Add(std::int32_t id, std::string_view path) { list_.AddItem(path, id); }
  // Adds what the user chooses in the tree.
  void Pick(const TvnVar_Dll& context);
  void RemoveChosen();

  // False if a location lies beneath another of the list, in whatever order they stand.
  bool NoneBeneathAnother(Connection& connection) const;

 private:
  ListBox& list_;
};

}  // namespace tarvoni
