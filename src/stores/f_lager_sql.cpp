#include "src/stores/f_lager_sql.h"

#include "src/context/data/statement.h"

namespace tarvoni::lager_sql {

SqlText DocumentsOf(std::int32_t client) {
  return Compose(R"(
SELECT LAGER.ID, NUMMER, BUCHUNGSDAT,
  (SELECT NUMBER FROM HH_KAPITEL WHERE HH_KAPITEL.ID = LAGER.KAPITEL_ID),
  (SELECT NUMBER FROM HH_TITEL WHERE HH_TITEL.ID = LAGER.TITEL_ID),
  TAGANORD, RECHNUMER, RECHDATUM, RECHBERTRAG,
  (SELECT NUMBER FROM ZUHLUNGSART WHERE ZUHLUNGSART.ID = LAGER.ZAHLUNGSART),
  (SELECT NUMBER FROM ZUHLUNGSGRUND WHERE ZUHLUNGSGRUND.ID = LAGER.ZAHLUNGSGRUND),
  (SELECT KURZBEZEICHNUNG FROM PERSONAL WHERE PERSONAL.ID_PERSONAL = LAGER.ZAHLUNGSEMF) AS ZAHLUNGSEMFANGER,
  ZAHLUNGSEMF, RECHEURO, KAPITEL_ID, TITEL_ID, HULNR, ZAHLUNGSART, ZAHLUNGSGRUND
FROM LAGER
WHERE PERSONAL_ID = {})",
                 Id(client));
}

SqlText CountWithdrawals(std::int32_t document, std::int32_t position) {
  const SqlText which = position != 0 ? Compose("LAGER_POS.ID = {}", Id(position))
                                      : Compose("LAGER_POS.LAGER_ID = {}", Id(document));
  return Compose(R"(
SELECT COUNT(ARBEITSAUFTRAG.ID)
FROM ARBEITSAUFTRAG
INNER JOIN LAGER_POS ON LAGER_POS.ID = ARBEITSAUFTRAG.ID_LAGER_POS
WHERE ARBEITSAUFTRAG.STORNODATUM IS NULL
  AND {})",
                 which);
}

SqlText FindNumber(std::string_view number) {
  return Compose("SELECT ID FROM LAGER WHERE NUMMER = '{}'", Quoted(number));
}

SqlText InsertDocument(std::string_view number, std::int32_t client) {
  return Compose("INSERT INTO LAGER (NUMMER, PERSONAL_ID) VALUES ('{}',{})", Quoted(number), Id(client));
}

SqlText LastDocument() {
  return "SELECT MAX(ID) FROM LAGER";
}

SqlText PositionsOf(std::int32_t document) {
  return Compose("SELECT ID FROM LAGER_POS WHERE LAGER_ID = {}", Id(document));
}

SqlText DeleteDocument(std::int32_t document) {
  return Compose("DELETE FROM LAGER WHERE ID = {}", Id(document));
}

SqlText DeletePositions(std::int32_t document) {
  return Compose("DELETE FROM LAGER_POS WHERE LAGER_ID = {}", Id(document));
}

}  // namespace tarvoni::lager_sql
