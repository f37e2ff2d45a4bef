#include "src/common/code_in_use.h"

#include "src/context/data/statement.h"

namespace tarvoni {

SqlText CodeInUse(const SqlText& columns, std::string_view table, std::string_view number,
                  std::int32_t client) {
  return Compose(R"(
SELECT {}
FROM {}
WHERE (DISABLE = 0 OR DISABLE IS NULL) and NUMBER = '{}'
  AND TABLE_NAME IN (SELECT {} FROM PERSONAL WHERE ID_PERSONAL = {}))",
                 columns, Name(table), Quoted(number), Name(table), Id(client));
}

}  // namespace tarvoni
