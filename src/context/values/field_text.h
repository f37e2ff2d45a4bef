#pragma once

#include <string>
#include <string_view>

#include "src/context/values/locale.h"
#include "src/context/values/value.h"

namespace tarvoni {

// A value as a field or grid cell shows it: "" for NULL, numbers with the locale's separator, dates as
// "dd.mm.yyyy" (with the time if there is one). With a format, dates and numbers follow it, also a number that
// stands in a text; other texts stay as they are.
std::string FieldText(const Value& value, std::string_view format, const Locale& locale);

}  // namespace tarvoni
