#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_EST_Stucklohn beside that of the logs (est_pricing.h) and those of the timber lists
// (timber_lists.h).
namespace tarvoni::est_stucklohn_sql {

// The special surcharges of a timber list under these headings.
SqlText SurchargesOfList(std::string_view list, std::string_view mark_heading,
                         std::string_view value_heading);

// What is kept of the wage order. An empty month or year is NULL.
struct Order {
  bool tool_money = false;
  bool untypical = false;
  std::string_view month;
  std::string_view year;
};
SqlText UpdateOrder(std::int32_t id, const Order& order);

// What is kept of a log; what is empty is NULL.
struct Log {
  std::string_view est;
  std::string_view bark;
  std::string_view skidding;
  std::string_view diameter;  // centimetres, as typed
};
// An empty id meets no log.
SqlText UpdateLog(std::string_view id, const Log& log);

}  // namespace tarvoni::est_stucklohn_sql
