#include "src/orders/f_arbeitsauftrag.h"

// The columns of the list.
namespace tarvoni {

// A plan shows no list.
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
      QuantityColumn("MENGE", "EINH_ID", lblMenge.Caption(), 0),
      FigureColumn("KOSTEN", lblKostenE.Caption(), 0, "#0.00"),
      amount("GESAMT", lblKosten, "#0.00"),
      amount("STUNDEN", lblStunden),
      amount("MAS", lblMAS)};
  for (std::size_t i = 0; i < columns.size(); ++i) columns[i].width = widths_.Of(i);
  return columns;
}

}  // namespace tarvoni
