#pragma once

#include "src/context/controls/lists.h"
#include "src/context/data/tvn_var_dll.h"

// The box for the currency of an amount: "EUR" first, the local currency second.
namespace tarvoni {

void FillCurrencies(ComboBox& box, const TvnVar_Dll& context);
void ShowCurrency(ComboBox& box, bool euro, const TvnVar_Dll& context);
bool IsEuro(const ComboBox& box);

}  // namespace tarvoni
