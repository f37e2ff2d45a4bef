#pragma once

#include <string>
#include <vector>

#include "src/context/data/named_value.h"
#include "src/context/data/statement.h"

namespace tarvoni::suite {

// How many given values a statement takes: as many as its caller may leave out stand between `least` and `most`.
struct ValueCount {
  std::size_t least = 0;
  std::size_t most = 0;
};

// The values of a catalogue statement, sorted by what they are. Each enters the statement as a literal.
class StatementValues {
 public:
  // A CallError for given values that are too few or too many, and for a condition where none is taken.
  StatementValues(const NamedValues& values, ValueCount count, bool takes_condition);

  // A number of this program, 0 for an empty or a missing value; a text that is none is an error.
  SqlText Key(std::size_t index) const;
  bool Has(std::size_t index) const { return index < given_.size() && !given_[index].empty(); }
  Quoted Text(std::size_t index) const;
  // " AND (…)", or nothing.
  SqlText Condition() const;
  // Without blanks around it; "" if nothing was typed.
  const std::string& TypedCode() const { return typed_; }

 private:
  const std::string& At(std::size_t index) const;

  std::vector<std::string> given_;
  SqlText condition_;
  std::string typed_;
};

}  // namespace tarvoni::suite
