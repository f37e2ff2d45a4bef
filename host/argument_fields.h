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
  kPlans,  // a flag: the rows are plans
  kNew,    // a flag for one call: the number is a new one
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
  std::string label;  // with "&" before its letter
  FieldKind kind = FieldKind::kText;
  std::string none = {};  // what 0 is called; "" if a row has to be chosen
  // The statement of the rows: the key first, then what is shown.
  SqlText (*choices)(const ChoiceScope& scope) = nullptr;
  // The statement whose first row is the one to begin with; without it, or where it gives none, the first of `choices`.
  SqlText (*start)(const ChoiceScope& scope) = nullptr;
  bool free_number = false;  // the key of a new row is a number that the user gives
};

// Whether the rows offered depend on the forest year.
bool UsesForestYear(const ArgumentField& field);

// The arguments that a user is asked for; the others keep their defaults. The names are those of methods.h.
const std::vector<ArgumentField>& FieldsOf(const std::string& method);

}  // namespace tarvoni::host
