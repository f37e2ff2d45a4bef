#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "src/context/database.h"

namespace tarvoni {

// The context record that the host fills and every Screen copies on entry. A copy is deep: it shares the
// objects and owns its strings. The members keep this order; the unnamed ones belong to the shared library.
struct TvnVar_Dll {
  std::shared_ptr<Connection> dbAdo;  // opened and closed by the host
  std::shared_ptr<void> objSecond;
  std::string strConString;  // for data controls
  std::string strConStringAlt;
  std::string strTextA;
  std::string strLocalCurrency;  // offered beside "EUR"
  std::string strTextB;
  std::string strSqlDateFormat = "yyyymmdd";  // of date literals
  std::string strTextC;
  std::string strTextD;
  std::string strWorkDirectory;
  std::string strTextE;
  std::int32_t lngPlain1 = 0;
  std::int32_t lngWaldortScope = 0;  // of forest-location selection
  std::int32_t lngPlain3 = 0;
  std::int32_t lngPlain4 = 0;
  std::int32_t lngPlain5 = 0;
  std::int32_t lngPlain6 = 0;
  std::int32_t lngPlain7 = 0;
  std::int32_t lngPlain8 = 0;
  std::int32_t lngPlain9 = 0;
  std::int32_t lngPlain10 = 0;
  std::string strTextF;
  std::string strTextG;
  std::string strTextH;
  std::int32_t lngPlain11 = 0;
  std::string strTextI;
  std::string strTextJ;
  std::int32_t lngPlain12 = 0;
};

// Sets a text or number member by its name, for scripts and settings. False if there is none of that name, or
// a number member is given no number.
bool SetMember(TvnVar_Dll& context, std::string_view name, std::string_view value);

}  // namespace tarvoni
