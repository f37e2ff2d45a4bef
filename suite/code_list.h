#pragma once

#include <span>
#include <string>
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
  std::string_view fixed_rows = {};
  std::string (*rows)(const StatementValues& values) = nullptr;
  // Columns, and what the statements call them: the names of a check are those that its callers ask for.
  std::string_view id = "ID";
  std::string_view code;
  std::string_view code_heading = "NUMMER";
  std::string_view name;
  std::string_view checked_name = "[LONG]";
  std::string_view further = {};  // columns of the offer
  CodeKind kind = CodeKind::kText;
  std::size_t width = 0;            // digits shorter than this also match with zeros before them
  ValueCount values = {};           // beside the typed code
  bool typed_first = false;         // the typed code stands before the other values
  std::string_view condition = {};  // how a condition of the caller begins; "" if it takes none

  bool Offers(std::string_view key) const { return IsKey(key, offer_suffix); }
  bool Checks(std::string_view key) const { return IsKey(key, check_suffix); }
  std::string Offer(StatementValues given) const;
  std::string Check(StatementValues given) const;
  bool IsKey(std::string_view key, std::string_view suffix) const;
};

std::span<const CodeList> CodeLists();

}  // namespace tarvoni::suite
