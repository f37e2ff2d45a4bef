#include "suite/lookup_dialog.h"

#include <string_view>

#include "src/context/services/environment.h"
#include "src/context/values/date_text.h"
#include "suite/reading.h"
#include "suite/row_choice.h"

namespace tarvoni::suite {
namespace {

constexpr std::string_view kDateMode = "DATUM";

std::string PickDay(const std::string& caption, const std::string& start_text) {
  const auto day = CurrentToolkit().PickDate(caption, ParseDate(start_text));
  return day ? FormatDate(*day, "dd.mm.yyyy", CurrentLocale()) : std::string();
}

// At least one column stays in sight.
int HiddenColumns(std::string_view option, const Recordset& rows) {
  const FieldList fields = rows.Fields();
  int hidden = 0;
  while (option.substr(0, 1) == "1" && hidden + 1 < fields.Count() && fields[hidden].Name() == "ID") {
    option.remove_prefix(1);
    ++hidden;
  }
  return hidden;
}

bool OffersNew(std::string_view option) {
  return option.size() > 2 && option[2] == '2';
}

}  // namespace

std::string LookupDialog::Pick(const TvnVar_Dll& context, const SqlText& sql, const std::string& caption,
                               const std::string& start_text, const std::string& option) {
  if (sql.Text() == kDateMode) return PickDay(caption, start_text);
  const Recordset rows = DatabaseOf(context).Open(sql);
  PickRequest request = ChoiceOf(rows, caption, HiddenColumns(option, rows), start_text);
  request.option = option;
  if (OffersNew(option)) request.extra_button = "&Neu";
  const PickResult result = CurrentToolkit().PickList(request);
  if (result.extra) return kNew;
  return result.row ? FirstColumnText(rows, *result.row) : start_text;
}

}  // namespace tarvoni::suite
