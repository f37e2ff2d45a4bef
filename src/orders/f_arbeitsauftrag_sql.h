#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"

// The statements of F_Arbeitsauftrag. A `client` is PERSONAL.ID_PERSONAL, a `header` the id of an order's or a plan's
// head.
namespace tarvoni::work_order_sql {

// --- head ---

SqlText OrderHeader(std::int32_t header);
SqlText PlanHeader(std::int32_t header);
// One row with the closed flag; none if the order is not there any more.
SqlText IsClosed(std::int32_t header);
// One row if the plan is there.
SqlText PlanExists(std::int32_t header);
// RELTABLE_ID of the standard forest office, and all offices of that list.
SqlText OfficeList(std::int32_t standard_office);
SqlText Offices(std::int32_t list);
SqlText EuroFactor();
// A table with all its columns, for their sizes.
SqlText AllColumns(const std::string& table);

// --- plans ---

SqlText PlanOfName(std::int32_t client, std::string_view name);
SqlText InsertPlan(std::int32_t client, std::string_view name);
SqlText NewestPlan();
SqlText PlansOfProduct(std::int32_t client, std::int32_t product);
SqlText PlannedHeader(std::int32_t client, std::int32_t plan);
SqlText PlannedPosition(std::int32_t plan);
SqlText PositionsOfPlan(std::int32_t header);
SqlText DeletePlan(std::int32_t header);

// --- positions ---

SqlText OrderPositions(std::int32_t header);
SqlText PlanPositions(std::int32_t header);
SqlText NextOrders(std::int32_t header);
SqlText InsertPosition(std::int32_t header, std::int32_t orders);
SqlText InsertPlanPosition(std::int32_t header);
SqlText NewestPosition(const std::string& table);
SqlText DeletePosition(const std::string& table, std::int32_t position);
SqlText CancelPosition(std::int32_t position, const DateTime& day, std::string_view sql_date_format);
SqlText CancelPlanPosition(std::int32_t position);
SqlText LogsOfPosition(std::int32_t position, std::int32_t client);

// --- codes ---

SqlText FindProduct(std::int32_t client, std::string_view number);
SqlText WorkTypesOf(std::int32_t product);  // a condition on LEISTUNGSART
// The only method that is open for a work type; no row if there are none or several.
SqlText OnlyMethod(std::int32_t client, std::int32_t activity);
SqlText Species();
SqlText FindSpecies(std::string_view code);
SqlText SpeciesCode(std::int32_t id);
// Grade groups of one of the five groupings.
SqlText GradeGroups(std::int32_t grouping);
SqlText CountGradeGroup(std::int32_t grouping, std::string_view code);

// --- timber lists and column widths ---

SqlText FreeLists(std::int32_t client);
SqlText StoredWidths();
SqlText UpdateWidths(std::string_view widths);
SqlText InsertWidths(std::string_view widths);

}  // namespace tarvoni::work_order_sql
