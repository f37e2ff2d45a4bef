#pragma once

#include <string>

#include "src/context/data/recordset.h"

namespace tarvoni::host {

enum class OutputFormat { kTable, kCsv, kJson };

// All rows of an open recordset as text that ends with a line break.
std::string FormatRows(const Recordset& rows, OutputFormat format);

// Columns aligned by their width on a terminal, numbers to the right, the count of rows below.
std::string FormatTable(const Recordset& rows);
// Values separated by commas, a point in numbers, a head line with the names; NULL is nothing, an empty text "".
std::string FormatCsv(const Recordset& rows);
// An array with an object per row. A name that stands twice gets a number behind it.
std::string FormatJson(const Recordset& rows);

// "1 Zeile", "5 Zeilen".
std::string CountOfRows(long long count);

}  // namespace tarvoni::host
