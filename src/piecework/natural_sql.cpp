#include "src/piecework/natural_sql.h"

#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"

namespace tarvoni::natural_sql {

SqlText PermittedMarks(const SqlText& activity) {
  return Compose(
      "SELECT ID_SLAVE FROM ONETOMANY WHERE RELATION = 'LEISTUNGSART.NUTZUNGSART' AND ID_MASTER = {}",
      activity);
}

SqlText Demands(std::string_view mark, const SqlText& activity) {
  return Compose(R"(
SELECT ID,
  ISNULL(BZT_NV_KLR,0) AS BZT_NV_KLR,
  ISNULL(HERK_NV_KLR,0) AS HERK_NV_KLR,
  ISNULL(AST_NV_KLR,0) AS AST_NV_KLR,
  ISNULL(ZAUN_NV_KLR,0) AS ZAUN_NV_KLR
FROM NUTZUNGSART
WHERE NA = '{}'
  AND ISNULL(DISABLE,0)=0
  AND ID IN ({}))",
                 Quoted(mark), PermittedMarks(activity));
}

SqlText LineColumns() {
  return R"(
NATURALVOLLZUG_KLR.ID AS ID_KLR,
  NATURALVOLLZUG_KLR.ID_VM,
  NUTZUNGSART.NA AS NUTZUNGSARTNA,NUTZUNGSART.NA_LANG AS NUTZUNGSARTNA_LANG,
  NATURALVOLLZUG_KLR.ID_BZT,
  BZT.NUMBER AS BZTNUMBER,BZT.BZT_LANG AS BZTBZT_LANG,
  NATURALVOLLZUG_KLR.ID_T_BUNDESLAND,
  T_BUNDESLAND.SHORT AS BUNDESLANDSHORT,
  NATURALVOLLZUG_KLR.LANDESSTELLE,
  NATURALVOLLZUG_KLR.ID_T_BAUM_HERK_GEB,
  T_BAUM_HERK_GEB.SHORT AS BAUM_HERK_GEBSHORT,
  NATURALVOLLZUG_KLR.LFDNUMMER,
  NATURALVOLLZUG_KLR.ID_T_HERK_KATEGORIE,
  T_HERK_KATEGORIE.SHORT AS HERK_KATEGORIESHORT,
  NATURALVOLLZUG_KLR.HERK,
  NATURALVOLLZUG_KLR.ASTH,
  ISNULL(NATURALVOLLZUG_KLR.ZAUNBAU,0) AS ZAUNBAU)";
}

SqlText LineJoins() {
  return R"(
LEFT JOIN NATURALVOLLZUG_KLR ON NATURALVOLLZUG_KLR.ID_ARA_LOHN = ARA_LOHN.ID
LEFT JOIN NUTZUNGSART ON NATURALVOLLZUG_KLR.ID_VM = NUTZUNGSART.ID
LEFT JOIN BZT ON NATURALVOLLZUG_KLR.ID_BZT = BZT.ID
LEFT JOIN T_BUNDESLAND ON NATURALVOLLZUG_KLR.ID_T_BUNDESLAND = T_BUNDESLAND.ID
LEFT JOIN T_BAUM_HERK_GEB ON NATURALVOLLZUG_KLR.ID_T_BAUM_HERK_GEB = T_BAUM_HERK_GEB.ID
LEFT JOIN T_HERK_KATEGORIE ON NATURALVOLLZUG_KLR.ID_T_HERK_KATEGORIE = T_HERK_KATEGORIE.ID)";
}

SqlText InsertForLine(std::int32_t line) {
  return Compose(R"(
SET NOCOUNT ON
INSERT INTO NATURALVOLLZUG_KLR (ID_ARA_LOHN) VALUES ({})
SELECT IDENT_CURRENT('NATURALVOLLZUG_KLR'))",
                 Id(line));
}

SqlText Update(std::int32_t id, const Values& values) {
  return Compose(R"(
UPDATE NATURALVOLLZUG_KLR
SET ID_VM = {},ID_BZT = {},ID_T_BUNDESLAND = {},LANDESSTELLE = {},ID_T_BAUM_HERK_GEB = {},LFDNUMMER = {},
  ID_T_HERK_KATEGORIE = {},HERK = {},ASTH = {},ZAUNBAU = {}
WHERE ID = {})",
                 values.mark, values.stand_type, values.state, values.office, values.origin, values.number,
                 values.category, values.note, values.height, values.fence, Id(id));
}

SqlText Delete(std::int32_t id) {
  return Compose(R"(
{}
{})",
                 DeleteLocations(id), DeleteRow(id));
}

SqlText Locations(std::string_view id) {
  return Compose(R"(
SELECT WALDORT.ID_WALDORT,{} AS WALDORT
FROM NATURALVOLLZUG_KLR_WALDORT
INNER JOIN WALDORT ON NATURALVOLLZUG_KLR_WALDORT.ID_WALDORT = WALDORT.ID_WALDORT
WHERE ID_NATURALVOLLZUG_KLR = 0{})",
                 kLocationPath, Digits(id));
}

SqlText StoreLocations(std::int32_t id, std::span<const std::int32_t> locations) {
  SqlText batch = DeleteOtherLocations(id, locations);
  for (const std::int32_t location : locations) {
    batch = Compose(R"(
{}
IF NOT EXISTS(SELECT ID FROM NATURALVOLLZUG_KLR_WALDORT WHERE ID_NATURALVOLLZUG_KLR = {} AND ID_WALDORT = {}) {})",
                    batch, Id(id), Id(location), InsertLocation(id, location));
  }
  return batch;
}

SqlText RowsOfLine(std::int32_t line) {
  return Compose(R"(
SELECT ISNULL(NATURALVOLLZUG_KLR.ID,0)
FROM ARA_LOHN
LEFT JOIN NATURALVOLLZUG_KLR ON NATURALVOLLZUG_KLR.ID_ARA_LOHN = ARA_LOHN.ID
WHERE ARA_LOHN.ID = {})",
                 Id(line));
}

SqlText RowsOfPosition(std::int32_t position) {
  return Compose("SELECT ID FROM NATURALVOLLZUG_KLR WHERE ID_ARBEITSAUFTRAG = {}", Id(position));
}

SqlText DeleteLocations(std::int32_t id) {
  return Compose("DELETE FROM NATURALVOLLZUG_KLR_WALDORT WHERE ID_NATURALVOLLZUG_KLR = {}", Id(id));
}

SqlText DeleteRow(std::int32_t id) {
  return Compose("DELETE FROM NATURALVOLLZUG_KLR WHERE ID = {}", Id(id));
}

SqlText DeleteOtherLocations(std::int32_t id, std::span<const std::int32_t> locations) {
  if (locations.empty()) return DeleteLocations(id);
  return Compose("{} AND ID_WALDORT NOT IN ({})", DeleteLocations(id), IdList(locations));
}

SqlText InsertLocation(std::int32_t id, std::int32_t location) {
  return Compose("INSERT INTO NATURALVOLLZUG_KLR_WALDORT (ID_NATURALVOLLZUG_KLR,ID_WALDORT) VALUES ({},{})",
                 Id(id), Id(location));
}

}  // namespace tarvoni::natural_sql
