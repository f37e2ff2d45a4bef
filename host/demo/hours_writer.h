#pragma once

#include <cstdint>

#include "host/demo/enterprise.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {

// Writes the hours of wage orders and sums what they are worth.
class HoursWriter {
 public:
  explicit HoursWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  // A team's hours for the days on an order: the direct wage, and what goes with the work.
  void WriteDays(int order, const Team& team, const std::vector<DateTime>& days, int direct_wage,
                 bool chainsaw);
  // What the hours since the last call are worth, in cents.
  std::int64_t TakeWorth();
  void Finish() { rows_.Finish(); }

 private:
  void WriteDay(int order, const Worker& worker, const DateTime& day, const WageType& direct_wage,
                bool chainsaw);
  // `quantity`: hours or units, in hundredths.
  void Add(int order, const Worker& worker, const DateTime& day, const WageType& type, int quantity);

  Enterprise& enterprise_;
  std::int64_t worth_ = 0;  // in ten-thousandths
  const WageType& motor_hours_ = enterprise_.WageTypeOf(kMotorHours);
  const WageType& tool_money_ = enterprise_.WageTypeOf(kToolMoney);
  const WageType& overtime_ = enterprise_.WageTypeOf(kOvertime);
  const WageType& dirt_ = enterprise_.WageTypeOf(kDirtAllowance);
  const WageType& kilometres_ = enterprise_.WageTypeOf(kTravelKilometres);
  RowWriter rows_{
      enterprise_.connection, "ARA_STUNDEN",
      "ID_ARA_KOPF, ID_PERSONAL, ID_LOHNARTEN, BEARBEITUNG, VERLOHNUNG, AUSZAHLUNGSMONAT, STUNDEN"};
};

}  // namespace tarvoni::demo
