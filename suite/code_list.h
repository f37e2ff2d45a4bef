#pragma once

#include <span>
#include <string_view>

#include "suite/statement_values.h"

namespace tarvoni::suite {

// How a typed code is compared. A text that is no number is no error, it just equals none.
enum class CodeKind { kText, kNumber, kPath };

// One list of codes. The statement that offers them (STEM_GRID) and the one that checks a typed code (STEM_VALID) read
// the same rows, so that a check admits what the list offers and nothing else.
struct CodeList {
  std::string_view stem;
  std::string_view offer_suffix = "_GRID";   // "" for a list that is never offered
  std::string_view check_suffix = "_VALID";  // "" for one that is never checked
  // Tables and condition: a text, or made of the values.
  SqlText fixed_rows = {};
  SqlText (*rows)(const StatementValues& values) = nullptr;
  // Columns, and what the statements call them: the names of a check are those that its callers ask for.
  SqlText id = "ID";
  SqlText code = {};
  SqlText code_heading = "NUMMER";
  SqlText name = {};
  SqlText checked_name = "[LONG]";
  SqlText further = {};  // columns of the offer
  CodeKind kind = CodeKind::kText;
  std::size_t width = 0;         // digits shorter than this also match with zeros before them
  ValueCount values = {};        // beside the typed code
  bool takes_condition = false;  // a condition of the caller narrows the rows

  bool Offers(std::string_view key) const { return IsKey(key, offer_suffix); }
  bool Checks(std::string_view key) const { return IsKey(key, check_suffix); }
  SqlText Offer(const NamedValues& given) const;
  SqlText Check(const NamedValues& given) const;
  bool IsKey(std::string_view key, std::string_view suffix) const;
};

std::span<const CodeList> CodeLists();

}  // namespace tarvoni::suite
