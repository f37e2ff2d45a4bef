#include "suite/row_choice.h"

#include "src/context/values/utf8.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

std::string CodeBehind(Recordset rows, const std::string& start, int code_column) {
  for (; !rows.EndOfFile(); rows.MoveNext())
    if (TextOf(rows.Fields()[0]) == start) return TextOf(rows.Fields()[code_column]);
  return start;
}

}  // namespace

std::string FirstColumnText(Recordset rows, std::size_t row) {
  rows.Move(static_cast<long>(row));
  return TextOf(rows.Fields()[0]);
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
