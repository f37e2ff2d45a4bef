#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

#include "src/common/messages.h"
#include "src/orders/f_arbeitsauftrag.h"
#include "src/orders/f_arbeitsauftrag_sql.h"

// The columns of the grid, and their widths from one time to the next.
namespace tarvoni {

namespace sql = work_order_sql;

namespace {

constexpr std::array kDefaultWidths = {400,  400,  850,  800, 800, 1100, 1000,
                                       1100, 1100, 1000, 800, 800, 800,  800};
constexpr std::size_t kShown = kDefaultWidths.size();

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

}  // namespace

// Without a first width the defaults hold; a column that has none of its own takes its default.
void F_Arbeitsauftrag::ReadWidths() {
  const Recordset rows = Open(sql::StoredWidths());
  widths_stored_ = !rows.EndOfFile();
  widths_ = widths_stored_ ? WidthsIn(ToText(rows.Fields()[0].Value())) : std::vector<int>{};
  widths_.resize(kShown);
  const bool none = widths_.front() == 0;
  for (std::size_t i = 0; i < kShown; ++i)
    if (none || widths_[i] <= 0) widths_[i] = kDefaultWidths.at(i);
}

std::vector<ShownColumn> F_Arbeitsauftrag::Columns() const {
  if (isPlan) return {};
  const auto amount = [](ColumnKey field, const Label& label, std::string format = {}) {
    return AmountColumn(std::move(field), label.Caption(), 0, std::move(format));
  };
  std::vector<ShownColumn> columns = {
      {.data_field = "STATUS", .caption = "St."},
      {.data_field = "ORDERS", .caption = "Nr."},
      {.data_field = "DATUM_NR", .caption = lblDatumNr.Caption(), .number_format = "dd.mm.yyyy"},
      {.data_field = 3, .caption = lblKostenstelle.Caption()},
      {.data_field = 4, .caption = lblObjekt.Caption()},
      {.data_field = "LEISTUNGSART", .caption = lblLeistungsart.Caption()},
      {.data_field = "VERFAHREN", .caption = lblVerfahren.Caption()},
      {.data_field = 7, .caption = lblKostenart.Caption()},
      amount("FLAECHE", lblFlache, "0.0000"),
      amount("MENGE", lblMenge, "0.00"),
      amount("KOSTEN", lblKostenE, "#0.00"),
      amount("GESAMT", lblKosten, "#0.00"),
      amount("STUNDEN", lblStunden),
      amount("MAS", lblMAS)};
  for (std::size_t i = 0; i < kShown; ++i) columns[i].width = widths_[i];
  return columns;
}

void F_Arbeitsauftrag::StoreWidths() {
  std::string widths;
  for (const GridColumn& column : DataGrid1.Columns()) {
    if (column.Visible()) widths += (widths.empty() ? "" : ",") + std::to_string(column.Width());
  }
  Execute("SET NOCOUNT OFF");
  Execute(widths_stored_ ? sql::UpdateWidths(widths) : sql::InsertWidths(widths));
}

}  // namespace tarvoni
