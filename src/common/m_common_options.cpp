#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"

namespace tarvoni {

std::int32_t GetOptionNumber(const std::string& propertyId, Connection& conn) {
  const Recordset rows =
      conn.Open(Compose("SELECT NUMBER_VALUE FROM OPTIONEN WHERE PROPERTY_ID = '{}'", Quoted(propertyId)));
  if (!rows.EndOfFile()) return ToLong(rows.Fields()[0].Value());
  conn.Execute(
      Compose("INSERT INTO OPTIONEN (PROPERTY_ID, NUMBER_VALUE) VALUES ('{}', 0 )", Quoted(propertyId)));
  return 0;
}

std::string GetOptionText(const std::string& propertyId, Connection& conn) {
  const Recordset rows =
      conn.Open(Compose("SELECT TEXT_VALUE FROM OPTIONEN WHERE PROPERTY_ID = '{}'", Quoted(propertyId)));
  if (!rows.EndOfFile()) return ToText(rows.Fields()[0].Value());
  conn.Execute(Compose("INSERT INTO OPTIONEN (PROPERTY_ID)  VALUES ('{}')", Quoted(propertyId)));
  return {};
}

}  // namespace tarvoni
