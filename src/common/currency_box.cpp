#include "src/common/currency_box.h"

namespace tarvoni {
namespace {

constexpr const char* kEuro = "EUR";

}  // namespace

void FillCurrencies(ComboBox& box, const TvnVar_Dll& context) {
  box.Clear();
  box.AddItem(kEuro);
  if (context.strLocalCurrency != kEuro) box.AddItem(context.strLocalCurrency);
}

void ShowCurrency(ComboBox& box, bool euro, const TvnVar_Dll& context) {
  box.SetText(euro ? kEuro : context.strLocalCurrency);
}

bool IsEuro(const ComboBox& box) {
  return box.Text() == kEuro;
}

}  // namespace tarvoni
