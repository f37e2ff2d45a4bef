#include "src/piecework/f_zeilohn_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"
#include "src/piecework/natural_sql.h"
#include "src/piecework/wage_lines_sql.h"

namespace tarvoni::zeilohn_sql {

SqlText LinesOfOrder(std::int32_t order) {
  return Compose(R"(
SELECT ARA_KOPF.NAME,
  ARBEITSAUFTRAG.LEISTUNGSART_ID,
  WALDORT.ID_WALDORT,
  {} AS WALDORT,
  ISNULL(ARA_KOPF.UNTYPISCH,0) AS UNTYPISCH,
  ISNULL(ARA_KOPF.WERKZEUGGELD,0) AS WERKZEUGGELD,
  ARA_KOPF.PROZENTSATZ_MZ,
  ARA_LOHN.ID,
  ARA_LOHN.ID_HOLZART,
  HOLZART.HA AS HOLZARTHA,HOLZART.HA_LANG AS HOLZARTHALANG,
  ARA_LOHN.FLACHE,
  ARA_LOHN.MENGEKLR,
  WARENEINHEIT.EINHEIT AS WARENEINHEITEINHEIT,WARENEINHEIT.BESCHREIBUNG AS WARENEINHEITBESCHREIBUNG,
  {},
  ISNULL(LEISTUNGSART.ZL_HAB,0) AS LEISTUNGSARTZL_HAB,
  ISNULL(LEISTUNGSART.ALLOW_HOLZ,0) AS LEISTUNGSARTALLOW_HOLZ,
  ISNULL(LEISTUNGSART.NV_KLR,0) AS LEISTUNGSARTNV_KLR,
  ARBEITSAUFTRAG.ARBEITSAUFTRAG_KOPF_ID,
  ARBEITSAUFTRAG.ID AS ARBEITSAUFTRAGID,
  ARBEITSAUFTRAG.KOSTENSTELLE_ID AS ARBEITSAUFTRAGKOSTENSTELLE_ID,
  ARBEITSAUFTRAG.LEISTUNG AS ARBEITSAUFTRAGLEISTUNG,
  {} MODIFY
FROM ARA_KOPF
LEFT JOIN ARBEITSAUFTRAG ON ARA_KOPF.ID = ARBEITSAUFTRAG.ID_ARA_KOPF
LEFT JOIN LEISTUNGSART ON LEISTUNGSART.ID = ARBEITSAUFTRAG.LEISTUNGSART_ID
LEFT JOIN WARENEINHEIT ON WARENEINHEIT.EINHEIT_ID = LEISTUNGSART.MENGENEINHEIT
LEFT JOIN WALDORT ON WALDORT.ID_WALDORT = ARBEITSAUFTRAG.WO_ID
LEFT JOIN ARA_LOHN ON ARA_LOHN.ID_ARA_KOPF = ARA_KOPF.ID
LEFT JOIN HOLZART ON HOLZART.ID = ARA_LOHN.ID_HOLZART
{}
WHERE ARA_KOPF.ID = {})",
                 kLocationPath, natural_sql::LineColumns(), wage_lines_sql::HasClosedHours(),
                 natural_sql::LineJoins(), Id(order));
}

SqlText UpdateOrder(std::int32_t order, const Marks& marks) {
  return Compose("UPDATE ARA_KOPF SET WERKZEUGGELD = {},UNTYPISCH = {},PROZENTSATZ_MZ = {} WHERE ID = {}",
                 Flag(marks.tool_money), Flag(marks.unusual),
                 marks.percentage.empty() ? Number(std::int64_t{0}) : Number(marks.percentage), Id(order));
}

SqlText UpdateLine(std::int32_t id, const Line& line) {
  return Compose("UPDATE ARA_LOHN SET ID_HOLZART = {},FLACHE = {},MENGEKLR = {} WHERE ID = {}",
                 IdOrNull(line.species), NumberOrNull(line.area), NumberOrNull(line.quantity), Id(id));
}

}  // namespace tarvoni::zeilohn_sql
