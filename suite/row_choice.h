#pragma once

#include <string>

#include "src/context/services/toolkit.h"

// A choice among rows whose first column is what the caller gets, shown or not.
namespace tarvoni::suite {

// A value of the result as the caller gets it.
std::string FirstColumnText(Recordset rows, std::size_t row);

// The list over `rows` without its first `hidden` columns; the user types what the first shown column holds.
// `start` is an earlier result, found by the first column; a text that is none stands for itself.
PickRequest ChoiceOf(const Recordset& rows, const std::string& caption, int hidden, const std::string& start);

}  // namespace tarvoni::suite
