#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"

// The statements of F_Positionen. Tags are texts of digits, "" for none.
namespace tarvoni::positionen_sql {

// --- goods ---

// REST is what is left of the quantity once all withdrawals in force are taken off.
SqlText PositionsOf(std::int32_t document, std::string_view local_currency);
SqlText InsertPosition(std::int32_t document);
SqlText LastPosition();
SqlText DeletePosition(std::int32_t position);
// REST of one position; no row if it is gone.
SqlText StockOf(std::int32_t position);

// --- withdrawals ---

SqlText WithdrawalsOf(std::int32_t position);

struct Withdrawal {
  DateTime day;
  std::int32_t position = 0;
  std::string slip = {};
  std::string cost_centre = {}, order = {}, work_type = {}, method = {}, object = {}, cost_type = {},
              location = {};                                           // Tags
  std::string quantity = {}, unit_cost = {}, drawn = {}, amount = {};  // as typed; "" for none
};
SqlText InsertWithdrawal(const Withdrawal& withdrawal, std::string_view sql_date_format);
SqlText LastWithdrawal(std::int32_t position);
SqlText DeleteWithdrawal(std::int32_t withdrawal);
SqlText CancelWithdrawal(std::int32_t withdrawal, const DateTime& day, std::string_view sql_date_format);

// --- codes ---

SqlText ProductOfOrder(std::string_view order_tag);
SqlText FitsProduct(std::int32_t product);
// Revenue cost types are not offered.
SqlText CostTypes(std::int32_t client);
SqlText FindCostType(std::int32_t client, std::string_view typed);
SqlText Methods(std::int32_t client, std::string_view work_type_tag);
SqlText FindMethod(std::int32_t client, std::string_view work_type_tag, std::string_view typed);
// The number of the work type's method if it has exactly one.
SqlText SingleMethod(std::int32_t client, std::string_view work_type_tag);
SqlText UnitOfWorkType(std::string_view work_type_tag);

}  // namespace tarvoni::positionen_sql
