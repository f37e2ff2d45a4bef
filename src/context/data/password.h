#pragma once

#include <string>
#include <string_view>
#include <vector>

// The one place that knows how passwords stand in texts. Whatever people read goes through it: messages, traces,
// titles, lists of databases.
namespace tarvoni {

// The text with "***" in place of every password: what stands behind a word that ends in PWD, Password, Kennwort or
// Passwort and an equals sign. The text is shown again from the next attribute that a connection text knows; so it
// takes rather too much than too little. What it gave, at the end
// of a line or in „“, stays as it is when it is given once more.
std::string WithoutPassword(std::string_view text);

bool HoldsPassword(std::string_view text);

// The passwords in a connection text, in the forms in which a driver may repeat them without their name.
std::vector<std::string> PasswordsIn(std::string_view connection_text);

// As WithoutPassword, and "***" for each of `passwords` wherever it stands; a short one only where it is a word.
std::string WithoutPassword(std::string_view text, const std::vector<std::string>& passwords);

}  // namespace tarvoni
