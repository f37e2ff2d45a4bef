#include "src/context/data/tvn_var_dll.h"

#include <array>
#include <charconv>
#include <utility>

namespace tarvoni {
namespace {

using TextMember = std::string TvnVar_Dll::*;
using NumberMember = std::int32_t TvnVar_Dll::*;

constexpr std::array<std::pair<std::string_view, TextMember>, 15> kTexts = {{
    {"strConString", &TvnVar_Dll::strConString},
    {"strConStringAlt", &TvnVar_Dll::strConStringAlt},
    {"strTextA", &TvnVar_Dll::strTextA},
    {"strLocalCurrency", &TvnVar_Dll::strLocalCurrency},
    {"strTextB", &TvnVar_Dll::strTextB},
    {"strSqlDateFormat", &TvnVar_Dll::strSqlDateFormat},
    {"strTextC", &TvnVar_Dll::strTextC},
    {"strTextD", &TvnVar_Dll::strTextD},
    {"strWorkDirectory", &TvnVar_Dll::strWorkDirectory},
    {"strTextE", &TvnVar_Dll::strTextE},
    {"strTextF", &TvnVar_Dll::strTextF},
    {"strTextG", &TvnVar_Dll::strTextG},
    {"strTextH", &TvnVar_Dll::strTextH},
    {"strTextI", &TvnVar_Dll::strTextI},
    {"strTextJ", &TvnVar_Dll::strTextJ},
}};

constexpr std::array<std::pair<std::string_view, NumberMember>, 12> kNumbers = {{
    {"lngPlain1", &TvnVar_Dll::lngPlain1},
    {"lngWaldortScope", &TvnVar_Dll::lngWaldortScope},
    {"lngPlain3", &TvnVar_Dll::lngPlain3},
    {"lngPlain4", &TvnVar_Dll::lngPlain4},
    {"lngPlain5", &TvnVar_Dll::lngPlain5},
    {"lngPlain6", &TvnVar_Dll::lngPlain6},
    {"lngPlain7", &TvnVar_Dll::lngPlain7},
    {"lngPlain8", &TvnVar_Dll::lngPlain8},
    {"lngPlain9", &TvnVar_Dll::lngPlain9},
    {"lngPlain10", &TvnVar_Dll::lngPlain10},
    {"lngPlain11", &TvnVar_Dll::lngPlain11},
    {"lngPlain12", &TvnVar_Dll::lngPlain12},
}};

bool ReadWhole(std::string_view text, std::int32_t& number) {
  std::int32_t read = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), read);
  if (error != std::errc() || end != text.data() + text.size()) return false;
  number = read;
  return true;
}

}  // namespace

bool SetMember(TvnVar_Dll& context, std::string_view name, std::string_view value) {
  for (const auto& [text_name, member] : kTexts) {
    if (text_name != name) continue;
    context.*member = value;
    return true;
  }
  for (const auto& [number_name, member] : kNumbers) {
    if (number_name == name) return ReadWhole(value, context.*member);
  }
  return false;
}

}  // namespace tarvoni
