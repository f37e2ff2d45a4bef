#include "suite/person_picker.h"

#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/values/number_text.h"
#include "suite/reading.h"
#include "suite/row_choice.h"

namespace tarvoni::suite {
namespace {

constexpr int kHiddenId = 1;

// Client 0 stands for every client.
Recordset Payees(const TvnVar_Dll& context, const std::string& type_key, std::int32_t client) {
  const SqlText number = Number(std::int64_t{client});
  return DatabaseOf(context).Open(Compose(R"(
SELECT ID_PERSONAL,NUMMER,KURZBEZEICHNUNG,NAME
FROM PERSONAL
WHERE PERSONENTYP = '{}' AND ISNULL(DISABLE,0) = 0
  AND ({} = 0 OR ID_MANDANTEN IS NULL OR ID_MANDANTEN = {})
ORDER BY NUMMER)",
                                          Quoted(type_key), number, number));
}

}  // namespace

std::int32_t PersonPicker::PickPayee(const TvnVar_Dll& context, std::int32_t, const std::string& type_key,
                                     std::int32_t, bool& chosen, const std::string&, const std::string&,
                                     const std::string&, const std::string&, std::int32_t standard_client,
                                     std::int32_t current, std::int32_t) {
  const auto pick = [&](std::int32_t client) {
    PickRequest request =
        ChoiceOf(Payees(context, type_key, client), "Zahlungsempfänger", kHiddenId, std::to_string(current));
    if (client != 0) request.extra_button = "&Alle Mandanten";
    const PickResult result = CurrentToolkit().PickPerson(request);
    return std::pair(request.rows, result);
  };
  auto [rows, result] = pick(standard_client);
  if (result.extra) std::tie(rows, result) = pick(0);
  chosen = result.row.has_value();
  return chosen ? ToInt32(FirstColumnText(rows, *result.row), CurrentLocale()) : current;
}

}  // namespace tarvoni::suite
