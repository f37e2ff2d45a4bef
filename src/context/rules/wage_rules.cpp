#include "src/context/rules/wage_rules.h"

#include <string_view>

#include "src/context/data/statement.h"
#include "src/context/rules/wage_group.h"

namespace tarvoni {
namespace {

struct GroupOption {
  WageGroup group;
  std::string_view key;
  bool direct;
};

constexpr GroupOption kOptions[] = {
    {WageGroup::kTimeWage, "ZL_AZ", true},          {WageGroup::kTimeWage, "ZL_MZ", false},
    {WageGroup::kTimeWage, "ZL_WZ", false},         {WageGroup::kEst, "EST_AZ", true},
    {WageGroup::kOtherPiecework, "STUCK_AZ", true},
};

SqlText NumberOf(WageGroup group) {
  return Number(static_cast<std::int64_t>(group));
}

// What `write` makes of each option, with `between` in the middle.
template <typename Write>
SqlText ForEach(bool direct_only, const SqlText& between, Write write) {
  SqlText all;
  for (const GroupOption& option : kOptions) {
    if (direct_only && !option.direct) continue;
    all = all.Empty() ? write(option) : Compose("{}{}{}", all, between, write(option));
  }
  return all;
}

}  // namespace

SqlText DirectWageTypes() {
  return ForEach(true, "\nUNION ALL\n", [](const GroupOption& option) {
    return Compose(R"(
SELECT ID,{} AS TYP
FROM LOHNARTEN
WHERE ISNULL(DISABLE,0) = 0
  AND NUMBER IN (SELECT (CASE WHEN ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 THEN OPTIONEN.TEXT_VALUE ELSE NULL END)
                 FROM OPTIONEN
                 WHERE OPTIONEN.PROPERTY_ID IN ('{}')))",
                   NumberOf(option.group), Quoted(option.key));
  });
}

SqlText DirectWageOption(const SqlText& group) {
  return Compose("(CASE {} {} ELSE NULL END)", group, ForEach(true, " ", [](const GroupOption& option) {
                   return Compose("WHEN {} THEN '{}'", NumberOf(option.group), Quoted(option.key));
                 }));
}

SqlText WageTypesOfGroup(std::int32_t order) {
  const SqlText options = ForEach(false, " UNION ALL ", [](const GroupOption& option) {
    return Compose("SELECT {} AS ID,'{}' AS K", NumberOf(option.group), Quoted(option.key));
  });
  return Compose(R"(
SELECT OPTIONEN.TEXT_VALUE
FROM ARBEITSAUFTRAG
LEFT JOIN RELTABLE LEISTUNG ON LEISTUNG.ID = ARBEITSAUFTRAG.LEISTUNG
LEFT JOIN BBF_GRUPPE ON BBF_GRUPPE.ID = LEISTUNG.GRUPPE
INNER JOIN ({}) A ON A.ID = BBF_GRUPPE.NUMBER
INNER JOIN OPTIONEN ON OPTIONEN.PROPERTY_ID = A.K
WHERE ISNUMERIC(OPTIONEN.TEXT_VALUE)=1 AND ARBEITSAUFTRAG.ID_ARA_KOPF = {})",
                 options, Id(order));
}

}  // namespace tarvoni
