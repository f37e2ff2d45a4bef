#include "platform/odbc/application_lock.h"

namespace tarvoni::odbc {

std::string TakeLockText(std::chrono::seconds limit) {
  const auto milliseconds = std::chrono::milliseconds(limit).count();
  return "DECLARE @granted int EXEC @granted = sp_getapplock @Resource = 'Tarvoni_Lohn', @LockMode = "
         "'Exclusive', "
         "@LockOwner = 'Session', @LockTimeout = " +
         std::to_string(milliseconds) + " SELECT @granted AS GRANTED";
}

// 0 and 1 say so; what is below tells of the time limit, a cancellation, a deadlock or a wrong call.
bool IsGranted(const Value& answer) {
  const auto* number = std::get_if<std::int64_t>(&answer);
  return number != nullptr && *number >= 0;
}

}  // namespace tarvoni::odbc
