#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/data/sql_text.h"

namespace tarvoni::host {

// What must hold for the data: a sentence for the user, and a statement that gives the keys of the rows for which it
// does not, in columns named after what they are.
struct Invariant {
  std::string sentence;
  SqlText statement;
};

// A column whose values, unless NULL, must occur in a column of another table.
struct Reference {
  std::string_view table, key, column;
  std::string_view target, target_column;
  bool zero_is_none = false;  // a 0 stands for nothing
};

// Rules beyond the references.
std::span<const Invariant> Rules();
std::span<const Reference> References();
Invariant InvariantOf(const Reference& reference);

// All of them.
std::vector<Invariant> Invariants();

}  // namespace tarvoni::host
