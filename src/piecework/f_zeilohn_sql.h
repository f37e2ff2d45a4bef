#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_Zeilohn.
namespace tarvoni::zeilohn_sql {

// The lines with their natural execution and with what the order is; one row whose ID is NULL without lines.
SqlText LinesOfOrder(std::int32_t order);

struct Marks {
  bool tool_money = false;
  bool unusual = false;
  std::string_view percentage;  // nothing is 0
};
SqlText UpdateOrder(std::int32_t order, const Marks& marks);

// `species` is a Tag, the numbers are as typed; empty is NULL.
struct Line {
  std::string_view species;
  std::string_view area;
  std::string_view quantity;
};
SqlText UpdateLine(std::int32_t id, const Line& line);

}  // namespace tarvoni::zeilohn_sql
