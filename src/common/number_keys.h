#pragma once

#include <string>

#include "src/context/controls/form.h"
#include "src/context/data/tvn_var_dll.h"

// Filters of keys that go by no mask. What is pasted and the keypad's point mean in these boxes what the user means.
namespace tarvoni {

// NumericKeyFilter: digits, and one separator in a box with decimals.
void PlainNumberKeys(TextBox& box, Entry entry);
// KeyFilterOptions: a number of any size. One that is left with more than two places is told.
enum class Minus { kRefused, kAllowed };
void NumberKeys(TextBox& box, Entry entry, Minus minus = Minus::kRefused);
// TypedKeyFilter: what the column can hold; any other key is told.
void TypedKeys(TextBox& box, const TvnVar_Dll& context, const std::string& table, const std::string& column);

}  // namespace tarvoni
