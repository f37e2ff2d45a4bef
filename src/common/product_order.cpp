#include "src/common/product_order.h"

#include <algorithm>

#include "src/context/data/statement.h"
#include "src/context/values/utf8.h"

namespace tarvoni {

void ShowProductOrder(const std::string& name, ControlArray<TextBox, 2>& pair) {
  constexpr int kNumber = 4;
  const int cut = std::max(0, utf8::Length(name) - kNumber);
  pair[0].SetText(utf8::Substring(name, cut));
  pair[1].SetText(utf8::Substring(name, 0, cut));
}

SqlText ProductOfOrder(std::string_view id) {
  return Compose("SELECT PRODUKT_ID FROM ARBEITSAUFTRAG_KOPF WHERE ID = 0{}", Digits(id));
}

}  // namespace tarvoni
