#include "src/machines/f_maschine_stamm_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::maschine_stamm_sql {

SqlText CostTypeOfGroup(std::string_view label) {
  return Compose("SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = '{}'", Quoted(label));
}

SqlText InsertGroup(std::string_view label) {
  return Compose("INSERT INTO MASCHINE_STAMM (LABEL) VALUES ('{}')", Quoted(label));
}

SqlText SetCostType(std::string_view label, std::int32_t kostenart_id) {
  return Compose("UPDATE MASCHINE_STAMM SET KOSTENART_ID = {} WHERE LABEL = '{}'", IdOrNull(kostenart_id),
                 Quoted(label));
}

SqlText OtherCostTypes(std::string_view label, std::int32_t kostenart_id) {
  return Compose("SELECT ID FROM MASCHINE_STAMM WHERE LABEL = '{}' AND KOSTENART_ID <> {}", Quoted(label),
                 Id(kostenart_id));
}

SqlText OfferedCostTypes() {
  return "SELECT NUMBER, NAME,TABLE_NAME FROM KOSTENART WHERE ID <> 0";
}

SqlText FindCostType(std::string_view typed_number) {
  return Compose("SELECT ID,NAME FROM KOSTENART WHERE NUMBER = '{}'", Quoted(typed_number));
}

SqlText IsCostType(std::int32_t id) {
  return Compose(" ID = {}", Id(id));
}

}  // namespace tarvoni::maschine_stamm_sql
