#include "src/common/budget_code.h"

#include "src/common/box_rules.h"
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
  Rules(code).Code(field_);
}

void BudgetCode::Show(std::int32_t id) {
  field_.Clear();
  const std::string number = id == 0 ? "" : GetNumberById(table_, id, context_);
  if (number.empty()) return;
  field_.Box().SetText(number);
  field_.Box().SetTag(std::to_string(id));
  name_.SetText(GetNameById(table_, id, DbOf(context_)));
}

std::int32_t BudgetCode::Id() const {
  return ReadId(field_.Box().Tag());
}

}  // namespace tarvoni
