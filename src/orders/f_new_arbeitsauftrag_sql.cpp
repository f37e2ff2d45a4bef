#include "src/orders/f_new_arbeitsauftrag_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::new_arbeitsauftrag_sql {

SqlText NumberOfPayee(std::int32_t payee) {
  return Compose("SELECT NUMMER,KOSTENSTELLE FROM PERSONAL WHERE ID_PERSONAL = {}", Id(payee));
}

SqlText StandardGroup(std::int32_t payee) {
  return Compose(R"(
SELECT TOP 1 PA_GRUPPE.BEZEICHNUNG FROM PA_GRUPPE
 WHERE ISNULL(STANDART,0) = 1 AND ID_PERSONAL = 0{})",
                 Digits(std::to_string(payee)));
}

SqlText StandardFeature() {
  return "SELECT TOP 1 NUMMER FROM SONDERMERKMAL WHERE STANDART = 1";
}

SqlText NumberingOfGroup(std::string_view group) {
  return Compose(R"(
SELECT ISNULL(T_PA_KATEGORIE.ZENTRAL,0) AS ZENTRAL ,T_PA_KATEGORIE.PA_NUMMER_VON,T_PA_KATEGORIE.PA_NUMMER_BIS,
  PA_GRUPPE.PA_NUMMER,PRODUKT.NUMBER
FROM PA_GRUPPE
LEFT JOIN T_PA_KATEGORIE ON PA_GRUPPE.ID_T_PA_KATEGORIE = T_PA_KATEGORIE.ID
LEFT JOIN PRODUKT ON PA_GRUPPE.ID_PRODUKT = PRODUKT.ID
WHERE PA_GRUPPE.ID = 0{})",
                 Digits(group));
}

SqlText HighestNumber(const Place& place, std::int16_t from, std::int16_t to) {
  return Compose(R"(
SELECT MAX(NAME_NUMMER)
FROM ARBEITSAUFTRAG_KOPF
WHERE PERSONAL_ID = {} AND NAME_FWJ = '{}' AND NAME_REVIER = '{}'
  AND NAME_NUMMER NOT IN (9999,9998) AND NAME_NUMMER BETWEEN {} AND {})",
                 Id(place.payee), Quoted(place.forest_year), Quoted(place.cost_centre), Id(from), Id(to));
}

SqlText OrdersWithNumber(const Place& place, std::string_view number) {
  return Compose(R"(
SELECT *
FROM ARBEITSAUFTRAG_KOPF
WHERE PERSONAL_ID = {} AND NAME_FWJ = '{}' AND NAME_REVIER = '{}' AND NAME_NUMMER = {})",
                 Id(place.payee), Quoted(place.forest_year), Quoted(place.cost_centre), Number(number));
}

SqlText InsertHeader(const Header& header) {
  return Compose(R"(
INSERT INTO ARBEITSAUFTRAG_KOPF
(NAME,PERSONAL_ID,NAME_FWJ,NAME_REVIER,NAME_NUMMER,ID_SONDERMERKMAL,PRODUKT_ID,ID_PA_GRUPPE,DATUM,BESCHREIBUNG)
 SELECT '{}',{},'{}','{}',{},{},{},{},GETDATE(),{})",
                 Quoted(header.name), Id(header.place.payee), Quoted(header.place.forest_year),
                 Quoted(header.place.cost_centre), Number(header.number), IdOrNull(header.feature),
                 IdOrNull(header.product), Id(header.group), TextOrNull(header.description));
}

SqlText LastHeader() {
  return "SELECT IDENT_CURRENT('ARBEITSAUFTRAG_KOPF')";
}

}  // namespace tarvoni::new_arbeitsauftrag_sql
