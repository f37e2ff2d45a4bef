#pragma once

#include <cstdint>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_Lager.
namespace tarvoni::lager_sql {

// Chapter, title, kind and reason of payment come without a name for their column.
SqlText DocumentsOf(std::int32_t client);
// How many withdrawals in force there are of a position, or of a whole document where `position` is 0.
SqlText CountWithdrawals(std::int32_t document, std::int32_t position);

SqlText FindNumber(std::string_view number);
SqlText InsertDocument(std::string_view number, std::int32_t client);
SqlText LastDocument();

SqlText PositionsOf(std::int32_t document);
SqlText DeleteDocument(std::int32_t document);
SqlText DeletePositions(std::int32_t document);

}  // namespace tarvoni::lager_sql
