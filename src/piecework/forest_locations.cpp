#include "src/piecework/forest_locations.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

// The levels from the top, some missing. Case does not count, as in the database.
using Path = std::array<std::optional<std::string>, 6>;

SqlText PathsOf(const std::vector<std::int32_t>& ids) {
  return Compose("SELECT ID_WALDORT,WO1,WO2,WO3,WO4,WO5,WO6 FROM WALDORT WHERE ID_WALDORT IN ({})",
                 IdList(ids));
}

// How many levels there are down to the last one that is not missing.
std::size_t Depth(const Path& path) {
  std::size_t depth = path.size();
  while (depth > 0 && !path[depth - 1]) --depth;
  return depth;
}

bool LiesBeneath(const Path& path, const Path& other) {
  const auto depth = static_cast<std::ptrdiff_t>(Depth(other));
  return depth > 0 && depth < static_cast<std::ptrdiff_t>(Depth(path)) &&
         std::equal(other.begin(), other.begin() + depth, path.begin());
}

}  // namespace

std::vector<std::int32_t> ForestLocations::Ids() const {
  std::vector<std::int32_t> ids;
  ids.reserve(static_cast<std::size_t>(list_.ListCount()));
  for (int i = 0; i < list_.ListCount(); ++i) ids.push_back(list_.ItemData(i));
  return ids;
}

void ForestLocations::Pick(const TvnVar_Dll& context) {
  std::vector<std::int32_t> ids;
  std::vector<std::string> texts;
  CurrentSuite().Waldort().PickMany(context, "", context.lngWaldortScope, ids, texts);
  for (std::size_t i = 0; i < ids.size(); ++i) Add(ids[i], texts[i]);
}

void ForestLocations::RemoveChosen() {
  if (list_.ListIndex() >= 0) list_.RemoveItem(list_.ListIndex());
}

bool ForestLocations::NoneBeneathAnother(Connection& connection) const {
  if (Empty()) return true;
  std::vector<Path> paths;
  for (Recordset rows = connection.Open(PathsOf(Ids())); !rows.EndOfFile(); rows.MoveNext()) {
    Path& path = paths.emplace_back();
    for (std::size_t level = 0; level < path.size(); ++level) {
      const Value value = rows.Fields()[static_cast<int>(level) + 1].Value();
      if (!IsNull(value)) path[level] = utf8::Upper(ToText(value));
    }
  }
  return std::ranges::none_of(paths, [&paths](const Path& path) {
    return std::ranges::any_of(paths, [&path](const Path& other) { return LiesBeneath(path, other); });
  });
}

}  // namespace tarvoni
