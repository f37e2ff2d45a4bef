#include "suite/grid_layout_store.h"

#include <fmt/format.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <string_view>

#include "src/context/data/statement.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

struct StoredWidth {
  std::string_view field;
  int twips = 0;
};

// "1440 NUMBER"; nothing for a line that does not read so.
std::optional<StoredWidth> ReadLine(std::string_view line) {
  int twips = 0;
  const auto [end, error] = std::from_chars(line.data(), line.data() + line.size(), twips);
  const std::string_view rest = line.substr(static_cast<std::size_t>(end - line.data()));
  if (error != std::errc() || !rest.starts_with(' ')) return std::nullopt;
  return StoredWidth{.field = rest.substr(1), .twips = twips};
}

std::vector<StoredWidth> ReadLayout(std::string_view text) {
  std::vector<StoredWidth> widths;
  while (!text.empty()) {
    const auto end = std::min(text.find('\n'), text.size());
    if (const auto width = ReadLine(text.substr(0, end))) widths.push_back(*width);
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return widths;
}

std::string WriteLayout(Grid& grid) {
  std::string text;
  for (const GridColumn& column : grid.Columns())
    text += fmt::format("{} {}\n", column.Width(), column.DataField());
  return text;
}

std::string StoredLayout(const TvnVar_Dll& context, const std::string& key) {
  const Recordset rows = DatabaseOf(context).Open(
      Compose("SELECT LAYOUT FROM GITTERLAYOUT WHERE LAYOUT_KEY = '{}'", Quoted(key)));
  if (rows.EndOfFile()) return {};
  const auto* text = std::get_if<std::string>(&rows.Fields()[0].Value());
  return text ? *text : std::string();
}

}  // namespace

void GridLayoutStore::LoadLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) {
  const std::string text = StoredLayout(context, key);
  std::vector<StoredWidth> widths = ReadLayout(text);
  for (GridColumn& column : grid.Columns()) {
    const auto found = std::ranges::find(widths, column.DataField(), &StoredWidth::field);
    if (found == widths.end()) continue;
    column.SetWidth(found->twips);
    widths.erase(found);
  }
}

void GridLayoutStore::SaveLayout(const TvnVar_Dll& context, const std::string& key, Grid& grid) {
  if (grid.Columns().Count() == 0) return;
  const SqlText layout = TextOrNull(WriteLayout(grid));
  DatabaseOf(context).Execute(Compose(R"(
IF EXISTS(SELECT LAYOUT_KEY FROM GITTERLAYOUT WHERE LAYOUT_KEY = '{}')
  UPDATE GITTERLAYOUT SET LAYOUT = {} WHERE LAYOUT_KEY = '{}'
ELSE
  INSERT INTO GITTERLAYOUT (LAYOUT_KEY,LAYOUT) VALUES ('{}',{}))",
                                      Quoted(key), layout, Quoted(key), Quoted(key), layout));
}

}  // namespace tarvoni::suite
