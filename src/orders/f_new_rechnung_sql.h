#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_NewRechnung.
namespace tarvoni::new_rechnung_sql {

SqlText Clients();
SqlText FindClient(std::string_view number);
SqlText StandardCategory();

}  // namespace tarvoni::new_rechnung_sql
