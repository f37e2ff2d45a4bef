#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"

// The statements of F_Bruttolohn: the lines of one gross wage journal in STUNDENBUCH, each with its pair, the row of
// ARBEITSAUFTRAG with the source 'B' that carries the cost assignment. The list stands in
// src/context/rules/wage_journal.h.
namespace tarvoni::bruttolohn_sql {

// The wage types of the table that the client's row names; `client` is a Tag.
SqlText WageTypes(std::string_view client);
SqlText FindWageType(std::string_view client, std::string_view typed);

// Inserts an empty line and gives its id.
SqlText InsertLine(std::int32_t header);
// A pair that an earlier line of this id left behind.
SqlText DeleteLeftover(std::int32_t line);
SqlText UpdateForestYear(std::int32_t header, std::string_view forest_year);

// Tags and texts may be empty; the months are first days.
struct Line {
  std::string_view day;
  std::string_view wage_type;
  std::optional<DateTime> paying_month;
  std::string_view quantity;
  std::optional<DateTime> pay_month;
  std::string_view percentage;
};
SqlText UpdateLine(std::int32_t line, const Line& entry, std::string_view sql_date_format);

SqlText InsertMissingPair(std::int32_t line);
// Tags; each may be empty.
struct Assignment {
  std::string_view product_order;
  std::string_view cost_centre;
  std::string_view work_type;
  std::string_view method;
  std::string_view object;
};
SqlText UpdatePair(std::int32_t line, const Assignment& assignment);

// The pair goes first.
SqlText DeleteLine(std::int32_t line);

}  // namespace tarvoni::bruttolohn_sql
