#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/sqlite/file_catalogue.h"
#include "platform/sqlite/handle.h"

namespace tarvoni::sqlite {

// What is wrong with a file's pages, indexes and references, a German sentence each.
std::vector<std::string> FileProblems(Handle& handle);

// Cells of the tables that hold what their column cannot, or nothing where a value must stand: table, key, column
// and content, a sentence each, at most `limit`.
std::vector<std::string> CellProblems(Handle& handle, const FileCatalogue& catalogue,
                                      const std::vector<std::string>& tables, std::size_t limit);

}  // namespace tarvoni::sqlite
