#include "suite/lookup_dialog.h"

#include <algorithm>

#include "src/context/date_text.h"
#include "src/context/environment.h"
#include "suite/context_database.h"
#include "suite/row_choice.h"

namespace tarvoni {
namespace {

constexpr std::string_view kDateMode = "DATUM";

std::string PickDay(const std::string& caption, const std::string& start_text) {
  const auto day = CurrentToolkit().PickDate(caption, ParseDate(start_text));
  return day ? FormatDate(*day, "dd.mm.yyyy", CurrentLocale()) : std::string();
}

// At least one column stays in sight.
int HiddenColumns(const std::string& option, const Recordset& rows) {
  const auto shown = std::min(option.find_first_not_of('1'), option.size());
  return std::min(static_cast<int>(shown), rows.Fields().Count() - 1);
}

}  // namespace

std::string SuiteLookupDialog::Pick(const TvnVar_Dll& context, const std::string& sql,
                                    const std::string& caption, const std::string& start_text,
                                    const std::string& option) {
  if (sql == kDateMode) return PickDay(caption, start_text);
  const Recordset rows = DatabaseOf(context).Open(sql);
  PickRequest request = ChoiceOf(rows, caption, HiddenColumns(option, rows), start_text);
  request.option = option;
  const PickResult result = CurrentToolkit().PickList(request);
  return result.row ? FirstColumnText(rows, *result.row) : start_text;
}

}  // namespace tarvoni
