#include "src/piecework/f_sonst_stucklohn_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"
#include "src/piecework/natural_sql.h"
#include "src/piecework/wage_lines_sql.h"

namespace tarvoni::sonst_stucklohn_sql {

SqlText LinesOfOrder(std::int32_t order) {
  return Compose(R"(
SELECT ARA_KOPF.NAME,
  ARBEITSAUFTRAG.LEISTUNGSART_ID,
  ISNULL(LEISTUNGSART.NV_KLR,0) AS LEISTUNGSARTNV_KLR,
  WALDORT.ID_WALDORT,
  {} AS WALDORT,
  ISNULL(ARA_KOPF.UNTYPISCH,0) AS UNTYPISCH,
  ISNULL(ARA_KOPF.WERKZEUGGELD,0) AS WERKZEUGGELD,
  ARA_KOPF.ID_LOHNGRUND,
  LOHNGRUND.SHORTNAME AS LOHNGRUNDSHORT,LOHNGRUND.LONGNAME AS LOHNGRUNDLONG,
  ARA_LOHN.ID,
  ARA_LOHN.ID_HOLZART,
  HOLZART.HA AS HOLZARTHA,HOLZART.HA_LANG AS HOLZARTHALANG,
  ARA_LOHN.FLACHE,
  ARA_LOHN.MENGEKLR,
  WARENEINHEIT.EINHEIT AS WARENEINHEITEINHEIT,WARENEINHEIT.BESCHREIBUNG AS WARENEINHEITBESCHREIBUNG,
  ARA_LOHN.MENGELOHN,
  ARA_LOHN.ID_WARENEINHEITLOHN,
  WARENEINHEITLOHN.EINHEIT AS WARENEINHEITLOHNEINHEIT,
  WARENEINHEITLOHN.BESCHREIBUNG AS WARENEINHEITLOHNBESCHREIBUNG,
  ARA_LOHN.AZ,
  ARA_LOHN.MZ,
  {},
  {} MODIFY
FROM ARA_KOPF
LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF
LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID
LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID
LEFT JOIN STAMM_TABELLEN LOHNGRUND ON LOHNGRUND.ID_STRING = ARA_KOPF.ID_LOHNGRUND
LEFT JOIN ARA_LOHN ON ARA_LOHN.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN HOLZART ON HOLZART.ID = ARA_LOHN.ID_HOLZART
LEFT JOIN WARENEINHEIT WARENEINHEITLOHN ON WARENEINHEITLOHN.EINHEIT_ID = ARA_LOHN.ID_WARENEINHEITLOHN
{}
WHERE ARA_KOPF.ID = {})",
                 kLocationPath, natural_sql::LineColumns(), wage_lines_sql::HasClosedHours(),
                 natural_sql::LineJoins(), Id(order));
}

SqlText UpdateOrder(std::int32_t order, const Marks& marks) {
  return Compose("UPDATE ARA_KOPF SET WERKZEUGGELD = {},UNTYPISCH = {},ID_LOHNGRUND = {} WHERE ID = {}",
                 Flag(marks.tool_money), Flag(marks.unusual), IdOrNull(marks.wage_basis), Id(order));
}

SqlText UpdateLine(std::int32_t id, const Line& line) {
  return Compose(R"(
UPDATE ARA_LOHN
SET ID_HOLZART = {},FLACHE = {},MENGEKLR = {},MENGELOHN = {},ID_WARENEINHEITLOHN = {},AZ = {},MZ = {}
WHERE ID = {})",
                 IdOrNull(line.species), NumberOrNull(line.area), NumberOrNull(line.quantity),
                 NumberOrNull(line.wage_quantity), IdOrNull(line.wage_unit),
                 NumberOrNull(line.minutes_worker), NumberOrNull(line.minutes_machine), Id(id));
}

}  // namespace tarvoni::sonst_stucklohn_sql
