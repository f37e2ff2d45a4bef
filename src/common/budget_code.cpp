#include "src/common/budget_code.h"

#include "src/common/number_keys.h"

namespace tarvoni {
namespace {

CodeField::Rule RuleOf(const TvnVar_Dll& context, const Label& label, const std::string& table,
                       BudgetCode::Kind kind, const std::function<std::int32_t()>& client) {
  const bool payment = kind == BudgetCode::Kind::kPayment;
  CodeField::Rule rule =
      TableCode(context, label, table, client, payment ? IdByNumber::kFiltered : IdByNumber::kText);
  rule.opens_locked = true;
  return rule;
}

}  // namespace

BudgetCode::BudgetCode(const TvnVar_Dll& context, const Guard& loading, const Label& label, TextBox& code,
                       TextBox& name, std::string table, Kind kind, std::function<std::int32_t()> client)
    : context_(context),
      name_(name),
      table_(std::move(table)),
      kind_(kind),
      field_(context, loading, code, &name, RuleOf(context, label, table_, kind, client)) {}

void BudgetCode::Connect() {
  TextBox& code = field_.Box();
  TypedKeys(code, context_, table_, "NUMBER");
  if (kind_ == Kind::kPayment) NumberKeys(code, Entry::kWhole);
  code.KeyDown.Add(Turn::kOwn, [this](int key, int) {
    if (key == kKeyCtrl) field_.Lookup();
  });
  // A stored code that was only passed stays, also when it is no longer offered.
  code.LostFocus.Add(Turn::kCheck, [this, &code] {
    const bool untouched = !code.Tag().empty() && code.Tag() == shown_id_ && code.Text() == shown_number_;
    if (!untouched) field_.Check();
  });
}

void BudgetCode::Show(std::int32_t id) {
  field_.Clear();
  const std::string number = id == 0 ? "" : GetNumberById(table_, id, context_);
  if (number.empty()) return;
  field_.Box().SetText(number);
  field_.Box().SetTag(std::to_string(id));
  shown_number_ = number;
  shown_id_ = field_.Box().Tag();
  name_.SetText(GetNameById(table_, id, DbOf(context_)));
}

std::int32_t BudgetCode::Id() const {
  return ReadId(field_.Box().Tag());
}

}  // namespace tarvoni
