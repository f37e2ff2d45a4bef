#pragma once

#include <string>
#include <vector>

#include "src/context/controls/grid.h"
#include "src/context/values/locale.h"
#include "src/context/values/value.h"

namespace tarvoni {

// A paper: what a list or a report prints, shows before it prints, and saves as a PDF file or a workbook. It tells what
// stands there and what it means; where it stands and how it looks is the toolkit's business.
struct PrintDocument {
  struct Column {
    std::string caption;
    Alignment alignment = Alignment::kLeft;
    std::string format = {};  // of numbers and dates, as FieldText takes it
  };

  enum class RowKind {
    kPlain,
    kGroup,  // the heading of the rows that follow: its first cell, across the table
    kSum,    // the sum of rows above
    kTotal,  // of all rows
  };
  struct Row {
    std::vector<Value> cells;  // one that is missing is empty
    RowKind kind = RowKind::kPlain;
    bool struck = false;  // counts no more
  };

  struct Table {
    std::string heading = {};
    std::vector<Column> columns = {};
    std::vector<Row> rows = {};
  };

  // Something known of the whole: "Arbeitnehmer", "101 Huber Anna".
  struct Fact {
    std::string label;
    std::string text;
  };

  std::string issuer = {};  // the enterprise, above the title
  std::string title;
  std::vector<Fact> facts = {};  // below the title
  std::vector<Table> tables = {};
  std::vector<std::string> remarks = {};     // below the tables
  std::vector<std::string> signatures = {};  // who signs, each below a line of his own
  bool landscape = false;
};

// The cell as it is read; "" for NULL and for a missing one.
std::string CellText(const PrintDocument::Table& table, const PrintDocument::Row& row, std::size_t column,
                     const Locale& locale);

// "Gedruckt am 28.03.2024", by the clock in force.
std::string PrintedOn();

}  // namespace tarvoni
