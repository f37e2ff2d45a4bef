#pragma once

#include "src/context/controls/form.h"
#include "src/context/data/tvn_var_dll.h"

// The combo box of a currency: "EUR" and the local one.
namespace tarvoni {

void FillCurrencies(ComboBox& combo, const TvnVar_Dll& context);
void ShowCurrency(ComboBox& combo, const TvnVar_Dll& context, bool euro);
bool ShowsEuro(const ComboBox& combo);

}  // namespace tarvoni
