#include "src/common/current_row.h"

#include "src/common/screen.h"
#include "src/context/values/field_text.h"

namespace tarvoni {

Value CurrentRow::At(const ColumnKey& column) const {
  const bool on_row = rows_.IsOpen() && !rows_.EndOfFile() && !rows_.BeginOfFile();
  return on_row ? column.In(rows_.Fields()).Value() : Value(Null{});
}

bool CurrentRow::IsNull(const ColumnKey& column) const {
  return tarvoni::IsNull(At(column));
}

std::string CurrentRow::Text(const ColumnKey& column, std::string_view format) const {
  return FieldText(At(column), format, CurrentLocale());
}

std::int32_t CurrentRow::Number(const ColumnKey& column) const {
  return ReadId(At(column));
}

bool CurrentRow::Flag(const ColumnKey& column) const {
  return ToFlag(At(column));
}

void CurrentRow::Show(const ColumnKey& column, TextBox& box, std::string_view format) const {
  box.SetText(Text(column, format));
}

void CurrentRow::ShowCode(const ColumnKey& id_column, const ColumnKey& code_column, TextBox& code) const {
  code.SetText(Text(code_column));
  code.SetTag(Text(id_column));
}

void CurrentRow::ShowCode(const ColumnKey& id_column, const ColumnKey& code_column,
                          const ColumnKey& name_column, ControlArray<TextBox, 2>& pair) const {
  ShowCode(id_column, code_column, pair[0]);
  pair[1].SetText(Text(name_column));
}

}  // namespace tarvoni
