#include "src/common/current_row.h"

#include "src/common/screen.h"
#include "src/context/values/field_text.h"

namespace tarvoni {

Value CurrentRow::At(std::string_view column) const {
  return rows_.HasCurrentRow() ? rows_.Fields()[column].Value() : Value(Null{});
}

bool CurrentRow::IsNull(std::string_view column) const {
  return tarvoni::IsNull(At(column));
}

std::string CurrentRow::Text(std::string_view column, std::string_view format) const {
  return FieldText(At(column), format, CurrentLocale());
}

std::int32_t CurrentRow::Number(std::string_view column) const {
  return ReadId(At(column));
}

void CurrentRow::Show(std::string_view column, TextBox& box, std::string_view format) const {
  box.SetText(Text(column, format));
}

void CurrentRow::ShowCode(std::string_view id_column, std::string_view code_column, TextBox& code) const {
  code.SetText(Text(code_column));
  code.SetTag(Text(id_column));
}

void CurrentRow::ShowCode(std::string_view id_column, std::string_view code_column,
                          std::string_view name_column, ControlArray<TextBox, 2>& pair) const {
  ShowCode(id_column, code_column, pair[0]);
  pair[1].SetText(Text(name_column));
}

}  // namespace tarvoni
