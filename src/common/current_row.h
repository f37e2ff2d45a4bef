#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/controls/form.h"
#include "src/context/data/column_key.h"

namespace tarvoni {

// The current row of a list or of an opened statement as fields show it. Without a current row every column reads as
// NULL.
class CurrentRow {
 public:
  explicit CurrentRow(const DataControl& data) : rows_(data.Recordset().Rows()) {}
  explicit CurrentRow(const Recordset& rows) : rows_(rows) {}
  explicit CurrentRow(const Recordset&& rows) = delete;

  bool IsNull(const ColumnKey& column) const;
  // "" for NULL; numbers and dates by the format.
  std::string Text(const ColumnKey& column, std::string_view format = {}) const;
  // A key or count; 0 for NULL.
  std::int32_t Number(const ColumnKey& column) const;
  // A BIT, or a number that is 0 for no; false for NULL.
  bool Flag(const ColumnKey& column) const;

  void Show(const ColumnKey& column, TextBox& box, std::string_view format = {}) const;
  // A code with the id behind it as Tag, and its name in the companion box if there is one.
  void ShowCode(const ColumnKey& id_column, const ColumnKey& code_column, TextBox& code) const;
  void ShowCode(const ColumnKey& id_column, const ColumnKey& code_column, const ColumnKey& name_column,
                ControlArray<TextBox, 2>& pair) const;

 private:
  Value At(const ColumnKey& column) const;

  const Recordset& rows_;
};

}  // namespace tarvoni
