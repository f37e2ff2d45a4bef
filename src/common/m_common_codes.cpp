#include <algorithm>
#include <array>

#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/rules/location_path.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"

namespace tarvoni {
namespace {

constexpr std::array kHideDisabledByText = {"HH_KAPITEL", "KOSTENART", "HH_TITEL"};
constexpr std::array kHideDisabledFiltered = {"OBJEKT", "KOSTENSTELLE", "ZUHLUNGSART", "ZUHLUNGSGRUND",
                                              "LEISTUNGSART"};

bool Contains(const auto& tables, const std::string& table) {
  return std::ranges::find(tables, table) != tables.end();
}

SqlText OpenCodeByText(const std::string& table, const std::string& number, const std::string& setName) {
  return Compose(
      "SELECT ID  FROM {} WHERE (DISABLE = 0 OR DISABLE IS NULL) and NUMBER = '{}' AND TABLE_NAME = '{}' ",
      Name(table), Quoted(number), Quoted(setName));
}

SqlText CodeByText(const std::string& table, const std::string& number, const std::string& setName) {
  return Compose("SELECT ID  FROM {} WHERE NUMBER = '{}' AND TABLE_NAME = '{}' ", Name(table), Quoted(number),
                 Quoted(setName));
}

SqlText CodeByNumber(const std::string& table, const std::string& number, const std::string& setName,
                     const SqlText& extraCondition) {
  return Compose("SELECT ID  FROM {} WHERE NUMBER = {} AND TABLE_NAME = '{}' {}", Name(table), Number(number),
                 Quoted(setName), extraCondition);
}

SqlText WaldortById(std::int32_t id) {
  return Compose("SELECT WO1,WO2,WO3,WO4,WO5,WO6,LANGNAME FROM WALDORT WHERE ID_WALDORT = {}", Id(id));
}

}  // namespace

SqlText GetNamedSql(const TvnVar_Dll& ctx, const std::string& key, const NamedValues& values) {
  return CurrentSuite().NamedSql().GetSql(ctx, key, values);
}

bool ValidateNamedField(const TvnVar_Dll& ctx, bool reportMissing, const SqlText& sql, TextBox* first,
                        TextBox* second, const std::string& nameColumn, TextBox* third,
                        const std::string& extra) {
  return CurrentSuite().NamedFields().Validate(ctx, reportMissing, sql, first, second, nameColumn, third,
                                               extra);
}

std::string GetNumberById(const std::string& table, std::int32_t id, const TvnVar_Dll& ctx) {
  const std::string number =
      ReadText(DbOf(ctx), Compose("SELECT NUMBER FROM {} WHERE ID = {}", Name(table), Id(id)));
  return number == "0" ? std::string() : number;
}

std::string GetNameById(const std::string& table, std::int32_t id, Connection& conn) {
  return ReadText(conn, Compose("SELECT NAME FROM {} WHERE ID = {}", Name(table), Id(id)));
}

std::string GetPersonalColumn(const std::string& column, std::int32_t idPersonal, Connection& conn) {
  const Recordset rows =
      conn.Open(Compose("SELECT {} FROM PERSONAL  WHERE ID_PERSONAL = {}", Name(column), Id(idPersonal)));
  return ToText(rows.Fields()[0].Value());
}

std::int32_t GetIdByNumberText(const std::string& table, const std::string& number, std::int32_t idPersonal,
                               Connection& conn) {
  if (number.empty()) return 0;
  try {
    const std::string setName = GetPersonalColumn(table, idPersonal, conn);
    const bool openOnly = Contains(kHideDisabledByText, table);
    return ReadNumber(conn,
                      openOnly ? OpenCodeByText(table, number, setName) : CodeByText(table, number, setName));
  } catch (const std::exception&) {
    return 0;
  }
}

std::int32_t GetIdByNumberFiltered(const std::string& table, const std::string& number,
                                   std::int32_t idPersonal, Connection& conn, const SqlText& extraCondition) {
  if (number.empty()) return 0;
  try {
    const std::string setName = GetPersonalColumn(table, idPersonal, conn);
    const bool openOnly = Contains(kHideDisabledFiltered, table);
    return ReadNumber(conn, openOnly ? OpenCodeByText(table, number, setName)
                                     : CodeByNumber(table, number, setName, extraCondition));
  } catch (const std::exception&) {
    return 0;
  }
}

std::string GetWaldortText(std::int32_t& id, const TvnVar_Dll& ctx, bool noLongName) {
  const Recordset rows = DbOf(ctx).Open(WaldortById(id));
  if (rows.EndOfFile()) {
    id = 0;
    return {};
  }
  std::string text = LocationPathOf(rows.Fields(), CurrentLocale());
  const std::string longName = ToText(rows.Fields()["LANGNAME"].Value());
  if (!noLongName && !longName.empty()) text += ": " + longName;
  return text.empty() ? CurrentSuite().Messages().GetMessage(3442, ctx) : text;
}

std::string GetMachineCostTypeNumbers(const std::string& label, Connection& conn) {
  Recordset rows = conn.Open(Compose(R"(
SELECT KOSTENART.NUMBER
FROM KOSTENART
WHERE ID IN (SELECT KOSTENART_ID FROM MASCHINE_STAMM WHERE LABEL = '{}'))",
                                     Quoted(label)));
  std::string numbers;
  for (; !rows.EndOfFile(); rows.MoveNext()) {
    if (!numbers.empty()) numbers += ", ";
    numbers += ToText(rows.Fields()[0].Value());
  }
  return numbers;
}

}  // namespace tarvoni
