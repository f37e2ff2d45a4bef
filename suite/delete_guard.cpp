#include "suite/delete_guard.h"

#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"
#include "suite/reading.h"

namespace tarvoni::suite {
std::string DeleteGuard::ConfirmDelete(const SqlText& sql, std::int32_t first_message,
                                       std::int32_t second_message, const TvnVar_Dll& context) {
  if (DatabaseOf(context).Open(sql).EndOfFile()) return "1";
  tarvoni::MessageService& messages = CurrentSuite().Messages();
  const std::string question =
      messages.GetMessage(first_message, context) + " " + messages.GetMessage(second_message, context);
  const int style = kBoxQuestion + kBoxYesNo + kBoxSecondIsDefault;
  return CurrentToolkit().MessageBox(question, style, "Tarvoni") == kAnswerYes ? "1" : "0";
}

}  // namespace tarvoni::suite
