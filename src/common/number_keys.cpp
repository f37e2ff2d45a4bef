#include "src/common/number_keys.h"

#include "src/common/m_common.h"
#include "src/context/services/environment.h"
#include "src/context/services/told_on_leaving.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

// The text that stays when the selection is typed over.
std::string Unselected(const TextBox& box) {
  return std::string(utf8::Substring(box.Text(), 0, box.SelStart())) +
         std::string(utf8::Substring(box.Text(), box.SelStart() + box.SelLength()));
}

// The point of the main keyboard is the decimal sign: who types a thousand with a point hears of it.
void TellManyPlaces(TextBox& box) {
  constexpr int kPlaces = 2;
  const auto number = ParseNumber(box.Text(), CurrentLocale());
  if (box.HasFocus() && number && number->Scale() > kPlaces)
    TellOnLeaving(box, box.Text() + " hat mehr als zwei Stellen hinter dem Komma.");
}

}  // namespace

void PlainNumberKeys(TextBox& box, Entry entry) {
  box.SetTakes(entry);
  box.KeyPress.Add(Turn::kFilter, [&box, entry](int& key) {
    key = NumericKeyFilter(key, entry == Entry::kDecimal, Unselected(box));
  });
}

void NumberKeys(TextBox& box, Entry entry, Minus minus) {
  box.SetTakes(entry);
  box.KeyPress.Add(Turn::kFilter, [&box, entry, minus](int& key) {
    KeyFilterOptions(key, entry == Entry::kDecimal, box, minus == Minus::kAllowed);
  });
  if (entry == Entry::kDecimal) box.LostFocus.Add(Turn::kCheck, [&box] { TellManyPlaces(box); });
}

void TypedKeys(TextBox& box, const TvnVar_Dll& context, const std::string& table, const std::string& column) {
  box.KeyPress.Add(Turn::kFilter, [&context, table, column](int& key) {
    if (key != 0) key = TypedKeyFilter(key, table, column, context);
  });
}

}  // namespace tarvoni
