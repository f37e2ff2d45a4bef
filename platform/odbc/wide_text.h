#pragma once

#include <string>
#include <string_view>

namespace tarvoni::odbc {

// Between UTF-8 and the UTF-16 of the driver interface; what is no valid text becomes U+FFFD.
std::u16string ToWide(std::string_view utf8);
std::string FromWide(std::u16string_view wide);

}  // namespace tarvoni::odbc
