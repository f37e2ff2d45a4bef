#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvoni::qt {

// How well a row answers what was typed, the best last.
enum class Fit {
  kNone,
  kWords,       // each word stands somewhere in the row
  kInside,      // inside a cell
  kFront,       // at the front of a cell
  kFirstFront,  // at the front of the first cell
  kFirst,       // it is the first cell
};
inline constexpr int kFits = 6;

// A row's cells made ready for the search: without regard to case and accents, 'ß' as "ss"; a cell with umlauts also
// counts with them written out ("Müller": "muller" and "mueller").
class SearchRow {
 public:
  void Add(std::string_view cell);
  const std::string& Text() const { return text_; }

 private:
  std::string text_;
};

// What the user typed to find a row. "müller" finds "Müller" and "Mueller", "holz 12" rows with both words.
class SearchQuery {
 public:
  explicit SearchQuery(std::string_view typed);
  bool Empty() const { return forms_.empty(); }
  Fit FitOf(const SearchRow& row) const;

 private:
  std::vector<std::string> forms_;               // the typed text, and with umlauts written out
  std::vector<std::vector<std::string>> words_;  // the same for each word
};

}  // namespace tarvoni::qt
