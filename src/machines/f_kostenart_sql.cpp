#include "src/machines/f_kostenart_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::kostenart_sql {

SqlText CostTypesUnder(std::string_view label) {
  return Compose(R"(
SELECT MASCHINE_STAMM.ID, KOSTENART.NUMBER ,KOSTENART.NAME
FROM MASCHINE_STAMM
LEFT JOIN KOSTENART ON MASCHINE_STAMM.KOSTENART_ID = KOSTENART.ID
WHERE LABEL = '{}')",
                 Quoted(label));
}

SqlText OfferedCostTypes() {
  return "SELECT ID, NUMBER , NAME, TABLE_NAME FROM KOSTENART WHERE ID <> 0";
}

SqlText HasCostType(std::string_view label, std::int32_t kostenart_id) {
  return Compose("SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = '{}' AND KOSTENART_ID = {}",
                 Quoted(label), Id(kostenart_id));
}

SqlText AddCostType(std::string_view label, std::int32_t kostenart_id) {
  return Compose("INSERT INTO MASCHINE_STAMM (LABEL, KOSTENART_ID) VALUES ('{}',{})", Quoted(label),
                 Id(kostenart_id));
}

SqlText RemoveRow(std::int32_t id) {
  return Compose("DELETE FROM MASCHINE_STAMM WHERE ID = {}", Id(id));
}

}  // namespace tarvoni::kostenart_sql
