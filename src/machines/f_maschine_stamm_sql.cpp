#include "src/machines/f_maschine_stamm_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::maschine_stamm_sql {

std::string CostTypeOfGroup(std::string_view label) {
  return Compose("SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = '{}'", Typed(label));
}

std::string InsertGroup(std::string_view label) {
  return Compose("INSERT INTO MASCHINE_STAMM (LABEL) VALUES ('{}')", Typed(label));
}

std::string SetCostType(std::string_view label, std::int32_t kostenart_id) {
  return Compose("UPDATE MASCHINE_STAMM SET KOSTENART_ID = {} WHERE LABEL = '{}'", IdOrNull(kostenart_id),
                 Typed(label));
}

std::string OfferedCostTypes() {
  return "SELECT NUMBER, NAME,TABLE_NAME FROM KOSTENART WHERE ID <> 0";
}

std::string FindCostType(std::string_view typed_number) {
  return Compose("SELECT ID,NAME FROM KOSTENART WHERE NUMBER = '{}'", Typed(typed_number));
}

std::string IsCostType(std::int32_t id) {
  return Compose(" ID = {}", Id(id));
}

}  // namespace tarvoni::maschine_stamm_sql
