#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace tarvoni::odbc {

// The value of an attribute of "Name=value;Name={value};…" without its braces, the first of several;
// `upper_name` is in capital letters.
std::optional<std::string> Attribute(std::string_view text, std::string_view upper_name);

// Whether one workstation at a time may write: unless the text says ApplicationLock=no.
bool WantsApplicationLock(std::string_view connection_string);

// What goes to the driver manager for "odbc:…": the rest, and for FreeTDS what an administrator may leave
// out; what is meant for this program is not in it. Throws DatabaseError when the text begins otherwise.
std::string DriverText(std::string_view connection_string);

}  // namespace tarvoni::odbc
