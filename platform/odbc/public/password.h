#pragma once

#include <string>
#include <string_view>

namespace tarvoni::odbc {

// The text with "***" in place of every password: what stands behind a word that ends in PWD or Password and
// an equals sign, up to the next semicolon outside braces and quotes. Takes rather too much than too little.
std::string WithoutPassword(std::string_view text);

}  // namespace tarvoni::odbc
