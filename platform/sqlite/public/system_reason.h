#pragma once

#include <string>

namespace tarvoni::sqlite {

// What the system's error number means, as the end of a German sentence: "der Datenträger ist voll".
std::string SystemReason(int number);

}  // namespace tarvoni::sqlite
