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
  bool valid = false;
  try {
    valid = Validate();
  } catch (...) {
    Forget();
    throw;
  }
  if (code_.Tag() != before) Changed();
  return valid;
}

// A text that cannot even be asked for, such as one with a quote, stays to be corrected, but not with the id of the
// code before it.
void CodeField::Forget() {
  code_.SetTag("");
  if (companion_) companion_->SetText("");
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

CodeField::Rule NamedCode(const TvnVar_Dll& context, const TextBox& code, const Label& label,
                          const std::string& stem, const std::string& name_column,
                          std::function<NamedValues()> values) {
  const auto check = [stem, values, &context, &code] {
    NamedValues all = values();
    all.push_back(TypedCode(code.Text()));
    return GetNamedSql(context, stem + "_VALID", all);
  };
  return {.offered = [stem, values = std::move(values),
                      &context] { return GetNamedSql(context, stem + "_GRID", values()); },
          .check = check,
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
    return GetNamedSql(context, "WALDORT_VALID", {Given(context.lngWaldortScope), TypedCode(box.Text())});
  };
  return {.check = check, .name_column = "WALDORT", .pick = pick};
}

}  // namespace tarvoni
