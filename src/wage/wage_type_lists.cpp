#include "src/wage/wage_type_lists.h"

#include "src/context/data/statement.h"

namespace tarvoni {

SqlText WageTypesOffered(const SqlText& allowed) {
  return Compose(R"(
SELECT NUMBER AS NUMMER,NAME AS LONG
{}
ORDER BY LOHNARTEN.NUMBER)",
                 allowed);
}

SqlText WageTypeTyped(const SqlText& allowed, std::string_view typed) {
  return Compose(R"(
SELECT ID,NUMBER,NAME
{}
  AND NUMBER = 0{})",
                 allowed, Digits(typed));
}

}  // namespace tarvoni
