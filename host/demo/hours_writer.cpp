#include "host/demo/hours_writer.h"

#include <utility>

namespace tarvoni::demo {

void HoursWriter::Add(int order, const Worker& worker, const DateTime& day, const WageType& type,
                      int quantity) {
  const Month month = MonthOf(day);
  rows_.Add(order, worker.id, type.id, month.First(), day, AddMonths(month, type.payment_shift).First(),
            Decimal(quantity, 2));
  worth_ += quantity * HourRate(enterprise_, type, worker, day);
}

void HoursWriter::WriteDay(int order, const Worker& worker, const DateTime& day, const WageType& direct_wage,
                           bool chainsaw) {
  Random& random = enterprise_.random;
  constexpr int kQuarter = 25;
  const int quarters = random.Between(26, 36);
  Add(order, worker, day, direct_wage, quarters * kQuarter);
  if (chainsaw) {
    Add(order, worker, day, motor_hours_, random.Between(quarters / 3, quarters * 2 / 3) * kQuarter);
    if (random.Chance(60)) Add(order, worker, day, tool_money_, quarters * kQuarter);
  }
  if (random.Chance(15)) Add(order, worker, day, dirt_, random.Between(4, quarters) * kQuarter);
  if (random.Chance(6)) Add(order, worker, day, overtime_, random.Between(2, 8) * kQuarter);
  if (random.Chance(25)) Add(order, worker, day, kilometres_, random.Between(6, 48) * 100);
}

void HoursWriter::WriteDays(int order, const Team& team, const std::vector<DateTime>& days, int direct_wage,
                            bool chainsaw) {
  const WageType& type = enterprise_.WageTypeOf(direct_wage);
  for (const DateTime& day : days) {
    for (const int worker : team.workers)
      WriteDay(order, enterprise_.workers[static_cast<std::size_t>(worker)], day, type, chainsaw);
  }
}

std::int64_t HoursWriter::TakeWorth() {
  constexpr std::int64_t kInCent = 100;
  return (std::exchange(worth_, 0) + kInCent / 2) / kInCent;
}

}  // namespace tarvoni::demo
