#include "src/common/currency_box.h"

#include "src/common/m_common.h"

namespace tarvoni {
namespace {

constexpr const char* kEuro = "EUR";

}  // namespace

void FillCurrencies(ComboBox& combo, const TvnVar_Dll& context) {
  combo.Clear();
  combo.AddItem(kEuro);
  combo.AddItem(context.strLocalCurrency);
}

void ShowCurrency(ComboBox& combo, const TvnVar_Dll& context, bool euro) {
  FindComboText(combo, euro ? kEuro : context.strLocalCurrency);
}

bool ShowsEuro(const ComboBox& combo) {
  return combo.Text() == kEuro;
}

}  // namespace tarvoni
