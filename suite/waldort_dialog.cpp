#include "suite/waldort_dialog.h"

#include <algorithm>

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"
#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/number_text.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

std::vector<Location> LocationsOf(const TvnVar_Dll& context, std::int32_t scope) {
  const SqlText client = Number(std::int64_t{scope});
  std::vector<Location> locations;
  for (Recordset rows = DatabaseOf(context).Open(Compose(R"(
SELECT ID_WALDORT,WO1,WO2,WO3,WO4,WO5,WO6,LANGNAME
FROM WALDORT
WHERE ({} = 0 OR MANDANTEN_ID IS NULL OR MANDANTEN_ID = {})
ORDER BY WO1,WO2,WO3,WO4,WO5,WO6)",
                                                         client, client));
       !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList row = rows.Fields();
    locations.push_back({.id = ToInt32(TextOf(row["ID_WALDORT"]), CurrentLocale()),
                         .path = LocationPathOf(row, CurrentLocale()),
                         .name = TextOf(row["LANGNAME"])});
  }
  return locations;
}

// A field may show the long name behind the path.
std::string WithoutLongName(const std::string& text) {
  return text.substr(0, text.find(": "));
}

// What the user chose, in the order of the choice.
std::vector<Location> Choose(const TvnVar_Dll& context, LocationRequest request, std::int32_t scope) {
  request.locations = LocationsOf(context, scope);
  std::vector<Location> chosen;
  for (const std::int32_t id : CurrentToolkit().PickLocations(request)) {
    const auto found = std::ranges::find(request.locations, id, &Location::id);
    if (found != request.locations.end()) chosen.push_back(*found);
  }
  return chosen;
}

}  // namespace

void WaldortDialog::PickMany(const TvnVar_Dll& context, const std::string& start_text, std::int32_t scope,
                             std::vector<std::int32_t>& ids, std::vector<std::string>& texts) {
  ids.clear();
  texts.clear();
  const LocationRequest request{
      .caption = "Waldorte", .locations = {}, .start_text = start_text, .many = true};
  for (const Location& location : Choose(context, request, scope)) {
    ids.push_back(location.id);
    texts.push_back(location.path);
  }
}

void WaldortDialog::PickOne(const TvnVar_Dll& context, std::string& full_text, std::int32_t& id,
                            std::string& text, std::int32_t& scope, bool& chosen) {
  const LocationRequest request{
      .caption = "Waldort", .locations = {}, .start_text = WithoutLongName(text), .many = false};
  const auto choice = Choose(context, request, scope);
  if (choice.empty()) return;
  const Location& location = choice.front();
  id = location.id;
  text = location.path;
  full_text = location.name.empty() ? location.path : location.path + ": " + location.name;
  chosen = true;
}

}  // namespace tarvoni::suite
