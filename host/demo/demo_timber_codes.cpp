#include <string>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/timber_codes.h"

namespace tarvoni::demo {
namespace {

struct SmallCode {
  std::string_view group, code, name;
};
// ID_STRING is the place in this list: the first are the wage reasons.
constexpr auto kSmallCodes = std::to_array<SmallCode>({{"LOHNGRUND", "SV", "Stücklohnvereinbarung"},
                                                       {"LOHNGRUND", "ZS", "Zeitstudie"},
                                                       {"LOHNGRUND", "EW", "Erfahrungswert"},
                                                       {"LOHNGRUND", "KV", "Kollektivvertrag"},
                                                       {"EST", "N", "Normale Verhältnisse"},
                                                       {"EST", "E", "Erschwerte Verhältnisse"},
                                                       {"EST", "S", "Schadholz"},
                                                       {"EST", "W", "Windwurf"},
                                                       {"MEFVERF", "MR", "mit Rinde"},
                                                       {"MEFVERF", "OR", "ohne Rinde"},
                                                       {"RUCKE", "ST", "am Stock"},
                                                       {"RUCKE", "RG", "an der Rückegasse"},
                                                       {"RUCKE", "FS", "an der Forststraße"}});
static_assert(kSmallCodes[kWageReasons - 1].group == "LOHNGRUND" && kSmallCodes[kWageReasons].group == "EST");

void WriteSpecies(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "HOLZART", "ID, HA, HA_LANG, HAGR, HAGR1, HAGR2",
                   RowWriter::Keys::kGiven);
  for (const SpeciesRow& row : kSpecies) {
    enterprise.species.push_back(static_cast<int>(enterprise.species.size()) + 1);
    writer.Add(enterprise.species.back(), row.code, row.name, row.group, row.group,
               row.conifer ? "NH" : "LH");
  }
  writer.Finish();
}

void WriteGrades(Connection& connection) {
  RowWriter writer(connection, "HOLZSORTE", "HS, HSGR, HSGR1, STANDARD_HSGR, RUND, SCHICHT, STANG");
  for (const GradeRow& row : kGrades)
    writer.Add(row.code, row.group, row.group, row.group, row.kind == TimberKind::kRound,
               row.kind == TimberKind::kStacked, row.kind == TimberKind::kPole);
  writer.Finish();
}

}  // namespace

void BuildTimberCodes(Enterprise& enterprise) {
  WriteSpecies(enterprise);
  WriteGrades(enterprise.connection);
  RowWriter writer(enterprise.connection, "STAMM_TABELLEN",
                   "LABEL_GROUP, SHORTNAME, LONGNAME, ID_STRING, DISABLE");
  int place = 0;
  for (const SmallCode& row : kSmallCodes)
    writer.Add(row.group, row.code, row.name, std::to_string(++place), false);
  writer.Finish();
}

}  // namespace tarvoni::demo
