#include "suite/row_choice.h"

#include "src/context/environment.h"
#include "src/context/field_text.h"
#include "src/context/utf8.h"

namespace tarvoni::suite {
namespace {

std::string CellText(const Recordset& rows, int column) {
  return FieldText(rows.Fields()[column].Value(), "", CurrentLocale());
}

std::string CodeBehind(Recordset rows, const std::string& start, int code_column) {
  for (; !rows.EndOfFile(); rows.MoveNext())
    if (CellText(rows, 0) == start) return CellText(rows, code_column);
  return start;
}

}  // namespace

std::string FirstColumnText(Recordset rows, std::size_t row) {
  rows.Move(static_cast<long>(row));
  return CellText(rows, 0);
}

PickRequest ChoiceOf(const Recordset& rows, const std::string& caption, int hidden,
                     const std::string& start) {
  PickRequest request;
  request.caption = caption;
  request.rows = rows;
  request.code_column = request.hidden_columns = hidden;
  const std::string wanted(utf8::Trim(start));
  request.start_text = hidden == 0 ? wanted : CodeBehind(rows, wanted, hidden);
  return request;
}

}  // namespace tarvoni::suite
