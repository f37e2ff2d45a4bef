#include <algorithm>
#include <vector>

#include "host/demo/natural_writer.h"
#include "host/demo/parts.h"
#include "host/demo/position_writer.h"
#include "host/demo/timber_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kCancelledShare = 4;  // percent
constexpr int kOldCurrencyShare = 5;

DateTime DrawDay(Random& random, int year) {
  const DateTime last = year == kToday.year ? kToday : DateTime{year, 12, 20};
  return AddDays({year, 1, 2}, random.Between(0, last.Days() - DateTime{year, 1, 2}.Days()));
}

// Positions that are entered on the work orders themselves.
class OwnPositionWriter {
 public:
  explicit OwnPositionWriter(Enterprise& enterprise) : enterprise_(enterprise), random_(enterprise.random) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      for (WorkOrder& order : client.work_orders) {
        const int positions = random_.Between(0, 3 + enterprise_.scale / 10);
        for (int i = 0; i < positions; ++i) WritePosition(client, order);
      }
    }
    positions_.Finish();
    natural_.Finish();
    timber_.Finish();
    list_areas_.Finish();
  }

 private:
  void WritePosition(Client& client, WorkOrder& order) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const WorkType& type = DrawWorkType(codes, order);
    const CostType* cost_type = DrawCostType(random_, codes, type, CostUse::kOwn);
    if (cost_type == nullptr) return;
    Position position(order, type, *cost_type, DrawDay(random_, order.year));
    Measure(position);
    if (order.district != nullptr) position.location = random_.Pick(order.district->locations);
    if (type.Has(kTimber) && order.district != nullptr)
      WriteWithList(client, position);
    else
      WriteWithNature(position);
  }

  const WorkType& DrawWorkType(const CodeSet& codes, const WorkOrder& order) {
    std::vector<const WorkType*> fitting;
    for (const WorkType& type : codes.work_types) {
      if (type.product == order.product && type.FitsCentre(order.centre.type) && type.Has(kCost | kRevenue))
        fitting.push_back(&type);
    }
    return *random_.Pick(fitting);
  }

  void Measure(Position& position) {
    position.area = position.type.Has(kArea) ? random_.Between(2, 50) : 0;
    position.quantity = std::int64_t{random_.Between(10, 800)} * 100;
    position.unit_price =
        position.type.Has(kArea) ? random_.Between(8'000, 95'000) : random_.Between(80, 6'500);
    position.euro = !random_.Chance(kOldCurrencyShare);
    if (position.type.Has(kHours)) position.hours = random_.Between(10, 600);
    if (position.type.Has(kMachine)) position.machine_hours = random_.Between(10, 300);
    if (random_.Chance(kCancelledShare)) position.cancelled = std::min(AddDays(position.day, 30), kToday);
    Total(position);
  }

  // In cents, per hectare or unit; timber is sold for more than work costs.
  int DrawPrice(const Position& position) {
    if (position.type.Has(kArea)) return random_.Between(8'000, 95'000);
    if (position.type.Has(kTimber) && position.cost_type.revenue) return random_.Between(2'800, 10'500);
    return random_.Between(80, 3'500);
  }

  static void Total(Position& position) {
    position.amount = position.type.Has(kArea) ? position.area * position.unit_price / 10
                                               : (position.quantity * position.unit_price + 50) / 100;
  }

  // Timber work takes its quantity from a measured list; a cancelled position keeps none.
  void WriteWithList(const Client& client, Position& position) {
    position.cancelled.reset();
    const int logs = random_.Between(6, 20);
    const ListOwner owner{0, position.work_order.id, enterprise_.last.position + 1};
    const WrittenList list =
        timber_.Write({client, *position.work_order.district, enterprise_.services.contractor,
                       position.work_order.year, logs, false, owner});
    position.quantity = list.volume;
    Total(position);
    const int id = positions_.Write(position);
    if (random_.Chance(50)) list_areas_.Add(id, list.id, list.name, Decimal(random_.Between(3, 30), 1));
  }

  void WriteWithNature(const Position& position) {
    const int id = positions_.Write(position);
    if (position.type.Has(kNatural) && random_.Chance(70))
      natural_.WriteForPosition(id, position.type, *position.work_order.district, position.location);
  }

  Enterprise& enterprise_;
  Random& random_;
  PositionWriter positions_{enterprise_};
  NaturalWriter natural_{enterprise_};
  TimberWriter timber_{enterprise_};
  RowWriter list_areas_{enterprise_.connection, "NATURALVOLLZUG_LISTE",
                        "AA_ID, ID_LISTENKOPF, LISTE, FLAECHE"};
};

}  // namespace

void BuildPositions(Enterprise& enterprise) {
  OwnPositionWriter(enterprise).Write();
}

void BuildFreeLists(Enterprise& enterprise) {
  TimberWriter timber(enterprise);
  const Services& services = enterprise.services;
  const int lists = 1 + enterprise.scale / 20;
  for (const Client& client : enterprise.clients) {
    for (const District& district : client.districts) {
      for (const int service : {services.time_wage, services.est, services.contractor}) {
        for (int i = 0; i < lists; ++i) {
          const int logs = enterprise.random.Between(6, 18);
          const bool locked = enterprise.random.Chance(12);
          timber.Write({client, district, service, kToday.year, logs, locked, {}});
        }
      }
    }
  }
  timber.Finish();
}

}  // namespace tarvoni::demo
