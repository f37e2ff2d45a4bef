#include "src/wage/f_bruttolohn_sql.h"

#include "src/context/data/statement.h"
#include "src/wage/wage_type_lists.h"

namespace tarvoni::bruttolohn_sql {
namespace {

SqlText Offered(std::string_view client) {
  return Compose(R"(
FROM LOHNARTEN
WHERE ISNULL(DISABLE,0) = 0
  AND SLA = 1
  AND TABLE_NAME IN (SELECT LOHNARTEN FROM PERSONAL WHERE ID_PERSONAL = 0{}))",
                 Digits(client));
}

}  // namespace

SqlText WageTypes(std::string_view client) {
  return WageTypesOffered(Offered(client));
}

SqlText FindWageType(std::string_view client, std::string_view typed) {
  return WageTypeTyped(Offered(client), typed);
}

SqlText InsertLine(std::int32_t header) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO STUNDENBUCH (ID_STUNDENBUCH) VALUES ({})
SELECT MAX(ID) FROM STUNDENBUCH WHERE ID_STUNDENBUCH = {})",
                 Id(header), Id(header));
}

SqlText DeleteLeftover(std::int32_t line) {
  return Compose("DELETE FROM ARBEITSAUFTRAG WHERE QUELLE = 'B' AND ID_STUNDENBUCH = {}", Id(line));
}

SqlText UpdateForestYear(std::int32_t header, std::string_view forest_year) {
  return Compose("UPDATE STUNDENBUCH_HEADER SET FWJ = {} WHERE ID = {}", NumberOrNull(forest_year),
                 Id(header));
}

SqlText UpdateLine(std::int32_t line, const Line& entry, std::string_view sql_date_format) {
  return Compose(R"(
UPDATE STUNDENBUCH
SET TAG = {},ID_LOHNARTEN = {},AUSZAHLUNGSMONAT = {},STUNDEN = {},VERLOHNUNG = {},PROZENTSATZ = {}
WHERE ID = {})",
                 NumberOrNull(entry.day), IdOrNull(entry.wage_type),
                 DateOrNull(entry.paying_month, sql_date_format), NumberOrNull(entry.quantity),
                 DateOrNull(entry.pay_month, sql_date_format), NumberOrNull(entry.percentage), Id(line));
}

SqlText InsertMissingPair(std::int32_t line) {
  return Compose(R"(
SET NOCOUNT ON
IF NOT EXISTS(SELECT ID FROM ARBEITSAUFTRAG WHERE QUELLE = 'B' AND ID_STUNDENBUCH = {})
INSERT INTO ARBEITSAUFTRAG (QUELLE,ID_STUNDENBUCH) VALUES ('B',{}))",
                 Id(line), Id(line));
}

SqlText UpdatePair(std::int32_t line, const Assignment& assignment) {
  return Compose(R"(
UPDATE ARBEITSAUFTRAG
SET ARBEITSAUFTRAG_KOPF_ID = {},KOSTENSTELLE_ID = {},LEISTUNGSART_ID = {},VERFAHREN_ID = {},OBJEKT_ID = {}
WHERE QUELLE = 'B' AND ID_STUNDENBUCH = {})",
                 IdOrNull(assignment.product_order), IdOrNull(assignment.cost_centre),
                 IdOrNull(assignment.work_type), IdOrNull(assignment.method), IdOrNull(assignment.object),
                 Id(line));
}

SqlText DeleteLine(std::int32_t line) {
  return Compose(R"(
DELETE FROM ARBEITSAUFTRAG WHERE QUELLE = 'B' AND ID_STUNDENBUCH = {}
DELETE FROM STUNDENBUCH WHERE ID = {})",
                 Id(line), Id(line));
}

}  // namespace tarvoni::bruttolohn_sql
