#include <array>
#include <string_view>

#include "host/demo/nature_codes.h"
#include "host/demo/parts.h"
#include "host/demo/row_writer.h"

namespace tarvoni::demo {
namespace {

struct Named {
  std::string_view code, name;
};
constexpr auto kStates = std::to_array<Named>({{"B", "Burgenland"},
                                               {"K", "Kärnten"},
                                               {"N", "Niederösterreich"},
                                               {"O", "Oberösterreich"},
                                               {"S", "Salzburg"},
                                               {"St", "Steiermark"},
                                               {"T", "Tirol"},
                                               {"V", "Vorarlberg"},
                                               {"W", "Wien"}});
constexpr auto kOrigins = std::to_array<Named>({{"FI 4.1", "Fichte, nördliche Randalpen"},
                                                {"FI 3.2", "Fichte, östliche Zwischenalpen"},
                                                {"LA 4.1", "Lärche, nördliche Randalpen"},
                                                {"TA 4.2", "Tanne, nördliche Randalpen Ost"},
                                                {"BU 5.1", "Rotbuche, niederösterreichischer Alpenostrand"},
                                                {"EI 8.1", "Traubeneiche, Pannonisches Hügelland"},
                                                {"BA 4.1", "Bergahorn, nördliche Randalpen"}});
constexpr auto kOriginCategories = std::to_array<Named>(
    {{"A", "ausgewählt"}, {"Q", "quellengesichert"}, {"G", "geprüft"}, {"S", "qualifiziert"}});

struct StandType {
  std::string_view number, code, name;
};
constexpr auto kStandTypes = std::to_array<StandType>({{"10", "FI", "Fichtenwald"},
                                                       {"11", "FI-TA-BU", "Fichten-Tannen-Buchen-Mischwald"},
                                                       {"12", "FI-LA", "Fichten-Lärchenwald"},
                                                       {"20", "TA-BU", "Tannen-Buchenwald"},
                                                       {"30", "KI-EI", "Kiefern-Eichenwald"},
                                                       {"40", "BU", "Buchenwald"},
                                                       {"41", "BU-EDL", "Buchenwald mit Edellaubholz"},
                                                       {"50", "EI-HB", "Eichen-Hainbuchenwald"},
                                                       {"60", "SCH", "Schutzwald außer Ertrag"}});

template <std::size_t kCount>
int WriteNamed(Connection& connection, std::string_view table, const std::array<Named, kCount>& rows) {
  RowWriter writer(connection, table, "ID, SHORT, [LONG]", RowWriter::Keys::kGiven);
  int id = 0;
  for (const Named& row : rows) writer.Add(++id, row.code, row.name);
  writer.Finish();
  return id;
}

void WriteMarks(Connection& connection) {
  RowWriter marks(connection, "NUTZUNGSART",
                  "ID, NA, NA_LANG, DISABLE, BZT_NV_KLR, HERK_NV_KLR, AST_NV_KLR, ZAUN_NV_KLR",
                  RowWriter::Keys::kGiven);
  int id = 0;
  for (const MarkRow& mark : kMarks)
    marks.Add(++id, mark.code, mark.name, mark.disabled, mark.stand_type, mark.origin, mark.pruning,
              mark.fence);
  marks.Finish();
}

int WriteStandTypes(Connection& connection) {
  RowWriter types(connection, "BZT", "ID, NUMBER, BZT_SHORT, BZT_LANG", RowWriter::Keys::kGiven);
  int id = 0;
  for (const StandType& type : kStandTypes) types.Add(++id, type.number, type.code, type.name);
  types.Finish();
  return id;
}

}  // namespace

void BuildNatureCodes(Enterprise& enterprise) {
  Connection& connection = enterprise.connection;
  WriteMarks(connection);
  enterprise.nature.stand_types = WriteStandTypes(connection);
  enterprise.nature.states = WriteNamed(connection, "T_BUNDESLAND", kStates);
  enterprise.nature.origins = WriteNamed(connection, "T_BAUM_HERK_GEB", kOrigins);
  enterprise.nature.categories = WriteNamed(connection, "T_HERK_KATEGORIE", kOriginCategories);
}

}  // namespace tarvoni::demo
