#include <fmt/format.h>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/wage_scales.h"

namespace tarvoni::demo {
namespace {

constexpr int kLowestHour = 112'000;  // of the first wage group, in ten-thousandths
constexpr int kGroupStep = 8'000;
constexpr int kLowestMonth = 1'640;  // of the tariff, in euros
constexpr int kPayGroupStep = 135;
constexpr int kStageStep = 58;

void WriteWageGroups(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "LOHNGRUPPE", "NAME, BETRAG, DATEWHILE");
  for (int group = 0; group < kWageGroups; ++group) {
    enterprise.wage_groups.push_back(RisingRates(kLowestHour + group * kGroupStep));
    for (const DatedRate& amount : enterprise.wage_groups.back())
      writer.Add(WageGroupName(group), Decimal(amount.rate, 4), amount.from);
  }
  writer.Finish();
}

void WriteTariff(Connection& connection) {
  RowWriter writer(connection, "TSP_ENTGELTE", "ENTGELDGRUPPE, ENTWSTUFFE, BETRAG, VALIDFROM");
  for (int group = kFirstPayGroup; group <= kLastPayGroup; ++group) {
    for (int stage = 1; stage <= kStages; ++stage) {
      const int month = (kLowestMonth + group * kPayGroupStep + stage * kStageStep) * 10'000;
      for (const DatedRate& amount : RisingRates(month))
        writer.Add(group, stage, Decimal(amount.rate, 4), amount.from);
    }
  }
  writer.Finish();
}

}  // namespace

std::vector<DatedRate> RisingRates(int first) {
  constexpr std::int64_t kCent = 100;
  std::vector<DatedRate> rates;
  rates.reserve(kAgreements.size());
  for (const Agreement& agreement : kAgreements)
    rates.push_back(
        {agreement.from, static_cast<std::int64_t>(first) * agreement.percent / 100 / kCent * kCent});
  return rates;
}

std::string WageGroupName(int index) {
  return fmt::format("LG {}", index + 1);
}

void BuildWageScales(Enterprise& enterprise) {
  WriteWageGroups(enterprise);
  WriteTariff(enterprise.connection);
}

}  // namespace tarvoni::demo
