#pragma once

#include <filesystem>

#include "platform/qt/table_source.h"

namespace tarvoni {
struct PrintDocument;
}

namespace tarvoni::qt {

// Writes all rows of the visible columns as a workbook. Numbers, dates and flags stay what they are, in the format of
// their column. Throws std::runtime_error with a sentence for the user; a file of that name is then as it was.
void WriteXlsx(const TableSource& table, const std::filesystem::path& file);

// Writes a paper as a workbook, each of its tables on a sheet that can be printed as it stands.
void WriteXlsx(const PrintDocument& document, const std::filesystem::path& file);

}  // namespace tarvoni::qt
