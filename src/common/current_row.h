#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/controls/form.h"

namespace tarvoni {

// The current row of a list as fields show it. Without a current row every column reads as NULL.
class CurrentRow {
 public:
  explicit CurrentRow(const DataControl& data) : rows_(data.Recordset()) {}

  bool IsNull(std::string_view column) const;
  // "" for NULL; numbers and dates by the format.
  std::string Text(std::string_view column, std::string_view format = {}) const;
  // A key or count; 0 for NULL.
  std::int32_t Number(std::string_view column) const;

  void Show(std::string_view column, TextBox& box, std::string_view format = {}) const;
  // A code with the id behind it as Tag, and its name in the companion box if there is one.
  void ShowCode(std::string_view id_column, std::string_view code_column, TextBox& code) const;
  void ShowCode(std::string_view id_column, std::string_view code_column, std::string_view name_column,
                ControlArray<TextBox, 2>& pair) const;

 private:
  Value At(std::string_view column) const;

  const BoundRecordset& rows_;
};

}  // namespace tarvoni
