#include <fmt/format.h>

#include <algorithm>
#include <vector>

#include "host/demo/parts.h"
#include "host/demo/position_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kVatRates = 4;

// MWST.ID
enum Vat : int { kTaxFree = 1, kTenPercent, kThirteenPercent, kTwentyPercent };

struct ToldRow {
  int work_type, cost_type;
  int quantity;         // hundredths
  std::int64_t amount;  // cents
  Vat vat;
  bool cancelled = false;
};

// A voucher that shows a case, whatever the random ones hold.
struct Told {
  std::int64_t invoiced;  // cents
  std::vector<ToldRow> rows;
  bool euro = true, cancelled = false;
  bool from_stores = false;  // of the goods that were stored last
};

const std::vector<Told>& ToldVouchers() {
  static const std::vector<Told> vouchers = {
      {120'000, {{2010, kPlants, 200'000, 120'000, kThirteenPercent}}},
      {300'000,  // among three orders
       {{2010, kPlants, 250'000, 150'000, kThirteenPercent},
        {3020, kFenceMaterial, 40'000, 100'000, kTwentyPercent},
        {4020, kContractors, 10'000, 50'000, kTwentyPercent}}},
      {80'000, {{4020, kContractors, 10'000, 50'000, kTenPercent}}},  // 300.00 are left
      {137'603,
       {{2040, kSmallMaterial, 2'000, 50'000, kTwentyPercent},
        {4030, kRoadMaterial, 1'200, 87'603, kTwentyPercent}},
       false},
      {30'000,  // a cost of 400.00 and a revenue of 100.00
       {{7010, kSmallMaterial, 50'000, 40'000, kTwentyPercent},
        {7010, kSideRevenue, 2'000, 10'000, kTenPercent}}},
      {45'000,  // the second row stands for the first
       {{2040, kContractors, 9'000, 54'000, kTaxFree, true}, {2040, kContractors, 9'000, 45'000, kTaxFree}}},
      {66'000, {{3020, kFenceMaterial, 20'000, 66'000, kTwentyPercent, true}}, true, true},
      {11'900, {{3010, kBrowsingProtection, 2'000, 11'900, kThirteenPercent}}, true, false, true}};
  return vouchers;
}

// Vouchers with the positions among which their amounts are divided.
class VoucherWriter {
 public:
  explicit VoucherWriter(Enterprise& enterprise) : enterprise_(enterprise), random_(enterprise.random) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      const int vouchers = 15 + 10 * enterprise_.scale;
      for (int i = 0; i < vouchers; ++i) WriteVoucher(client);
    }
    Finish();
  }

  void WriteTold() {
    for (const Told& told : ToldVouchers()) WriteVoucher(enterprise_.clients.front(), told);
    Finish();
  }

 private:
  struct Head {
    int id;
    DateTime invoiced;
    std::int64_t amount;  // cents
    bool euro = true, cancelled = false;
    int document = 0, position = 0;  // of the stores
  };

  void Finish() {
    rows_.Finish();
    positions_.Finish();
  }

  void WriteVoucher(Client& client) {
    const int id = ++enterprise_.last.voucher;
    const DateTime invoiced = AddDays(kFirstDay, random_.Between(20, kToday.Days() - kFirstDay.Days() - 20));
    const bool cancelled = random_.Chance(5);
    const auto cancelled_on =
        cancelled ? std::optional(std::min(AddDays(invoiced, 40), kToday)) : std::nullopt;
    const int positions = random_.Between(1, 3);
    std::int64_t amount = 0;
    for (int i = 0; i < positions; ++i) amount += WritePosition(client, id, invoiced, cancelled_on);
    WriteHead(client, {.id = id, .invoiced = invoiced, .amount = amount, .cancelled = cancelled});
  }

  void WriteVoucher(Client& client, const Told& told) {
    const DateTime invoiced = AddDays(kToday, -30);
    const LastIds& last = enterprise_.last;
    const int id = ++enterprise_.last.voucher;
    for (const ToldRow& row : told.rows) WritePosition(client, id, told, row, invoiced);
    WriteHead(client, {.id = id,
                       .invoiced = invoiced,
                       .amount = told.invoiced,
                       .euro = told.euro,
                       .cancelled = told.cancelled,
                       .document = told.from_stores ? last.stores_document : 0,
                       .position = told.from_stores ? last.stores_position : 0});
  }

  void WritePosition(Client& client, int voucher, const Told& told, const ToldRow& row, const DateTime& day) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const WorkType& type = codes.WorkTypeOf(row.work_type);
    const auto cost_type = std::ranges::find(codes.cost_types, row.cost_type, &CostType::number);
    const District& district = client.districts.back();
    WorkOrder& order = *client.WorkOrdersFor(day.year, type.product, district.centre).front();
    Position position(order, type, *cost_type, day);
    position.voucher = voucher;
    position.quantity = row.quantity;
    position.amount = row.amount;
    position.unit_price = (row.amount * 100 + row.quantity / 2) / row.quantity;
    position.vat = row.vat;
    position.euro = told.euro && !cost_type->revenue;
    position.location = district.locations.front();
    if (row.cancelled) position.cancelled = AddDays(day, 10);
    positions_.Write(position);
  }

  void WriteHead(const Client& client, const Head& head) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const int title = random_.Pick(codes.titles);
    const int kind = random_.Pick(codes.payment_kinds);
    const int reason = random_.Pick(codes.payment_reasons);
    const int payee = random_.Pick(enterprise_.suppliers);
    const int invoice = random_.Between(100, 99'999);
    rows_.Add(head.id, fmt::format("{}/{}/{:05}", client.number, head.invoiced.year, head.id),
              AddDays(head.invoiced, 5), codes.chapters[1], title, fmt::format("H{:06}", head.id),
              AddDays(head.invoiced, 4), fmt::format("RE-{}", invoice), head.invoiced,
              Decimal(head.amount, 2), head.euro, kind, reason, payee, head.cancelled, OrNull(head.document),
              OrNull(head.position));
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
  PositionWriter positions_{enterprise_};
  RowWriter rows_{
      enterprise_.connection, "BELEGE",
      "ID, NUMMER, BUCHUNGSDAT, KAPITEL_ID, TITEL_ID, HULNR, TAGANORD, RECHNUMER, RECHDATUM, RECHBERTRAG, "
      "RECHEURO, ZAHLUNGSART, ZAHLUNGSGRUND, ZAHLUNGSEMF, STORNO, LAGER_ID, POS_ID",
      RowWriter::Keys::kGiven};
};

}  // namespace

void BuildVouchers(Enterprise& enterprise) {
  VoucherWriter(enterprise).Write();
}

void BuildToldVouchers(Enterprise& enterprise) {
  VoucherWriter(enterprise).WriteTold();
}

}  // namespace tarvoni::demo
