#pragma once

#include <cstdint>
#include <span>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements about natural execution: rows of NATURALVOLLZUG_KLR with their forest locations. Their owner is a wage
// line (ID_ARA_LOHN) or a cost position (ID_ARBEITSAUFTRAG). An `activity` is LEISTUNGSART.ID as a literal.
namespace tarvoni::natural_sql {

// What a row holds, as literals.
struct Values {
  SqlText mark;
  SqlText stand_type;
  SqlText state;
  SqlText office;
  SqlText origin;
  SqlText number;
  SqlText category;
  SqlText note;
  SqlText height;
  SqlText fence;
};

// The ids of the marks permitted for an activity, for an IN.
SqlText PermittedMarks(const SqlText& activity);
// The four flags of a permitted mark; no row for any other.
SqlText Demands(std::string_view mark, const SqlText& activity);

// --- the row of a wage line ---

// Columns of a row and of its codes, and the joins behind one to NATURALVOLLZUG_KLR.
SqlText LineColumns();
SqlText LineJoins();
SqlText InsertForLine(std::int32_t line);
SqlText Update(std::int32_t id, const Values& values);
SqlText Delete(std::int32_t id);
// ID_WALDORT and WALDORT, the path, of the row with these digits.
SqlText Locations(std::string_view id);
// One batch: takes away the locations that are not among these, and adds those that are not there yet.
SqlText StoreLocations(std::int32_t id, std::span<const std::int32_t> locations);

// --- the row of any owner ---

// The ids of a line's rows, 0 for a line that has none; no row for a line that is gone.
SqlText RowsOfLine(std::int32_t line);
SqlText RowsOfPosition(std::int32_t position);
SqlText DeleteLocations(std::int32_t id);
SqlText DeleteRow(std::int32_t id);
// Those that are not among `locations`; all if there are none.
SqlText DeleteOtherLocations(std::int32_t id, std::span<const std::int32_t> locations);
SqlText InsertLocation(std::int32_t id, std::int32_t location);

}  // namespace tarvoni::natural_sql
