#include "src/common/position_codes.h"

#include <utility>

namespace tarvoni {

CodeField::Rule CostCentreCode(const TvnVar_Dll& context, const TextBox& box, const Label& label,
                               Client client) {
  return NamedCode(context, box, label, "KOSTENSTELLE", "NAME",
                   [client = std::move(client)] { return NamedValues{Given(client())}; });
}

CodeField::Rule CostObjectCode(const TvnVar_Dll& context, const TextBox& box, const Label& label,
                               Client client) {
  return NamedCode(context, box, label, "OBJEKT", "LONG", [client = std::move(client)] {
    return NamedValues{Given(client()), Given("")};
  });
}

CodeField::Rule FeatureCode(const TvnVar_Dll& context, const TextBox& box, const Label& label) {
  return NamedCode(context, box, label, "SONDERMERKMAL", "LONG", [] { return NamedValues{}; });
}

}  // namespace tarvoni
