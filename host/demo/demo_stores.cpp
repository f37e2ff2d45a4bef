#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

struct Goods {
  std::string_view name;
  Unit unit;
  int price;      // cents
  int work_type;  // on which it is spent
  int cost_type;
};
constexpr auto kGoods =
    std::to_array<Goods>({{"Fichte 2/2, 30-50 cm", kPieces, 62, 2010, kPlants},
                          {"Lärche 1/2, 50-80 cm", kPieces, 88, 2010, kPlants},
                          {"Rotbuche 1/1, 30-50 cm", kPieces, 74, 2020, kPlants},
                          {"Drahtgeflecht 1,60 m", kMetres, 245, 3020, kFenceMaterial},
                          {"Zaunpflöcke Lärche 2,30 m", kPieces, 410, 3020, kFenceMaterial},
                          {"Verbissschutz streichfähig", kKilograms, 595, 3010, kBrowsingProtection},
                          {"Sägekettenöl biologisch", kLitres, 285, 2040, kSmallMaterial},
                          {"Markierspray orange", kPieces, 465, 1090, kSmallMaterial},
                          {"Betonrohr 40 cm", kMetres, 3'890, 4030, kRoadMaterial}});

// A document with one sort of goods that shows a case, whatever the random ones hold.
struct Told {
  int goods;  // of kGoods
  int quantity, drawn;
  bool cancelled;
  bool euro;
};
constexpr auto kTold = std::to_array<Told>({{0, 4000, 4000, false, true},  // all drawn
                                            {3, 500, 250, false, true},    // half drawn
                                            {4, 240, 0, false, false},     // untouched, in the local currency
                                            {5, 60, 20, true, false}});    // its only withdrawal is cancelled

// Stores documents, the goods on them and what was taken out.
class StoresWriter {
 public:
  explicit StoresWriter(Enterprise& enterprise) : enterprise_(enterprise), random_(enterprise.random) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      const int documents = 6 + 2 * enterprise_.scale;
      for (int i = 0; i < documents; ++i) WriteDocument(client);
    }
    Client& client = enterprise_.clients.front();
    for (const Told& told : kTold) WriteTold(client, told);
    documents_.Finish();
    goods_.Finish();
    withdrawals_.Finish();
  }

 private:
  void WriteDocument(Client& client) {
    const int id = ++enterprise_.last.stores_document;
    const DateTime delivered = AddDays(kFirstDay, random_.Between(10, 420));
    const CodeSet& codes = enterprise_.CodesOf(client);
    std::int64_t amount = 0;
    const int count = random_.Between(1, 4);
    for (int i = 0; i < count; ++i) amount += WriteGoods(client, id, delivered);
    const int payee = random_.Pick(enterprise_.suppliers);
    const int invoice = random_.Between(100, 99'999);
    documents_.Add(id, fmt::format("L{}-{:04}", client.number, id), client.id, AddDays(delivered, 3),
                   codes.chapters[1], codes.titles[3], fmt::format("H{:06}", id), AddDays(delivered, 2),
                   fmt::format("LR-{}", invoice), delivered, Decimal(amount, 2), true,
                   codes.payment_kinds.front(), codes.payment_reasons.front(), payee);
  }

  void WriteTold(Client& client, const Told& told) {
    const Goods& goods = kGoods[static_cast<std::size_t>(told.goods)];
    const DateTime delivered = AddDays(kToday, -40);
    const CodeSet& codes = enterprise_.CodesOf(client);
    const int id = ++enterprise_.last.stores_document;
    const Decimal cost(Int128{told.quantity} * goods.price, 2);
    documents_.Add(id, fmt::format("L{}-{:04}", client.number, id), client.id, AddDays(delivered, 3),
                   codes.chapters[1], codes.titles[3], fmt::format("H{:06}", id), AddDays(delivered, 2),
                   fmt::format("LR-{}", id), delivered, cost, told.euro, codes.payment_kinds.front(),
                   codes.payment_reasons.front(), enterprise_.suppliers.front());
    const int position = ++enterprise_.last.stores_position;
    goods_.Add(position, id, Decimal(goods.price, 2), told.quantity, goods.unit, cost, told.euro, goods.name);
    if (told.drawn == 0) return;
    const WorkType& type = codes.WorkTypeOf(goods.work_type);
    const District& district = client.districts.front();
    const DateTime day = AddDays(delivered, 5);
    const WorkOrder& order = *client.WorkOrdersFor(day.year, type.product, district.centre).front();
    withdrawals_.Add(++enterprise_.last.position, "L", true, 0, day, position, fmt::format("E{:04}", id),
                     district.centre.id, order.id, type.id, type.methods.front(),
                     codes.CostTypeId(goods.cost_type), district.locations.front(), told.drawn, true,
                     Decimal(goods.price, 2), type.unit, told.drawn,
                     Decimal(Int128{told.drawn} * goods.price, 2),
                     told.cancelled ? std::optional(AddDays(day, 10)) : std::nullopt);
  }

  // The cost of the goods in cents.
  std::int64_t WriteGoods(Client& client, int document, const DateTime& delivered) {
    const Goods& goods = random_.Pick(kGoods);
    const int id = ++enterprise_.last.stores_position;
    const int quantity = random_.Between(20, 1500);
    const std::int64_t cost = static_cast<std::int64_t>(quantity) * goods.price;
    goods_.Add(id, document, Decimal(goods.price, 2), quantity, goods.unit, Decimal(cost, 2), true,
               goods.name);
    int left = quantity;
    const int withdrawals = random_.Between(0, 3);
    for (int i = 0; i < withdrawals && left > 0; ++i) left -= Withdraw(client, id, goods, delivered, left);
    return cost;
  }

  // How much really left the store: nothing when the withdrawal was cancelled.
  int Withdraw(Client& client, int position, const Goods& goods, const DateTime& delivered, int left) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const WorkType& type = codes.WorkTypeOf(goods.work_type);
    const DateTime day = std::min(AddDays(delivered, random_.Between(4, 60)), kToday);
    const District& district = random_.Pick(client.districts);
    const WorkOrder& order = *client.WorkOrdersFor(day.year, type.product, district.centre).front();
    const int taken = random_.Between(1, left);
    const int location = random_.Pick(district.locations);
    const bool cancelled = random_.Chance(8);
    const int slip = random_.Between(1, 9999);
    withdrawals_.Add(++enterprise_.last.position, "L", true, 0, day, position, fmt::format("E{:04}", slip),
                     district.centre.id, order.id, type.id, type.methods.front(),
                     codes.CostTypeId(goods.cost_type), location, taken, true, Decimal(goods.price, 2),
                     type.unit, taken, Decimal(Int128{taken} * goods.price, 2),
                     cancelled ? std::optional(std::min(AddDays(day, 10), kToday)) : std::nullopt);
    return cancelled ? 0 : taken;
  }

  Enterprise& enterprise_;
  Random& random_;
  RowWriter documents_{
      enterprise_.connection, "LAGER",
      "ID, NUMMER, PERSONAL_ID, BUCHUNGSDAT, KAPITEL_ID, TITEL_ID, HULNR, TAGANORD, RECHNUMER, "
      "RECHDATUM, RECHBERTRAG, RECHEURO, ZAHLUNGSART, ZAHLUNGSGRUND, ZAHLUNGSEMF",
      RowWriter::Keys::kGiven};
  RowWriter goods_{enterprise_.connection, "LAGER_POS",
                   "ID, LAGER_ID, KOSTENE, MENGE, EINH_ID, GESAMT, EURO, BEZEICHNUNG",
                   RowWriter::Keys::kGiven};
  RowWriter withdrawals_{
      enterprise_.connection, "ARBEITSAUFTRAG",
      "ID, QUELLE, EURO, ORDERS, DATUM_NR, ID_LAGER_POS, BELEGNUNMMER, KOSTENSTELLE_ID, "
      "ARBEITSAUFTRAG_KOPF_ID, LEISTUNGSART_ID, VERFAHREN_ID, KOSTENART_ID, WO_ID, MENGE, PRO_MENGE, "
      "KOSTEN, EINH_ID, LAGERMENGE, GESAMT, STORNODATUM",
      RowWriter::Keys::kGiven};
};

}  // namespace

void BuildStores(Enterprise& enterprise) {
  StoresWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
