#pragma once

#include <string>
#include <vector>

#include "platform/qt/table_source.h"

// Tables as text for other programs; numbers and dates as the user reads them.
namespace tarvoni::qt {

// The cells for the clipboard, parted by tabs, with the captions above; what lies between the ranges stays empty. A
// single cell stands without its caption.
std::string ClipboardText(const TableSource& table, const std::vector<CellRange>& cells);

// All rows of the visible columns with their captions, parted by ";", lines by CR LF, in UTF-8 with its mark in front.
std::string CsvText(const TableSource& table);

}  // namespace tarvoni::qt
