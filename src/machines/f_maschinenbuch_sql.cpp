#include "src/machines/f_maschinenbuch_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::maschinenbuch_sql {

SqlText Objects() {
  return "SELECT NUMBER, ID FROM OBJEKT WHERE ID <> 0";
}

SqlText MasterColumn(std::string_view column, std::int32_t number) {
  return Compose("SELECT {} FROM MASCHINENBUCH WHERE NUMMER = {}", Name(column), Id(number));
}

SqlText InsertMachine(std::int32_t number) {
  return Compose("INSERT INTO MASCHINENBUCH (NUMMER) VALUES ({})", Id(number));
}

SqlText DeleteMachine(std::int32_t number) {
  return Compose("DELETE FROM MASCHINENBUCH WHERE NUMMER = {}", Id(number));
}

SqlText SumOfGroup(std::int32_t object, std::string_view label) {
  return Compose(R"(
SELECT SUM(GESAMT)
FROM ARBEITSAUFTRAG
WHERE OBJEKT_ID = {}
  AND KOSTENART_ID IN (SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = '{}') )",
                 Id(object), Quoted(label));
}

SqlText LifeOf(std::int32_t object) {
  return Compose(R"(
SELECT
  (SELECT NAME FROM ARBEITSAUFTRAG_KOPF
   WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID) AS NAME,
  ORDERS,
  (SELECT DATUM FROM ARBEITSAUFTRAG_KOPF
   WHERE ARBEITSAUFTRAG_KOPF.ID = ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID) AS DATUM,
  (SELECT NAME FROM KOSTENSTELLE WHERE KOSTENSTELLE.ID = ARBEITSAUFTRAG.KOSTENSTELLE_ID) AS KOSTENSTELLE,
  (SELECT NAME FROM LEISTUNGSART WHERE LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID) AS LEISTUNGSART,
  (SELECT NAME FROM KOSTENART WHERE KOSTENART.ID = ARBEITSAUFTRAG.KOSTENART_ID) AS KOSTENART,
  FLAECHE, MENGE, KOSTEN, GESAMT
FROM ARBEITSAUFTRAG
WHERE OBJEKT_ID = {})",
                 Id(object));
}

}  // namespace tarvoni::maschinenbuch_sql
