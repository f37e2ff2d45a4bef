#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/value.h"

// What a month brings a worker: his hours on wage orders, and the lines of his gross wage journal.
namespace tarvoni::suite {

// The month of one journal; `header` is STUNDENBUCH_HEADER.ID, `client` the ID_PERSONAL of the orders' client.
struct JournalMonth {
  std::int32_t header = 0;
  std::int32_t client = 0;
  std::int32_t year = 0;
  std::int32_t month = 0;
};

struct MonthLine {
  Value wage_type;  // its number
  Value wage_type_name;
  Value quantity;
  Value unit;
  Value rate;  // NULL for none
  Value amount;
  Value product_order;
  Value wage_order;
  Value day;  // of the wage; a month alone as text
  Value location;
  bool cancelled = false;  // the wage order
};

// The worker's hours on wage orders of the client that were worked in the month (BEARBEITUNG), with rate and amount of
// a stored hours row (hour_amount.h, form 1), by day and order.
std::vector<MonthLine> OrderHours(const TvnVar_Dll& context, const JournalMonth& month);

// The rows of LinesOfJournal by day; the ID of a row that stands for no line is NULL.
Recordset JournalLines(const TvnVar_Dll& context, std::int32_t header);
// One of them, or a row of WorkOfJournal, with its rate in the journal and the amount that follows (form 3).
MonthLine LineOf(const FieldList& journal_line, const Value& rate);
std::vector<MonthLine> OwnLines(const TvnVar_Dll& context, const JournalMonth& month);

// Nine cells a line, parted by tabs: wage type, quantity, unit, rate, amount, product order, wage order, day and forest
// location; each line ends with CR LF. Numbers have two places and the locale's separator.
std::string SummaryText(const std::vector<MonthLine>& lines);

}  // namespace tarvoni::suite
