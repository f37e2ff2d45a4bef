#pragma once

#include <exception>
#include <string>

namespace tarvoni {

// What the user reads of an error: one clear sentence, and for a failed statement the server's number and
// words behind it.
std::string ErrorText(const std::exception& error);

}  // namespace tarvoni
