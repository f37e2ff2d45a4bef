#include "src/orders/position_widths.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "src/common/query.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

namespace tarvoni {

namespace sql = work_order_sql;

namespace {

constexpr std::array<int, PositionWidths::kColumns> kDefaults = {400,  400,  850,  800, 800, 1100, 1000,
                                                                 1100, 1100, 1000, 800, 800, 800,  800};

// "400,850" as numbers; what is none reads 0.
std::vector<int> WidthsIn(std::string_view model) {
  std::vector<int> widths;
  while (!model.empty()) {
    const std::string_view entry = model.substr(0, model.find(','));
    std::from_chars(entry.data(), entry.data() + entry.size(), widths.emplace_back(0));
    model.remove_prefix(std::min(entry.size() + 1, model.size()));
  }
  return widths;
}

std::string Joined(const std::vector<int>& widths) {
  std::string model;
  for (const int width : widths) model += (model.empty() ? "" : ",") + std::to_string(width);
  return model;
}

}  // namespace

PositionWidths::PositionWidths() : widths_(kDefaults.begin(), kDefaults.end()) {}

void PositionWidths::Read(Connection& connection) {
  const Recordset rows = connection.Open(sql::StoredWidths());
  stored_ = !rows.EndOfFile();
  widths_ = stored_ ? WidthsIn(ToText(rows.Fields()[0].Value())) : std::vector<int>{};
  widths_.resize(kColumns);
  const bool none = widths_.front() == 0;
  for (std::size_t i = 0; i < kColumns; ++i)
    if (none || widths_[i] <= 0) widths_[i] = kDefaults.at(i);
}

void PositionWidths::Store(Connection& connection, DataGrid& grid) const {
  std::vector<int> shown;
  for (const GridColumn& column : grid.Columns())
    if (column.Visible()) shown.push_back(column.Width());
  const std::string model = Joined(shown.empty() ? widths_ : shown);
  connection.Execute("SET NOCOUNT OFF");
  connection.Execute(stored_ ? sql::UpdateWidths(model) : sql::InsertWidths(model));
}

}  // namespace tarvoni
