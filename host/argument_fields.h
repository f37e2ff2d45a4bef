#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/context/data/sql_text.h"

namespace tarvoni::host {

enum class FieldKind {
  kClient,  // the chosen client
  kRow,     // a row to choose
  kText,
  kNumber,
  kFlag,
};

// What the rows of a choice depend on.
struct ChoiceScope {
  std::int32_t client = 0;
  std::string forest_year;
  bool plan = false;
};

// How a form asks for one argument of a method.
struct ArgumentField {
  std::string parameter;
  std::string label;
  FieldKind kind = FieldKind::kText;
  std::string none = {};  // what 0 is called; "" if a row has to be chosen
  // The statement of the rows: the key first, then what is shown.
  SqlText (*choices)(const ChoiceScope& scope) = nullptr;
  bool free_number = false;  // a number that no row bears may be typed
};

// Whether the rows offered depend on the forest year.
bool UsesForestYear(const ArgumentField& field);

// The arguments that a user is asked for; the others keep their defaults. The names are those of methods.h.
const std::vector<ArgumentField>& FieldsOf(const std::string& method);

}  // namespace tarvoni::host
