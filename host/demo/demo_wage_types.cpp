#include <array>
#include <optional>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/wage_scales.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

// EINHEIT.ID
constexpr int kHourUnit = 1;
constexpr int kPieceUnit = 2;
constexpr int kKilometreUnit = 3;
constexpr int kEuroUnit = 5;

struct WageTypeRow {
  int number;
  std::string_view name;
  int unit;
  int mode;       // BERECHNUNGSMODUS
  int factor;     // DLS_LG
  bool has_rate;  // SLA
  bool offered;   // CHK7
  int percent;    // ZUSCHLAGSPROZENT
  int shift;      // ZAHLUNGSVERSCHIEBUNG
  int stage;      // of the tariff; 0: none
  int rate;       // in ten-thousandths; 0: none
  bool rises;     // with the wage agreements
  bool disabled;
};
constexpr auto kWageTypes = std::to_array<WageTypeRow>({
    {kTimeWage, "Zeitlohn, Arbeitszeit", kHourUnit, 1, 2, true, false, 0, 0, 0, 10000, false, false},
    {kMotorHours, "Motorsägenstunden", kHourUnit, 1, 0, true, false, 0, 0, 0, 32500, true, false},
    {kToolMoney, "Werkzeuggeld", kHourUnit, 1, 0, true, false, 0, 0, 0, 4200, true, false},
    {kEstPiecework, "EST-Stücklohn, Arbeitszeit", kHourUnit, 1, 2, true, false, 0, 0, 0, 12500, false, false},
    {kOtherPiecework, "Sonstiger Stücklohn", kHourUnit, 1, 1, true, false, 0, 0, 0, 128000, true, false},
    {kOvertime, "Überstunden 50 %", kHourUnit, 1, 2, true, true, 0, 1, 0, 15000, false, false},
    {1320, "Überstunden 100 %", kHourUnit, 1, 2, true, true, 0, 1, 0, 20000, false, false},
    {kDirtAllowance, "Erschwerniszulage", kHourUnit, 1, 0, true, true, 0, 0, 0, 11500, true, false},
    {1420, "Gefahrenzulage Seilbringung", kHourUnit, 1, 0, true, true, 0, 0, 0, 15300, true, false},
    {kPieceBonus, "Akkordprämie", kPieceUnit, 2, 1, true, true, 0, 1, 0, 1850, true, false},
    {kTravelKilometres, "Kilometergeld", kKilometreUnit, 1, 0, true, true, 0, 1, 0, 4200, false, false},
    {1520, "Hundehaltung", kEuroUnit, 1, 0, false, false, 0, 0, 0, 10000, false, false},
    {kHoliday, "Urlaub", kHourUnit, 3, 0, true, false, 100, 0, 3, 0, false, false},
    {kPublicHoliday, "Feiertagsentgelt", kHourUnit, 3, 0, true, false, 100, 0, 3, 0, false, false},
    {kSickness, "Krankenentgelt", kHourUnit, 4, 0, true, false, 100, 0, 4, 0, false, false},
    {kExtraWorkShare, "Mehrarbeitszuschlag", kHourUnit, 3, 0, true, false, 25, 1, 4, 0, false, false},
    {kSeniority, "Dienstalterszulage", kHourUnit, 4, 0, true, false, 8, 1, 6, 0, false, false},
    {1190, "Altakkord", kHourUnit, 1, 1, true, true, 0, 0, 0, 90000, false, true},
});

std::vector<DatedRate> RatesOf(const WageTypeRow& row) {
  if (row.rate == 0) return {};
  if (!row.rises) return {{kAgreements.front().from, row.rate}};
  return RisingRates(row.rate);
}

void WriteRates(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "ONETODATE", "TABLE_COLUMN, TABLE_ID, DATUM, RATE");
  for (const WageType& type : enterprise.wage_types) {
    for (const DatedRate& rate : type.rates)
      writer.Add("LOHNARTEN.SATZ", type.id, rate.from, Decimal(rate.rate, 4));
  }
  int id = 0;
  for (const WageTypeRow& row : kWageTypes) {
    ++id;
    if (row.stage != 0)
      writer.Add("LOHNARTEN.ENTWSTUFFE", id, kAgreements.front().from, Decimal(row.stage, 0));
  }
  writer.Finish();
}

}  // namespace

// All clients share one set: the options name the direct wage types by number alone.
void BuildWageTypes(Enterprise& enterprise) {
  RowWriter writer(
      enterprise.connection, "LOHNARTEN",
      "ID, NUMBER, NAME, EINHEIT, TABLE_NAME, DISABLE, BERECHNUNGSMODUS, SATZ, ENTWSTUFFE, DLS_LG, SLA, "
      "CHK7, ZUSCHLAGSPROZENT, ZAHLUNGSVERSCHIEBUNG",
      RowWriter::Keys::kGiven);
  for (const WageTypeRow& row : kWageTypes) {
    const int id = static_cast<int>(enterprise.wage_types.size()) + 1;
    auto rates = RatesOf(row);
    const auto newest = rates.empty() ? std::nullopt : std::optional(Decimal(rates.back().rate, 4));
    writer.Add(id, row.number, row.name, row.unit, "LOHN", row.disabled, row.mode, newest, OrNull(row.stage),
               row.factor, row.has_rate, row.offered, row.percent, row.shift);
    enterprise.wage_types.push_back({id, row.number, row.mode, row.factor, row.shift, std::move(rates)});
  }
  writer.Finish();
  WriteRates(enterprise);
}

}  // namespace tarvoni::demo
