#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"

// The statements of F_Arbeitnehmer: the hours of one wage order in ARA_STUNDEN.
namespace tarvoni::arbeitnehmer_sql {

// An order without hours gives one row with an empty ID. MODIFY locks a row, MODIFYNEW the order against new ones.
SqlText HoursOfOrder(std::int32_t order);

// The wage types allowed for the order: those with an offered rate, and those that the options name for its group.
SqlText WageTypes(std::int32_t order);
SqlText FindWageType(std::int32_t order, std::string_view typed);
SqlText DirectWageType(std::int32_t order);
SqlText HasRate(std::string_view wage_type);

SqlText MonthOfOrder(std::int32_t order);

// Inserts an empty row and gives its id.
SqlText InsertHours(std::int32_t order);
// Tags and texts may be empty where a column may be NULL.
struct Hours {
  std::optional<DateTime> working_month;
  std::optional<DateTime> day;
  std::string_view worker;
  std::string_view wage_type;
  std::optional<DateTime> paying_month;
  std::string_view hours;
  std::string_view percentage;
};
SqlText UpdateHours(std::int32_t id, const Hours& hours, std::string_view sql_date_format);
SqlText DeleteHours(std::int32_t id);

}  // namespace tarvoni::arbeitnehmer_sql
