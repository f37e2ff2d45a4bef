#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/data/statement.h"

namespace tarvoni::suite {

// Which values a statement takes: as many as its caller may leave out stand between `least` and `most`.
struct ValueCount {
  std::size_t least = 0;
  std::size_t most = 0;
};

// The values of a catalogue statement: given as one text, parted by tabs. Each enters the statement as a literal,
// so that no typed text becomes part of the command.
class StatementValues {
 public:
  explicit StatementValues(std::string_view parameter);

  // A condition that the caller wrote itself, as " AND PRODUKT_ID = 5", is told by its beginning, wherever it stands.
  // It is taken out if the rest still holds `least` values. Of two, one was typed: the values do not fit.
  void TakeCondition(std::string_view beginning, std::size_t least);
  // The code that the user typed, behind all other values or before them.
  void TakeTyped(bool stands_first);
  // Too few values are a CallError. Too many come from a tab in a typed text, which no code has: Fits is false.
  void Require(ValueCount count);
  bool Fits() const { return fits_; }

  // A number of this program, 0 for an empty or a missing value; a text that is none is an error.
  SqlText Key(std::size_t index) const;
  bool Has(std::size_t index) const { return index < values_.size() && !values_[index].empty(); }
  // The value for a place between quotes.
  SqlText Quoted(std::size_t index) const;
  // " AND (…)", or nothing. The parentheses keep the condition from being anything else; one that closes them
  // itself is a syntax error.
  SqlText Condition() const;
  const std::string& TypedCode() const { return typed_; }

 private:
  const std::string& At(std::size_t index) const;

  std::vector<std::string> values_;
  std::string condition_;
  std::string typed_;
  bool typed_first_ = false;
  bool fits_ = true;
};

}  // namespace tarvoni::suite
