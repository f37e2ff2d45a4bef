#include "src/common/code_field.h"

#include <utility>

namespace tarvoni {

CodeField::CodeField(const TvnVar_Dll& context, const Guard& loading, TextBox& code, TextBox* companion,
                     Rule rule)
    : context_(context), loading_(loading), code_(code), companion_(companion), rule_(std::move(rule)) {}

void CodeField::Lookup() {
  code_.SetText(Picked());
  code_.LostFocus();
}

std::string CodeField::Picked() {
  if (rule_.pick) return rule_.pick(code_.Text());
  for (;;) {
    std::string picked =
        CurrentSuite().Lookup().Pick(context_, rule_.offered(), rule_.caption(), code_.Text(), rule_.option);
    if (picked != LookupDialog::kNew || !rule_.make_new) return picked;
    rule_.make_new();
  }
}

bool CodeField::Check() {
  const std::string before = code_.Tag();
  const bool valid = Validate();
  if (code_.Tag() != before) Changed();
  return valid;
}

bool CodeField::Validate() {
  if (code_.Empty()) {
    Clear();
    return false;
  }
  const bool report = !loading_.IsSet();
  const std::string tag = code_.Tag();
  const bool valid = rule_.find ? TakeFound(report)
                                : ValidateNamedField(context_, report, rule_.check(), &code_, nullptr,
                                                     rule_.name_column, companion_, "");
  if (valid) return true;
  Clear();
  if (rule_.keeps_tag) code_.SetTag(tag);
  if (rule_.keeps_focus && report) SafeSetFocus(code_);
  return false;
}

bool CodeField::TakeFound(bool report) {
  const Found found = rule_.find(code_.Text());
  if (found.id == 0) {
    if (report) ReportMissingField(rule_.caption(), false, context_);
    return false;
  }
  code_.SetTag(std::to_string(found.id));
  if (companion_) companion_->SetText(found.name);
  return true;
}

void CodeField::Clear() {
  code_.Clear();
  if (companion_) companion_->SetText("");
}

std::string Parameters(const std::vector<std::string>& before, const std::string* typed,
                       const std::vector<std::string>& behind) {
  std::vector<std::string> values = before;
  if (typed) values.push_back(*typed);
  values.insert(values.end(), behind.begin(), behind.end());
  std::string joined;
  for (const std::string& value : values) {
    if (&value != &values.front()) joined += '\t';
    joined += value;
  }
  return joined;
}

CodeField::Rule NamedCode(const TvnVar_Dll& context, const TextBox& code, const Label& label,
                          const std::string& stem, const std::string& name_column,
                          std::function<std::string(const std::string* typed)> parameter) {
  return {.offered = [=, &context] { return GetNamedSql(context, stem + "_GRID", parameter(nullptr)); },
          .check = [stem, parameter = std::move(parameter), &context,
                    &code] { return GetNamedSql(context, stem + "_VALID", parameter(&code.Text())); },
          .caption = [&label] { return label.Caption(); },
          .name_column = name_column};
}

CodeField::Rule LocationCode(const TvnVar_Dll& context, const TextBox& box) {
  const auto pick = [&context](const std::string& current) {
    std::string full_text, text = current;
    std::int32_t id = 0, scope = context.lngWaldortScope;
    bool chosen = false;
    CurrentSuite().Waldort().PickOne(context, full_text, id, text, scope, chosen);
    return chosen ? full_text.substr(0, full_text.rfind(':')) : current;
  };
  const auto check = [&context, &box] {
    return GetNamedSql(context, "WALDORT_VALID", std::to_string(context.lngWaldortScope) + "\t" + box.Text());
  };
  return {.check = check, .name_column = "WALDORT", .pick = pick};
}

}  // namespace tarvoni
