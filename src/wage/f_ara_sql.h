#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"
#include "src/context/values/decimal.h"

// The statements of F_ARA. An order is a row of ARA_KOPF with its row of ARBEITSAUFTRAG.
namespace tarvoni::ara_sql {

// Whose orders, and of which forest year.
struct Client {
  std::int32_t id = 0;
  std::string_view forest_year;
};

// --- the list ---

// The orders; a client without orders gives one row with an empty ID_ARA_KOPF. Filters are Tags, "" for none.
// `wage_type_case` picks the wage type whose hours count as direct.
SqlText OrdersOfYear(const Client& client, const SqlText& wage_type_case, std::string_view cost_centre,
                     std::string_view work_type);

// --- the selection: only what occurs in the client's orders, together with the other filter ---

SqlText CostCentresInUse(const Client& client, std::string_view work_type);
SqlText FindCostCentreInUse(const Client& client, std::string_view typed, std::string_view work_type);
SqlText WorkTypesInUse(const Client& client, std::string_view cost_centre);
SqlText FindWorkTypeInUse(const Client& client, std::string_view typed, std::string_view cost_centre);

// --- lookups ---

SqlText Services();
SqlText FindService(std::string_view typed);
// What the catalogue's statements for product orders and work types are narrowed by: a timber service admits
// work types with EST only, an order with timber lists those with ALLOW_HOLZ only.
SqlText FitsService(std::string_view service, std::int32_t order);
SqlText WorkTypeFits(std::int32_t product, std::string_view service, std::int32_t order);

// --- a new order ---

// Inserts the order under the client's next number of the year and gives its id.
SqlText InsertOrder(const Client& client);
// Inserts the order's position, names it provisionally and gives its number.
SqlText InsertPosition(std::int32_t order, std::string_view provisional_name);
SqlText DeleteOrder(std::int32_t order);

// --- saving ---

// Takes the number unless another order already bears the name: 0 if it was taken, 1 if not.
SqlText TakeNumber(std::int32_t order, std::string_view name, std::string_view number);
SqlText IsOverhead(std::string_view cost_centre);
// Tags may be empty.
struct Header {
  std::string_view name;
  std::string_view description;
  std::string_view total;
  std::string_view team;
};
SqlText UpdateHeader(std::int32_t order, const Header& header);
struct Position {
  std::string_view product_order;
  std::string_view service;
  std::optional<DateTime> date;
  std::string_view cost_centre;
  std::string_view work_type;
  std::string_view location;
};
SqlText UpdatePosition(std::int32_t order, const Position& position, std::string_view sql_date_format);

SqlText CancelOrder(std::int32_t order, const DateTime& day, std::string_view sql_date_format);

// --- the total ---

// Each worker's months with hours on the order.
SqlText MonthsWithHours(std::int32_t order);
// 0 is stored as NULL.
SqlText StoreTotal(std::int32_t order, const Decimal& total);

}  // namespace tarvoni::ara_sql
