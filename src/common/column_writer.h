#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "src/context/data/tvn_var_dll.h"
#include "src/context/values/date_time.h"

namespace tarvoni {

class SqlText;

// Writes one row column by column, each with its own UPDATE, as the Screens save.
class ColumnWriter {
 public:
  enum class Zero { kIsNull, kIsValue };

  // `key_column` names the row: "WHERE ID = {key}".
  ColumnWriter(const TvnVar_Dll& context, std::string table, std::int32_t key, std::string key_column = "ID");

  // A typed number; blank is NULL, and so is 0 unless it stands as a value.
  void Number(std::string_view column, std::string_view typed, Zero zero = Zero::kIsNull) const;
  void Number(std::string_view column, std::int32_t number, Zero zero = Zero::kIsNull) const;
  // A text; "" is NULL.
  void Text(std::string_view column, std::string_view text) const;
  void Date(std::string_view column, const std::optional<DateTime>& date) const;
  void Flag(std::string_view column, bool flag) const;

 private:
  void Write(std::string_view column, const SqlText& value) const;

  const TvnVar_Dll& context_;
  std::string table_;
  std::int32_t key_;
  std::string key_column_;
};

}  // namespace tarvoni
