#include "src/piecework/wage_lines_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::wage_lines_sql {

SqlText HasClosedHours() {
  return R"(
(CASE WHEN EXISTS(SELECT ARA_STUNDEN.ID
                  FROM ARA_STUNDEN
                  WHERE ARA_STUNDEN.ID_ARA_KOPF = ARA_KOPF.ID
                    AND EXISTS(SELECT LOHNABSCHLUSS.ID
                               FROM LOHNABSCHLUSS
                               WHERE LOHNABSCHLUSS.ASCHLUSS_L = 1
                                 AND LOHNABSCHLUSS.MONAT = MONTH(ARA_STUNDEN.BEARBEITUNG)
                                 AND LOHNABSCHLUSS.JAHR = YEAR(ARA_STUNDEN.BEARBEITUNG))) THEN 1 ELSE 0 END))";
}

SqlText InsertLine(std::int32_t order) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO ARA_LOHN (ID_ARA_KOPF) VALUES ({})
SELECT IDENT_CURRENT('ARA_LOHN'))",
                 Id(order));
}

SqlText DeleteLine(std::int32_t line) {
  return Compose(R"(
DELETE FROM NATURALVOLLZUG_KLR_WALDORT
WHERE ID_NATURALVOLLZUG_KLR IN (SELECT ID FROM NATURALVOLLZUG_KLR WHERE ID_ARA_LOHN = {})
DELETE FROM NATURALVOLLZUG_KLR WHERE ID_ARA_LOHN = {}
DELETE FROM ARBEITSAUFTRAG WHERE ID_ARA_LOHN = {}
DELETE FROM ARA_LOHN WHERE ID = {})",
                 Id(line), Id(line), Id(line), Id(line));
}

}  // namespace tarvoni::wage_lines_sql
