#pragma once

#include <array>
#include <string_view>

namespace tarvoni::demo {

struct SpeciesRow {
  std::string_view code, name, group;  // group: of the tariff
  bool conifer;
  int share;  // of the logs, in percent
};
inline constexpr auto kSpecies = std::to_array<SpeciesRow>({{"FI", "Fichte", "FI", true, 52},
                                                            {"TA", "Tanne", "TA", true, 9},
                                                            {"KI", "Weißkiefer", "KI", true, 6},
                                                            {"SK", "Schwarzkiefer", "KI", true, 3},
                                                            {"LA", "Lärche", "LA", true, 9},
                                                            {"DG", "Douglasie", "DG", true, 3},
                                                            {"BU", "Rotbuche", "BU", false, 12},
                                                            {"EI", "Eiche", "EI", false, 3},
                                                            {"HB", "Hainbuche", "BU", false, 1},
                                                            {"BA", "Bergahorn", "BU", false, 1},
                                                            {"ES", "Esche", "BU", false, 1}});
// The groups of species and of grades that the tariff knows.
inline constexpr std::array<std::string_view, 7> kSpeciesGroups = {"FI", "TA", "KI", "LA", "DG", "BU", "EI"};
inline constexpr std::array<std::string_view, 3> kPoleSpecies = {"FI", "TA", "KI"};
inline constexpr std::string_view kRoundGroup = "S";
inline constexpr std::string_view kStackedGroup = "I";
inline constexpr std::string_view kPoleGroup = "P";

enum class TimberKind { kRound, kStacked, kPole };
struct GradeRow {
  std::string_view code, group;
  TimberKind kind;
};
inline constexpr auto kGrades = std::to_array<GradeRow>({{"A", kRoundGroup, TimberKind::kRound},
                                                         {"B", kRoundGroup, TimberKind::kRound},
                                                         {"C", kRoundGroup, TimberKind::kRound},
                                                         {"CX", kRoundGroup, TimberKind::kRound},
                                                         {"IF", kStackedGroup, TimberKind::kStacked},
                                                         {"BH", kStackedGroup, TimberKind::kStacked},
                                                         {"SG", kPoleGroup, TimberKind::kPole}});
inline constexpr std::array<std::string_view, 3> kPoleClasses = {"P1", "P2", "P3"};

// Marks of a log that the tariff asks for: EST mark, bark, skidding. `kNoMark` is NULL in the table.
struct LogMarks {
  std::string_view est, bark, skidding;
};
inline constexpr std::string_view kNoMark;
inline constexpr std::array<std::string_view, 5> kEstMarks = {"N", "E", "S", "W", kNoMark};
inline constexpr std::array<std::string_view, 2> kBarkMarks = {"MR", "OR"};
inline constexpr std::array<std::string_view, 3> kSkiddingMarks = {"ST", "RG", "FS"};
inline constexpr int kMarkCombinations =
    static_cast<int>(kEstMarks.size() * kBarkMarks.size() * kSkiddingMarks.size());

constexpr LogMarks MarksOf(int combination) {
  const auto index = static_cast<std::size_t>(combination);
  const auto rest = index / kEstMarks.size();
  return {kEstMarks[index % kEstMarks.size()], kBarkMarks[rest % kBarkMarks.size()],
          kSkiddingMarks[rest / kBarkMarks.size()]};
}

inline constexpr int kWageReasons =
    4;  // rows of STAMM_TABELLEN with LABEL_GROUP 'LOHNGRUND', ID_STRING from 1

}  // namespace tarvoni::demo
