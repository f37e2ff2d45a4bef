#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_Maschinenbuch. An object is OBJEKT.ID, -1 for none.
namespace tarvoni::maschinenbuch_sql {

SqlText Objects();
// One column of the machine's row.
SqlText MasterColumn(std::string_view column, std::int32_t number);
SqlText InsertMachine(std::int32_t number);
SqlText DeleteMachine(std::int32_t number);

// What is booked on the object on the cost types of a group; cancelled positions count.
SqlText SumOfGroup(std::int32_t object, std::string_view label);
SqlText LifeOf(std::int32_t object);

}  // namespace tarvoni::maschinenbuch_sql
