#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/data/sql_text.h"
#include "src/context/values/date_time.h"

// The statements of F_Belege_New. Ids are 0 for none unless a comment tells otherwise.
namespace tarvoni::voucher_sql {

// --- vouchers (f_belege_new_sql.cpp) ---

// Vouchers with a row in one of the client's orders, or with the position given.
SqlText VouchersOfClient(std::int32_t client, std::string_view local_currency);
SqlText VouchersOfPosition(std::int32_t position, std::string_view local_currency);

// The codes of a table in the client's set.
SqlText CodesOf(std::string_view table, std::int32_t client);

struct Header {
  std::string number;
  std::optional<DateTime> booked;
  std::int32_t chapter = 0;
  std::int32_t title = 0;
  std::string hul;
  std::optional<DateTime> ordered;
  std::string invoice;
  std::optional<DateTime> invoiced;
  std::string amount;  // typed; what is no number is 0
  bool euro = false;
  std::int32_t payment_kind = 0;
  std::int32_t payment_reason = 0;
  std::int32_t payee = 0;
};
SqlText UpdateVoucher(std::int32_t voucher, const Header& header, std::string_view sql_date_format);
SqlText InsertVoucher(const Header& header, std::string_view sql_date_format);
SqlText LastVoucher();
SqlText VoucherWithNumber(std::string_view number, std::int32_t other_than);
SqlText DeleteVoucher(std::int32_t voucher);
// A row just made, with what was copied to it.
SqlText TakeBackRow(std::int32_t position);
SqlText VoucherInForce(std::int32_t voucher);

SqlText CancelVoucher(std::int32_t voucher);
SqlText CancelRowsOf(std::int32_t voucher, const DateTime& day, std::string_view sql_date_format);
SqlText CancelRow(std::int32_t position, const DateTime& day, std::string_view sql_date_format);
SqlText RowsInForce(std::int32_t voucher);
SqlText TimberListsOf(std::int32_t position);
SqlText OrdersOf(std::int32_t position);

// --- the allocation (f_belege_new_rows_sql.cpp) ---

SqlText RowsOf(std::int32_t voucher);
SqlText NoRows();

SqlText ProductsOf(std::int32_t client);
SqlText FindProduct(std::string_view number, std::int32_t client);
SqlText NumberOfOrder(std::int32_t header);
SqlText FeatureOfOrder(std::string_view header);
SqlText CostTypes(std::int32_t client, std::int32_t activity);
SqlText FindCostType(std::string_view number, std::int32_t client, std::int32_t activity);

SqlText CostType(std::int32_t id);

SqlText HighestOrders(std::string_view header);
struct Row {
  std::string header;  // Tag of the order
  std::int32_t voucher = 0;
  std::int32_t orders = 0;
  std::int32_t activity = 0;
  std::string cost_centre;  // the Tags
  std::int32_t cost_type = 0;
  std::string feature;
  std::string unit_cost;  // the texts of the boxes; what is no number is NULL
  std::string location;
  std::string area;
  std::string quantity;
  bool by_quantity = false;
  std::optional<std::int32_t> unit;
  bool euro = false;
  std::string cost;
  std::string revenue;
  DateTime day;
  std::string hours;
  std::string machine_hours;
  std::string vat;
};
SqlText InsertRow(const Row& row, std::string_view sql_date_format);
SqlText LastRow();

// What a stores position still holds: what was drawn, and what it had.
SqlText DrawnAndStocked(std::int32_t client, std::int32_t stores_position);
SqlText StoresPosition(std::int32_t stores_position);
SqlText FreeTimberLists(std::int32_t client, std::int32_t cost_centre);

// Whether the old row has a natural execution, and whether the new one admits it; NULL for no.
SqlText NaturalExecutionMoves(std::int32_t from, std::int32_t to);
SqlText ColumnsOf(std::string_view table);
SqlText CopyNaturalExecution(std::int32_t from, std::int32_t to, const std::vector<std::string>& columns);
SqlText CopyLocations(std::int32_t from, std::int32_t to, const std::vector<std::string>& columns);

}  // namespace tarvoni::voucher_sql
