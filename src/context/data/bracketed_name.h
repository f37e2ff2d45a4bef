#pragma once

#include <string_view>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// A name between brackets, for a column of a result that bears a heading of any text: [Zuschlag %].
SqlText BracketedName(std::string_view name);

}  // namespace tarvoni
