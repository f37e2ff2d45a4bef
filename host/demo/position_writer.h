#pragma once

#include <cstdint>
#include <optional>

#include "host/demo/enterprise.h"
#include "host/demo/row_writer.h"

namespace tarvoni::demo {

// A cost position of a work order; the writer gives the id and the place in the order.
struct Position {
  Position(WorkOrder& order, const WorkType& of_type, const CostType& of_cost_type, const DateTime& on)
      : work_order(order), type(of_type), cost_type(of_cost_type), day(on) {}

  WorkOrder& work_order;
  const WorkType& type;
  const CostType& cost_type;
  DateTime day;
  int voucher = 0;
  int object = 0;
  int location = 0;
  int vat = 0;                  // MWST.ID
  int area = 0;                 // tenths of a hectare
  std::int64_t quantity = 0;    // hundredths
  std::int64_t unit_price = 0;  // cents, per unit of quantity or hectare
  std::int64_t amount = 0;      // cents; a revenue where the cost type is one
  int hours = 0;                // tenths
  int machine_hours = 0;        // tenths
  bool euro = true;
  std::optional<DateTime> cancelled;
};

// Writes positions that are entered by hand: those of work orders, vouchers and machines.
class PositionWriter {
 public:
  explicit PositionWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  // The id of the new row.
  int Write(const Position& position);
  void Finish() { rows_.Finish(); }

 private:
  Enterprise& enterprise_;
  RowWriter rows_{
      enterprise_.connection, "ARBEITSAUFTRAG",
      "ID, ORDERS, DATUM_NR, ARBEITSAUFTRAG_KOPF_ID, BELEGE_ID, KOSTENSTELLE_ID, OBJEKT_ID, "
      "LEISTUNGSART_ID, VERFAHREN_ID, KOSTENART_ID, SONDERMERKMAL_ID, WO_ID, FLAECHE, MENGE, PRO_MENGE, "
      "EINH_ID, KOSTEN, GESAMT, ERLOS, EURO, ID_MWST, STUNDEN, MAS, STORNODATUM",
      RowWriter::Keys::kGiven};
};

enum class CostUse { kOwn, kInvoiced };  // invoices bring neither wages nor revenues

// A cost type that the work type allows and that is usual for it; nothing if there is none.
const CostType* DrawCostType(Random& random, const CodeSet& codes, const WorkType& type, CostUse use);

}  // namespace tarvoni::demo
