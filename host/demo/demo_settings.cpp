#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/settings_rows.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

struct NumberOption {
  std::string_view key;
  int value;
};
constexpr auto kNumberOptions = std::to_array<NumberOption>({
    {"SA_VERFAHREN", 1},
    {"ARAPERCENTSATZ", 0},
    {"ARAUNTYPISCH", 0},
    {"STANDARD_HSGR", 1},
    {"STANDARD_HS", 1},
    {"STANDARD_HA", 1},
    {"STANDARD_LEISTUNG", 1},
    {"STANDARD_ROTTE", 2},
    {"STANDARD_FORSTAMP", 41},
    {"STANDARDMANDANTEN", 1},
    {"LISTE_KUBATUR_MENGE", 1},
});

struct WageTypeOption {
  std::string_view key;
  int number;
};
constexpr auto kWageTypeOptions = std::to_array<WageTypeOption>({{"ZL_AZ", kTimeWage},
                                                                 {"ZL_MZ", kMotorHours},
                                                                 {"ZL_WZ", kToolMoney},
                                                                 {"EST_AZ", kEstPiecework},
                                                                 {"STUCK_AZ", kOtherPiecework}});

}  // namespace

void WriteOptions(Connection& connection, int forest_year) {
  RowWriter numbers(connection, "OPTIONEN", "PROPERTY_ID, NUMBER_VALUE");
  for (const auto& option : kNumberOptions) numbers.Add(option.key, option.value);
  numbers.Finish();
  RowWriter texts(connection, "OPTIONEN", "PROPERTY_ID, TEXT_VALUE");
  texts.Add("STANDARD_FWJ", std::to_string(forest_year));
  for (const auto& option : kWageTypeOptions) texts.Add(option.key, std::to_string(option.number));
  texts.Finish();
  connection.Execute("INSERT INTO OPTIONEN (PROPERTY_ID, DOUBLE_VALUE) VALUES ('UFAKTNAT_EURO', 13.7603)");
}

void WriteMonths(Connection& connection, Month first, Month last, int last_closed) {
  RowWriter closings(connection, "LOHNABSCHLUSS", "JAHR, MONAT, ASCHLUSS_L");
  for (const Month& month : MonthsBetween(first, last))
    closings.Add(month.year, month.month, month.Number() <= last_closed);
  closings.Finish();
}

// Month and year are texts, as the wage journal reads them.
void WriteTargetHours(Connection& connection, Month first, Month last) {
  RowWriter targets(connection, "BB_T_MONAT", "NUMMER, JAHR, SOLL_STUNDENVORGABE");
  for (const Month& month : MonthsBetween(first, last)) {
    const auto days = WorkDays(month.First(), AddDays(AddMonths(month, 1).First(), -1));
    targets.Add(std::to_string(month.month), std::to_string(month.year), static_cast<int>(days.size()) * 8);
  }
  targets.Finish();
}

void WriteLayouts(Connection& connection) {
  connection.Execute(R"(
INSERT INTO MODELS (MODEL, STANDARD, NAME, RELATION)
VALUES ('400,400,850,800,800,1100,1000,1100,1100,1000,800,800,800,800', 1, 'STANDARD', 'GRID_ARBEITSAUFTRAG'))");
}

void BuildSettings(Enterprise& enterprise) {
  Connection& connection = enterprise.connection;
  WriteOptions(connection, kToday.year);
  WriteMonths(connection, {2023, 1}, {2024, 6}, kLastClosedMonth);
  WriteTargetHours(connection, {2023, 1}, {2024, 12});
  WriteLayouts(connection);
}

}  // namespace tarvoni::demo
