#include "src/common/activity.h"

#include <charconv>

#include "src/common/query.h"
#include "src/context/data/statement.h"

namespace tarvoni {
namespace {

SqlText OfProduct(const ActivityWanted& wanted) {
  return Compose(R"(
SELECT LEISTUNGSART.ID,LEISTUNGSART.NAME,ISNULL(LEISTUNGSART.ALLOW_HOLZ,0) AS ALLOW_HOLZ,
  ISNULL(LEISTUNGSART.MENGENEINHEIT,0) AS MENGENEINHEIT,LEISTUNGSART.FLACHE
FROM PERSONAL,LEISTUNGSART
WHERE PERSONAL.MANDANTEN = 1 AND PERSONAL.ID_PERSONAL = {}
  AND PERSONAL.LEISTUNGSART = LEISTUNGSART.TABLE_NAME
  AND LEISTUNGSART.NUMBER = '{}'
  AND LEISTUNGSART.PRODUKT_ID = {})",
                 Id(wanted.client), Quoted(wanted.number), Id(wanted.product));
}

SqlText OfCostCentre(const ActivityWanted& wanted) {
  return Compose(R"(
SELECT LEISTUNGSART.ID,LEISTUNGSART.NAME,ISNULL(LEISTUNGSART.ALLOW_HOLZ,0) AS ALLOW_HOLZ,
  ISNULL(STUNDEN,0) AS STUNDEN,ISNULL(MAS,0) AS MAS,HSGR,MENGENEINHEIT,ISNULL(FLACHE,0) AS FLACHE
FROM LEISTUNGSART
WHERE LEISTUNGSART.NUMBER = '{}'
  AND LEISTUNGSART.TABLE_NAME IN (SELECT LEISTUNGSART FROM PERSONAL WHERE ID_PERSONAL = {})
  AND LEISTUNGSART.PRODUKT_ID = {}
  AND LEISTUNGSART.ID IN (
    SELECT ID_MASTER FROM ONETOMANY
    WHERE RELATION = 'LEISTUNGSART.KOSTENSTELLE_TYP'
      AND ID_SLAVE IN (SELECT ID_KOSTENSTELLE_TYP FROM KOSTENSTELLE WHERE ID = {})))",
                 Quoted(wanted.number), Id(wanted.client), Id(wanted.product), Id(*wanted.cost_centre));
}

SqlText TimberFlag(std::int32_t activity) {
  return Compose("SELECT ISNULL(LEISTUNGSART.ALLOW_HOLZ,0) FROM LEISTUNGSART WHERE ID = {}", Id(activity));
}

}  // namespace

bool IsCode(std::string_view typed) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(typed.data(), typed.data() + typed.size(), number);
  return error == std::errc() && end == typed.data() + typed.size();
}

SqlText FindActivityStatement(const ActivityWanted& wanted) {
  return wanted.cost_centre ? OfCostCentre(wanted) : OfProduct(wanted);
}

Activity FindActivity(Connection& connection, const ActivityWanted& wanted) {
  const SqlText statement = FindActivityStatement(wanted);  // a quote is an error, also where nothing is sent
  if (!IsCode(wanted.number)) return {};
  const Recordset rows = connection.Open(statement);
  if (rows.EndOfFile()) return {};
  const FieldList row = rows.Fields();
  Activity found{.id = ToLong(row["ID"].Value()),
                 .name = ToText(row["NAME"].Value()),
                 .allows_timber = ToFlag(row["ALLOW_HOLZ"].Value()),
                 .by_area = ToFlag(row["FLACHE"].Value()),
                 .unit = ToLong(row["MENGENEINHEIT"].Value())};
  if (wanted.cost_centre) {
    found.takes_hours = ToFlag(row["STUNDEN"].Value());
    found.takes_machine_hours = ToFlag(row["MAS"].Value());
  }
  return found;
}

bool AllowsTimber(Connection& connection, std::int32_t activity) {
  return ToFlag(ReadValue(connection, TimberFlag(activity)));
}

}  // namespace tarvoni
