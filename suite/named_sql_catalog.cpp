#include "suite/named_sql_catalog.h"

#include <optional>

#include "src/context/services/environment.h"
#include "src/context/values/call_error.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "suite/code_list.h"

namespace tarvoni::suite {
namespace {

// A blank unit with id 0 comes first: a position without a unit.
constexpr SqlText kUnitsOfCombo = R"(
SELECT ' ' AS EINHEIT,0 AS EINHEIT_ID
UNION ALL
SELECT EINHEIT,EINHEIT_ID FROM WARENEINHEIT
ORDER BY 1)";

bool NamesId(const Column& column) {
  const std::string name = utf8::Upper(column.name);
  return name == "ID" || name.starts_with("ID_") || name.ends_with("_ID");
}

// Places of id and text among the columns; without an id column the items bear 0.
struct ComboColumns {
  explicit ComboColumns(const std::vector<Column>& columns) {
    for (int i = static_cast<int>(columns.size()) - 1; i >= 0; --i)
      (NamesId(columns[static_cast<std::size_t>(i)]) ? id : text) = i;
  }
  std::optional<int> id, text;
};

std::int32_t IdOf(const Value& value) {
  const auto number = NumberOf(value, CurrentLocale());
  return number ? ToInt32(number->ToDouble()) : 0;
}

}  // namespace

void NamedSqlCatalog::FillCombo(Connection& connection, ComboBox& combo, const SqlText& sql) {
  Recordset rows = connection.Open(sql);
  const ComboColumns columns(rows.Columns());
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    const FieldList row = rows.Fields();
    combo.AddItem(FieldText(row[columns.text.value_or(0)].Value(), "", CurrentLocale()),
                  columns.id ? IdOf(row[*columns.id].Value()) : 0);
  }
}

SqlText NamedSqlCatalog::GetSql(const TvnVar_Dll&, const std::string& key, const NamedValues& values) {
  if (key == "WARENEINHEIT") return kUnitsOfCombo;
  for (const CodeList& list : CodeLists()) {
    if (list.Offers(key)) return list.Offer(values);
    if (list.Checks(key)) return list.Check(values);
  }
  throw CallError("Zum Schlüssel „" + key + "“ gibt es keine Anweisung.");
}

}  // namespace tarvoni::suite
