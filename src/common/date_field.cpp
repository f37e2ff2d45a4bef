#include "src/common/date_field.h"

#include "src/common/m_common.h"
#include "src/common/messages.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/date_text.h"

namespace tarvoni {
DateField::DateField(const TvnVar_Dll& context, const Guard& loading, TextBox& box, const Label& label,
                     Wrong wrong)
    : context_(context), loading_(loading), box_(box), label_(label), wrong_(wrong) {}

void DateField::Show(const std::optional<DateTime>& day) {
  before_ = day;
  box_.SetText(day ? FormatDate(*day, "dd.mm.yyyy", CurrentLocale()) : "");
}

std::optional<DateTime> DateField::Day() const {
  return ParseDate(box_.Text(), [this] { return before_ ? before_->year : box_.OwnerForm().DateYear(); });
}

void DateField::TakeBack() {
  if (!box_.Empty() && !Day()) Show(before_);
}

// The Screen may have filled the box by itself. When the focus comes back to a wrong text, the day before it counts.
void DateField::Arrive() {
  const auto day = ParseDate(box_.Text());
  if (day || box_.Empty()) before_ = day;
}

void DateField::Lookup() {
  const std::string day = CurrentSuite().Lookup().Pick(context_, "DATUM", label_.Caption(), box_.Text(), "1");
  if (day.empty()) return;
  box_.SetText(day);
  box_.LostFocus();
}

bool DateField::Check() {
  const auto day = Day();
  if (day || box_.Empty()) {
    Show(day);
    return true;
  }
  if (loading_.IsSet() || wrong_ == Wrong::kClear) {
    box_.SetText("");
    return false;
  }
  AppMsgBox(CurrentSuite().Messages().GetMessage(message::kEntryMissing, context_), kBoxWarning);
  SafeSetFocus(box_);
  return false;
}

}  // namespace tarvoni
