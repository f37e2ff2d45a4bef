#pragma once

#include <chrono>
#include <string>
#include <string_view>

#include "src/context/values/value.h"

// The lock of the server, one for each database, that lets one workstation write at a time: keys read by IDENT_CURRENT
// and numbers by MAX+1 are then nobody else's. A session takes it at the first write of a handler.
namespace tarvoni::odbc {

// The batch that waits for the lock and tells in one row what came of it.
std::string TakeLockText(std::chrono::seconds limit);
bool IsGranted(const Value& answer);

inline constexpr std::string_view kGiveLockBack =
    "EXEC sp_releaseapplock @Resource = 'Tarvoni_Lohn', @LockOwner = 'Session'";
inline constexpr std::string_view kLockNotGranted =
    "Ein anderer Arbeitsplatz speichert gerade und wird nicht fertig. Es wurde nichts gespeichert; bitte "
    "gleich noch "
    "einmal versuchen.";

}  // namespace tarvoni::odbc
