#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_Sonst_Stucklohn.
namespace tarvoni::sonst_stucklohn_sql {

// The lines with their natural execution and with what the order is; one row whose ID is NULL without lines.
SqlText LinesOfOrder(std::int32_t order);

struct Marks {
  bool tool_money = false;
  bool unusual = false;
  std::string_view wage_basis;  // a Tag
};
SqlText UpdateOrder(std::int32_t order, const Marks& marks);

// `species` and `wage_unit` are Tags, the numbers are as typed; empty is NULL.
struct Line {
  std::string_view species;
  std::string_view area;
  std::string_view quantity;
  std::string_view wage_quantity;
  std::string_view wage_unit;
  std::string_view minutes_worker;
  std::string_view minutes_machine;
};
SqlText UpdateLine(std::int32_t id, const Line& line);

}  // namespace tarvoni::sonst_stucklohn_sql
