#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "host/demo/parts.h"
#include "host/demo/position_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kVatRates = 4;

// Vouchers with the positions among which their amounts are divided.
class VoucherWriter {
 public:
  explicit VoucherWriter(Enterprise& enterprise) : enterprise_(enterprise), random_(enterprise.random) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      const int vouchers = 15 + 10 * enterprise_.scale;
      for (int i = 0; i < vouchers; ++i) WriteVoucher(client);
    }
    rows_.Finish();
    positions_.Finish();
  }

 private:
  void WriteVoucher(Client& client) {
    const int id = ++last_id_;
    const DateTime invoiced = AddDays(kFirstDay, random_.Between(20, kToday.Days() - kFirstDay.Days() - 20));
    const bool cancelled = random_.Chance(5);
    const auto cancelled_on =
        cancelled ? std::optional(std::min(AddDays(invoiced, 40), kToday)) : std::nullopt;
    const int positions = random_.Between(1, 3);
    std::int64_t amount = 0;
    for (int i = 0; i < positions; ++i) amount += WritePosition(client, id, invoiced, cancelled_on);
    WriteHead(client, id, invoiced, amount, cancelled);
  }

  void WriteHead(const Client& client, int id, const DateTime& invoiced, std::int64_t amount,
                 bool cancelled) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const int title = random_.Pick(codes.titles);
    const int kind = random_.Pick(codes.payment_kinds);
    const int reason = random_.Pick(codes.payment_reasons);
    const int payee = random_.Pick(enterprise_.suppliers);
    const int invoice = random_.Between(100, 99'999);
    rows_.Add(id, fmt::format("{}/{}/{:05}", client.number, invoiced.year, id), AddDays(invoiced, 5),
              codes.chapters[1], title, fmt::format("H{:06}", id), AddDays(invoiced, 4),
              fmt::format("RE-{}", invoice), invoiced, Decimal(amount, 2), true, kind, reason, payee,
              cancelled);
  }

  // The amount of the position in cents.
  std::int64_t WritePosition(Client& client, int voucher, const DateTime& day,
                             const std::optional<DateTime>& cancelled) {
    WorkOrder& order = DrawWorkOrder(client, day.year);
    const CodeSet& codes = enterprise_.CodesOf(client);
    const auto [type, cost_type] = DrawTypes(codes, order);
    Position position(order, *type, *cost_type, day);
    position.voucher = voucher;
    position.cancelled = cancelled;
    position.area = type->Has(kArea) ? random_.Between(2, 40) : 0;
    position.quantity = std::int64_t{random_.Between(5, 400)} * 100;
    position.amount = random_.Between(4'000, 900'000);
    const std::int64_t basis = type->Has(kArea) ? std::int64_t{position.area} * 10 : position.quantity;
    position.unit_price = (position.amount * 100 + basis / 2) / basis;
    position.vat = random_.Between(1, kVatRates);
    if (order.district != nullptr) position.location = random_.Pick(order.district->locations);
    positions_.Write(position);
    return position.amount;
  }

  WorkOrder& DrawWorkOrder(Client& client, int year) {
    while (true) {
      WorkOrder& order = client.work_orders[static_cast<std::size_t>(
          random_.Between(0, static_cast<int>(client.work_orders.size()) - 1))];
      if (order.year == year) return order;
    }
  }

  // A work type that costs something, with a cost type that it allows.
  std::pair<const WorkType*, const CostType*> DrawTypes(const CodeSet& codes, const WorkOrder& order) {
    while (true) {
      const WorkType& type = random_.Pick(codes.work_types);
      if (type.product != order.product || !type.FitsCentre(order.centre.type) || type.Has(kTimber)) continue;
      const CostType* cost_type = DrawCostType(random_, codes, type, CostUse::kInvoiced);
      if (cost_type != nullptr) return {&type, cost_type};
    }
  }

  Enterprise& enterprise_;
  Random& random_;
  int last_id_ = 0;
  PositionWriter positions_{enterprise_};
  RowWriter rows_{
      enterprise_.connection, "BELEGE",
      "ID, NUMMER, BUCHUNGSDAT, KAPITEL_ID, TITEL_ID, HULNR, TAGANORD, RECHNUMER, RECHDATUM, RECHBERTRAG, "
      "RECHEURO, ZAHLUNGSART, ZAHLUNGSGRUND, ZAHLUNGSEMF, STORNO",
      RowWriter::Keys::kGiven};
};

}  // namespace

void BuildVouchers(Enterprise& enterprise) {
  VoucherWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
