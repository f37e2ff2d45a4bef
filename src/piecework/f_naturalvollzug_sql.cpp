#include "src/piecework/f_naturalvollzug_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::naturalvollzug_sql {
namespace {

constexpr SqlText kLevels = R"(
ISNULL(WO1,''),ISNULL(WO2,''),ISNULL(WO3,''),ISNULL(WO4,''),ISNULL(WO5,''),ISNULL(WO6,''))";

}  // namespace

SqlText HasNatural(std::int32_t activity) {
  return Compose("SELECT ISNULL(NV_KLR,0) FROM LEISTUNGSART WHERE ID = {}", Id(activity));
}

SqlText NaturalOfPosition(std::int32_t position, const SqlText& activity) {
  return Compose(R"(
SELECT NATURALVOLLZUG_KLR.ID,
  NUTZUNGSART.NA,NUTZUNGSART.NA_LANG,
  BZT.NUMBER,BZT.BZT_SHORT,BZT.BZT_LANG,
  NATURALVOLLZUG_KLR.HERK,
  NATURALVOLLZUG_KLR.ASTH,
  ISNULL(NATURALVOLLZUG_KLR.ZAUNBAU,0) AS ZAUNBAU,
  NATURALVOLLZUG_KLR.ID_T_BUNDESLAND,
  T_BUNDESLAND.SHORT AS BUNDESLANDSHORT,
  LANDESSTELLE,
  NATURALVOLLZUG_KLR.ID_T_BAUM_HERK_GEB,
  T_BAUM_HERK_GEB.SHORT AS BAUM_HERK_GEBSHORT,
  LFDNUMMER,
  NATURALVOLLZUG_KLR.ID_T_HERK_KATEGORIE,
  T_HERK_KATEGORIE.SHORT AS HERK_KATEGORIESHORT
FROM NATURALVOLLZUG_KLR
LEFT JOIN BZT ON NATURALVOLLZUG_KLR.ID_BZT = BZT.ID
LEFT JOIN NUTZUNGSART
  ON NATURALVOLLZUG_KLR.ID_VM = NUTZUNGSART.ID
 AND ISNULL(NUTZUNGSART.DISABLE,0)=0
 AND NUTZUNGSART.ID IN ({})
LEFT JOIN T_BUNDESLAND ON NATURALVOLLZUG_KLR.ID_T_BUNDESLAND = T_BUNDESLAND.ID
LEFT JOIN T_BAUM_HERK_GEB ON NATURALVOLLZUG_KLR.ID_T_BAUM_HERK_GEB = T_BAUM_HERK_GEB.ID
LEFT JOIN T_HERK_KATEGORIE ON NATURALVOLLZUG_KLR.ID_T_HERK_KATEGORIE = T_HERK_KATEGORIE.ID
WHERE ID_ARBEITSAUFTRAG = {})",
                 natural_sql::PermittedMarks(activity), Id(position));
}

SqlText LocationsOfRow(std::int32_t id) {
  return Compose(R"(
SELECT WALDORT.ID_WALDORT,{}
FROM NATURALVOLLZUG_KLR_WALDORT
INNER JOIN WALDORT ON NATURALVOLLZUG_KLR_WALDORT.ID_WALDORT = WALDORT.ID_WALDORT
WHERE ID_NATURALVOLLZUG_KLR = {})",
                 kLevels, Id(id));
}

SqlText LocationOfPosition(std::int32_t position) {
  return Compose(R"(
SELECT WALDORT.ID_WALDORT,{}
FROM ARBEITSAUFTRAG
INNER JOIN WALDORT ON ARBEITSAUFTRAG.WO_ID = WALDORT.ID_WALDORT
WHERE ARBEITSAUFTRAG.ID = {})",
                 kLevels, Id(position));
}

SqlText StandTypes() {
  return "SELECT NUMBER,BZT_SHORT,BZT_LANG FROM BZT ORDER BY NUMBER";
}

SqlText FirstMark(const SqlText& activity) {
  return Compose(R"(
SELECT TOP 1 NUTZUNGSART.ID,NUTZUNGSART.NA,NUTZUNGSART.NA_LANG
FROM NUTZUNGSART
WHERE ISNULL(DISABLE,0)=0
  AND NUTZUNGSART.ID IN ({}))",
                 natural_sql::PermittedMarks(activity));
}

SqlText ResolveCodes(std::string_view stand_type, std::string_view mark, const SqlText& activity) {
  return Compose(R"(
SELECT ISNULL((SELECT TOP 1 ID FROM BZT WHERE NUMBER = '{}'),0),
  ISNULL((SELECT TOP 1 ID
          FROM NUTZUNGSART
          WHERE NA = '{}'
            AND ISNULL(DISABLE,0)=0
            AND ID IN ({})),0))",
                 Quoted(stand_type), Quoted(mark), natural_sql::PermittedMarks(activity));
}

SqlText Insert(std::int32_t position, const natural_sql::Values& values) {
  return Compose(R"(
INSERT INTO NATURALVOLLZUG_KLR (ID_ARBEITSAUFTRAG,ID_VM,ID_BZT,HERK,ASTH,ZAUNBAU,
  ID_T_BUNDESLAND,LANDESSTELLE,ID_T_BAUM_HERK_GEB,LFDNUMMER,ID_T_HERK_KATEGORIE)
VALUES ({},{},{},{},{},{},{},{},{},{},{}))",
                 Id(position), values.mark, values.stand_type, values.note, values.height, values.fence,
                 values.state, values.office, values.origin, values.number, values.category);
}

SqlText Update(std::int32_t id, std::int32_t position, const natural_sql::Values& values) {
  return Compose(R"(
UPDATE NATURALVOLLZUG_KLR
SET ID_ARBEITSAUFTRAG = {},ID_VM = {},ID_BZT = {},HERK = {},ASTH = {},ZAUNBAU = {},
  ID_T_BUNDESLAND = {},LANDESSTELLE = {},ID_T_BAUM_HERK_GEB = {},LFDNUMMER = {},ID_T_HERK_KATEGORIE = {}
WHERE ID = {})",
                 Id(position), values.mark, values.stand_type, values.note, values.height, values.fence,
                 values.state, values.office, values.origin, values.number, values.category, Id(id));
}

SqlText TouchLocation(std::int32_t id, std::int32_t location) {
  return Compose(R"(
SET NOCOUNT OFF
UPDATE NATURALVOLLZUG_KLR_WALDORT
SET ID_WALDORT=ID_WALDORT
WHERE ID_NATURALVOLLZUG_KLR = {} AND ID_WALDORT = {})",
                 Id(id), Id(location));
}

}  // namespace tarvoni::naturalvollzug_sql
