#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>

#include "host/demo/hours_writer.h"
#include "host/demo/natural_writer.h"
#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/timber_writer.h"
#include "host/demo/wage_order_plan.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kFirstYear = 2023;
constexpr int kTimeWageShare = 60;  // percent of the orders
constexpr int kEstShare = 20;
constexpr int kOverheadShare = 4;  // of the time-wage orders: without product order and forest location
constexpr int kCancelledShare = 3;
constexpr int kBigOrderLogs = 50;   // at scale 1
constexpr int kBigOrderList = 250;  // logs in one list of the big order
constexpr std::array kPieceworkTypes = {1060, 2010, 2020, 2050, 3010, 3020};

enum class PayGroup { kTime = 1, kEst, kPiece };

// An order while it is being made.
struct Order {
  Order(Client& of, const PlannedOrder& planned)
      : client(of), team(of.teams[planned.team]), days(planned.days) {}

  Client& client;
  const Team& team;
  const std::vector<DateTime>& days;
  const District* district = nullptr;  // nothing for overhead
  const WorkType* type = nullptr;
  const WorkOrder* work_order = nullptr;
  PayGroup group = PayGroup::kTime;
  int number = 0;
  int id = 0;
  int position = 0;
  int location = 0;

  int Year() const { return days.front().year; }
  const CostCentre& Centre() const {
    return district != nullptr ? district->centre : client.Centre(CentreType::kAdministration);
  }
};

class WageOrderWriter {
 public:
  WageOrderWriter(Enterprise& enterprise, const std::function<void(double)>& progress)
      : enterprise_(enterprise), random_(enterprise.random), progress_(progress) {
    for (const Client& client : enterprise.clients)
      for (const int orders : client.orders_a_year) all_orders_ += orders * enterprise.scale;
  }

  void Write() {
    for (Client& client : enterprise_.clients) {
      for (std::size_t year = 0; year < client.orders_a_year.size(); ++year)
        WriteYear(client, kFirstYear + static_cast<int>(year),
                  client.orders_a_year[year] * enterprise_.scale);
    }
    heads_.Finish();
    positions_.Finish();
    lines_.Finish();
    hours_.Finish();
    natural_.Finish();
    timber_.Finish();
  }

 private:
  void WriteYear(Client& client, int year, int orders) {
    int number = 0;
    for (const PlannedOrder& planned : PlanYear(random_, client, year, orders)) {
      Order order(client, planned);
      order.number = ++number;
      Choose(order, planned.team);
      WriteOrder(order);
      if (number % 64 == 0) progress_(static_cast<double>(enterprise_.last.wage_order) / all_orders_);
    }
  }

  // Group, place, work type and work order.
  void Choose(Order& order, std::size_t team) {
    order.id = ++enterprise_.last.wage_order;
    order.position = ++enterprise_.last.position;
    order.group = DrawGroup();
    if (order.group == PayGroup::kTime && random_.Chance(kOverheadShare)) {
      order.type = &enterprise_.CodesOf(order.client).WorkTypeOf(9020);
      return;
    }
    const auto& districts = order.client.districts;
    order.district = random_.Chance(85) ? &districts[team % districts.size()] : &random_.Pick(districts);
    order.type = &DrawWorkType(order);
    order.location = random_.Pick(order.district->locations);
    const auto work_orders = order.client.WorkOrdersFor(order.Year(), order.type->product, order.Centre());
    order.work_order = random_.Pick(work_orders);
  }

  PayGroup DrawGroup() {
    const int place = random_.Between(1, 100);
    if (place <= kTimeWageShare) return PayGroup::kTime;
    return place <= kTimeWageShare + kEstShare ? PayGroup::kEst : PayGroup::kPiece;
  }

  const WorkType& DrawWorkType(const Order& order) {
    const CodeSet& codes = enterprise_.CodesOf(order.client);
    if (order.group == PayGroup::kPiece) return codes.WorkTypeOf(random_.Pick(kPieceworkTypes));
    while (true) {
      const WorkType& type = random_.Pick(codes.work_types);
      if (!type.Has(kHours) || type.Has(kRevenue) || type.number >= 5000) continue;
      if (type.FitsCentre(CentreType::kDistrict) && type.Has(kEst) == (order.group == PayGroup::kEst))
        return type;
    }
  }

  void WriteOrder(Order& order) {
    const bool chainsaw = order.type->Has(kChainsaw);
    hours_.WriteDays(order.id, order.team, order.days, DirectWage(order.group), chainsaw);
    WriteHead(order, chainsaw);
    WritePosition(order);
    if (order.type->Has(kTimber) && (order.group == PayGroup::kEst || random_.Chance(40)))
      WriteLists(order);
    else if (!order.type->Has(kNoLines))
      WriteLines(order);
  }

  static int DirectWage(PayGroup group) {
    constexpr std::array kTypes = {kTimeWage, kEstPiecework, kOtherPiecework};
    return kTypes[static_cast<std::size_t>(group) - 1];
  }

  int Service(const Order& order) const {
    const Services& services = enterprise_.services;
    const std::array kServices = {services.time_wage, services.est, services.piecework};
    return kServices[static_cast<std::size_t>(order.group) - 1];
  }

