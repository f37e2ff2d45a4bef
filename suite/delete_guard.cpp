#include "suite/delete_guard.h"

#include "src/context/environment.h"
#include "src/context/toolkit.h"
#include "suite/context_database.h"

namespace tarvoni {
namespace {

constexpr const char* kTitle = "Tarvoni";

int Show(std::int32_t message, int style, const TvnVar_Dll& context) {
  const std::string text = CurrentSuite().Messages().GetMessage(message, context);
  return CurrentToolkit().MessageBox(text, style, kTitle);
}

}  // namespace

std::string SuiteDeleteGuard::ConfirmDelete(const std::string& sql, std::int32_t first_message,
                                            std::int32_t second_message, const TvnVar_Dll& context) {
  if (DatabaseOf(context).Open(sql).EndOfFile()) return "1";
  const int question = kBoxQuestion + kBoxYesNo + kBoxSecondIsDefault;
  if (Show(first_message, question, context) == kAnswerYes) return "1";
  Show(second_message, kBoxInformation, context);
  return "0";
}

}  // namespace tarvoni
