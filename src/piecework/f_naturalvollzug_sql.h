#pragma once

#include <cstdint>
#include <string_view>

#include "src/piecework/natural_sql.h"

// The statements of F_Naturalvollzug that are its own. An `activity` is LEISTUNGSART.ID as a literal.
namespace tarvoni::naturalvollzug_sql {

SqlText HasNatural(std::int32_t activity);
// A mark that the activity does not permit any more reads as NULL.
SqlText NaturalOfPosition(std::int32_t position, const SqlText& activity);
// ID_WALDORT and the six levels, "" for one that is missing.
SqlText LocationsOfRow(std::int32_t id);
SqlText LocationOfPosition(std::int32_t position);

SqlText StandTypes();
// ID, NA and NA_LANG of the first permitted mark.
SqlText FirstMark(const SqlText& activity);
// The ids of the typed target type and of the typed mark; 0 for none.
SqlText ResolveCodes(std::string_view stand_type, std::string_view mark, const SqlText& activity);

SqlText Insert(std::int32_t position, const natural_sql::Values& values);
SqlText Update(std::int32_t id, std::int32_t position, const natural_sql::Values& values);
// Changes nothing: the rows it meets tell whether the location is there.
SqlText TouchLocation(std::int32_t id, std::int32_t location);

}  // namespace tarvoni::naturalvollzug_sql