  void WriteHead(const Order& order, bool chainsaw) {
    const bool est = order.group == PayGroup::kEst;
    const bool piece = order.group == PayGroup::kPiece;
    const Month month = MonthOf(order.days.back());
    const auto fwj = std::to_string(order.Year());
    const int machine_share = chainsaw && random_.Chance(30) ? 25 : 0;
    const bool described = random_.Chance(80);
    const auto reason =
        piece ? std::optional(std::to_string(random_.Between(1, kWageReasons))) : std::nullopt;
    const bool unusual = random_.Chance(5);
    heads_.Add(order.id, fmt::format("{}{}{:04}", order.Centre().number, fwj, order.number), order.number,
               fwj, order.client.id, machine_share, OrNull(est ? month.year : 0),
               OrNull(est ? month.month : 0), described ? std::optional(Description(order)) : std::nullopt,
               Decimal(hours_.TakeWorth(), 2), reason, order.team.gang, unusual, chainsaw);
  }

  static std::string Description(const Order& order) {
    return order.district == nullptr ? std::string(order.type->name)
                                     : fmt::format("{} im {}", order.type->name, order.district->name);
  }

  // The paired row; a cancelled order keeps all its details.
  void WritePosition(const Order& order) {
    const DateTime noticed = AddDays(order.days.back(), random_.Between(3, 25));
    const bool cancelled = random_.Chance(kCancelledShare);
    positions_.Add(order.position, "A", order.days.front(),
                   OrNull(order.work_order == nullptr ? 0 : order.work_order->id), order.id,
                   order.Centre().id, order.type->id, Service(order), OrNull(order.location),
                   cancelled ? std::optional(std::min(noticed, kToday)) : std::nullopt);
  }

  void WriteLists(const Order& order) {
    const ListOwner owner{order.id, order.work_order->id, order.position};
    TimberList list{order.client, *order.district, Service(order), order.Year(), 0, false, owner};
    int logs = random_.Between(8, 32);
    if (TakeBigOrder(order)) logs = kBigOrderLogs * enterprise_.scale;
    const int most = logs > kBigOrderList ? kBigOrderList : (logs + 1) / 2;
    for (int left = logs; left > 0; left -= list.logs) {
      list.logs = std::min(left, most);
      timber_.Write(list);
    }
  }

  // True for the one order with very many logs: the first EST order of the standard year.
  bool TakeBigOrder(const Order& order) {
    if (big_order_taken_ || order.group != PayGroup::kEst || order.Year() != kToday.year) return false;
    return big_order_taken_ = true;
  }

  void WriteLines(const Order& order) {
    const int lines = random_.Between(1, 3);
    for (int i = 0; i < lines; ++i) WriteLine(order);
  }

  void WriteLine(const Order& order) {
    const bool piece = order.group == PayGroup::kPiece;
    const bool species = order.district != nullptr && random_.Chance(70);
    const int species_id = random_.Pick(enterprise_.species);
    const int area = random_.Between(2, 40);  // tenths of a hectare
    const int quantity = random_.Between(10, 1200);
    const int minutes = random_.Between(20, 400);  // tenths of a minute
    const int id = ++enterprise_.last.wage_line;
    lines_.Add(id, order.id, OrNull(species ? species_id : 0), Decimal(area, 1), quantity,
               OrNull(piece ? quantity : 0), OrNull(piece ? order.type->unit : 0),
               piece ? std::optional(Decimal(minutes, 1)) : std::nullopt,
               piece ? std::optional(Decimal(minutes * 3 / 10, 1)) : std::nullopt);
    if (order.type->Has(kNatural) && random_.Chance(80))
      natural_.WriteForLine(id, *order.type, *order.district, order.location);
  }

  Enterprise& enterprise_;
  Random& random_;
  const std::function<void(double)>& progress_;
  int all_orders_ = 0;
  bool big_order_taken_ = false;
  HoursWriter hours_{enterprise_};
  NaturalWriter natural_{enterprise_};
  TimberWriter timber_{enterprise_};
  RowWriter heads_{
      enterprise_.connection, "ARA_KOPF",
      "ID, NAME, NAME_NUMMER, NAME_FWJ, PERSONAL_ID, PROZENTSATZ_MZ, ABRECHNUNGSJAHR, ABRECHNUNGSMONAT, "
      "BESCHREIBUNG, GESAMNT, ID_LOHNGRUND, ID_RELTABLE_ROTTE, UNTYPISCH, WERKZEUGGELD",
      RowWriter::Keys::kGiven};
  RowWriter positions_{
      enterprise_.connection, "ARBEITSAUFTRAG",
      "ID, QUELLE, DATUM_NR, ARBEITSAUFTRAG_KOPF_ID, ID_ARA_KOPF, KOSTENSTELLE_ID, LEISTUNGSART_ID, "
      "LEISTUNG, WO_ID, STORNODATUM",
      RowWriter::Keys::kGiven};
  RowWriter lines_{enterprise_.connection, "ARA_LOHN",
                   "ID, ID_ARA_KOPF, ID_HOLZART, FLACHE, MENGEKLR, MENGELOHN, ID_WARENEINHEITLOHN, AZ, MZ",
                   RowWriter::Keys::kGiven};
};

}  // namespace

void BuildWageOrders(Enterprise& enterprise, const std::function<void(double)>& progress) {
  WageOrderWriter(enterprise, progress).Write();
}

}  // namespace tarvoni::demo
