#include "src/common/table_code.h"

#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"

namespace tarvoni {
namespace {

SqlText CodesInUse(const std::string& table, const std::string& set_name) {
  return Compose(R"(
SELECT NUMBER , NAME
FROM {}
WHERE (DISABLE = 0 OR DISABLE IS NULL) and TABLE_NAME = '{}')",
                 Name(table), Quoted(set_name));
}

}  // namespace

CodeField::Rule TableCode(const TvnVar_Dll& context, const Label& label, const std::string& table,
                          const std::function<std::int32_t()>& client, IdByNumber by) {
  const auto offered = [&context, table, client] {
    return CodesInUse(table, GetPersonalColumn(table, client(), DbOf(context)));
  };
  const auto find = [&context, table, client, by](const std::string& typed) {
    Connection& db = DbOf(context);
    const std::int32_t id = by == IdByNumber::kText ? GetIdByNumberText(table, typed, client(), db)
                                                    : GetIdByNumberFiltered(table, typed, client(), db, "");
    return CodeField::Found{.id = id, .name = id == 0 ? "" : GetNameById(table, id, db)};
  };
  return {.offered = offered, .find = find, .caption = [&label] { return label.Caption(); }};
}

}  // namespace tarvoni
