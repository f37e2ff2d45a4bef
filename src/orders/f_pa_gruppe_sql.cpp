#include "src/orders/f_pa_gruppe_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::pa_gruppe_sql {
namespace {

Digits Key(std::int32_t id) {
  return Digits(std::to_string(id));
}

}  // namespace

SqlText CreateGroup(std::string_view name, int year, std::int32_t client) {
  const Quoted forest_year(std::to_string(year));
  return Compose(R"(
SET NOCOUNT ON
IF (SELECT COUNT(*) FROM PA_GRUPPE WHERE BEZEICHNUNG = '{}' AND ID_PERSONAL = 0{}) = 0
BEGIN
INSERT INTO PA_GRUPPE (FWJ,BEZEICHNUNG,ID_PERSONAL) VALUES ('{}','{}',{})
SELECT ID FROM PA_GRUPPE WHERE BEZEICHNUNG = '{}' AND FWJ = '{}' AND ID_PERSONAL = {}
END
ELSE SELECT 0 AS ID)",
                 Quoted(name), Key(client), forest_year, Quoted(name), Id(client), Quoted(name), forest_year,
                 Id(client));
}

SqlText GroupShown(std::int32_t group) {
  return Compose(R"(
SELECT PA_GRUPPE.FWJ,PA_GRUPPE.BEZEICHNUNG,PA_NUMMER,
  PA_GRUPPE.ID_PERSONAL AS ID_MANDANT,PERSONAL.NUMMER AS MANDANTNUMMER,PERSONAL.KURZBEZEICHNUNG AS PERSONALKURZ,
  PA_GRUPPE.ID_PRODUKT,PRODUKT.NUMBER AS PRODUKTNUMMER,PRODUKT.NAME AS PRODUKTNAME,
  ID_T_PA_KATEGORIE,T_PA_KATEGORIE.NUMMER AS KATEGORIENUMMER,T_PA_KATEGORIE.LONG AS KATEGORIELONG,
  ISNULL(T_PA_KATEGORIE.ZENTRAL,0) AS ZENTRAL,ISNULL(T_PA_KATEGORIE.NOEDIT,0) AS NOEDIT,PA_GRUPPE.BESCHREIBUNG,
  (SELECT COUNT(*) FROM ARBEITSAUFTRAG_KOPF WHERE ID_PA_GRUPPE = {}) AS USEDCOUNT
FROM PA_GRUPPE
LEFT JOIN PERSONAL ON PERSONAL.ID_PERSONAL = PA_GRUPPE.ID_PERSONAL
LEFT JOIN PRODUKT ON PRODUKT.ID = PA_GRUPPE.ID_PRODUKT
LEFT JOIN T_PA_KATEGORIE ON T_PA_KATEGORIE.ID = PA_GRUPPE.ID_T_PA_KATEGORIE
WHERE PA_GRUPPE.ID = {})",
                 Id(group), Id(group));
}

SqlText IsCentral(std::string_view category) {
  return Compose("SELECT ISNULL(ZENTRAL,0) AS ZENTRAL  FROM T_PA_KATEGORIE WHERE T_PA_KATEGORIE.ID = 0{}",
                 Digits(category));
}

SqlText NextNumber(std::int32_t client, std::string_view category) {
  return Compose(R"(
SELECT ISNULL(MAX(PA_NUMMER),
    (SELECT ISNULL(PA_NUMMER_VON,0) FROM T_PA_KATEGORIE WHERE T_PA_KATEGORIE.ID = 0{}))+1 AS PA_NUMMER
FROM PA_GRUPPE
WHERE ID_PERSONAL = 0{} AND ID_T_PA_KATEGORIE = 0{})",
                 Digits(category), Key(client), Digits(category));
}

SqlText RangeOfCategory(std::string_view category) {
  return Compose(R"(
SELECT ISNULL(PA_NUMMER_VON,0) AS PA_NUMMER_VON,ISNULL(PA_NUMMER_BIS,0) AS PA_NUMMER_BIS,ISNULL(ZENTRAL,0) AS ZENTRAL
FROM T_PA_KATEGORIE
WHERE T_PA_KATEGORIE.ID = 0{})",
                 Digits(category));
}

SqlText CountOfNumber(std::string_view number, std::int32_t client, std::int32_t group) {
  return Compose(R"(
SELECT COUNT(*) AS POCET
FROM PA_GRUPPE
WHERE PA_NUMMER = '{}' AND ID_PERSONAL = 0{} AND PA_GRUPPE.ID <> {})",
                 Quoted(number), Key(client), Id(group));
}

SqlText UpdateGroup(std::int32_t group, const Group& typed) {
  return Compose(R"(
UPDATE PA_GRUPPE
SET ID_PRODUKT = {}, ID_T_PA_KATEGORIE = {}, PA_NUMMER = {}, FWJ = {}, BESCHREIBUNG = {}
WHERE PA_GRUPPE.ID = {})",
                 IdOrNull(typed.product), IdOrNull(typed.category), TextOrNull(typed.number),
                 TextOrNull(typed.year), TextOrNull(typed.description), Id(group));
}

SqlText TakeBackGroup(std::int32_t group) {
  return Compose("DELETE FROM PA_GRUPPE WHERE PA_GRUPPE.ID = 0{}", Key(group));
}

SqlText NameOfGroup(std::int32_t group) {
  return Compose("SELECT BEZEICHNUNG FROM PA_GRUPPE WHERE ID = {}", Id(group));
}

SqlText CountOfOrders(std::int32_t group) {
  return Compose(
      "SELECT (SELECT COUNT(*) FROM ARBEITSAUFTRAG_KOPF WHERE ARBEITSAUFTRAG_KOPF.ID_PA_GRUPPE = {})",
      Id(group));
}

SqlText DeleteGroup(std::int32_t group) {
  return Compose("DELETE FROM PA_GRUPPE WHERE ID = {}", Id(group));
}

}  // namespace tarvoni::pa_gruppe_sql
