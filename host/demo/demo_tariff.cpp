#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/timber_codes.h"

namespace tarvoni::demo {
namespace {

constexpr int kFewestMarks = 2;  // combinations of marks at scale 1
constexpr int kFullScale = 100;

struct Span {
  int from, to;
};
constexpr auto kDiameters =
    std::to_array<Span>({{7, 19}, {20, 24}, {25, 29}, {30, 39}, {40, 49}, {50, 120}});  // centimetres
constexpr auto kLengths = std::to_array<Span>({{50, 499}, {500, 2500}});                // centimetres

std::optional<std::string_view> OrNull(std::string_view mark) {
  return mark == kNoMark ? std::nullopt : std::optional(mark);
}

// Ten-thousandths of an amount per cubic metre: broadleaves, thin and short logs cost more, marks raise it too.
int WagePerMetre(std::size_t species, std::size_t diameter, std::size_t length, int marks) {
  const int base = 98'000 - static_cast<int>(diameter) * 11'500 - static_cast<int>(length) * 6'000;
  return base + (species >= 5 ? 12'500 : 0) + static_cast<int>(species) * 700 + marks * 1'300;
}

Decimal Metres(int centimetres) {
  return {centimetres, 2};
}

class TariffWriter {
 public:
  explicit TariffWriter(Connection& connection) : connection_(connection) {}

  // A hundred rows for each combination of marks.
  void WriteMarks(int marks) {
    marks_ = MarksOf(marks);
    for (std::size_t species = 0; species < kSpeciesGroups.size(); ++species) {
      for (std::size_t diameter = 0; diameter < kDiameters.size(); ++diameter) {
        for (std::size_t length = 0; length < kLengths.size(); ++length)
          WriteRound(species, diameter, length, WagePerMetre(species, diameter, length, marks));
      }
      WriteStacked(species, WagePerMetre(species, 2, 0, marks));
    }
    for (const auto species : kPoleSpecies) {
      for (std::size_t pole = 0; pole < kPoleClasses.size(); ++pole)
        WritePole(species, kPoleClasses[pole], WagePerMetre(0, pole, 1, marks) * 2);
    }
  }

  void Finish() { writer_.Finish(); }

 private:
  void WriteRound(std::size_t species, std::size_t diameter, std::size_t length, int wage) {
    Add(kRoundGroup, kSpeciesGroups[species], kDiameters[diameter].from, kDiameters[diameter].to,
        Metres(kLengths[length].from), Metres(kLengths[length].to), Null{}, wage, 1, Null{}, true);
  }

  // Paid by stacked metres; what has been split is paid elsewhere.
  void WriteStacked(std::size_t species, int wage) {
    Add(kStackedGroup, kSpeciesGroups[species], 5, 60, Metres(50), Metres(400), Null{}, wage, 0, 0, false);
  }

  void WritePole(std::string_view species, std::string_view pole, int wage) {
    Add(kPoleGroup, species, Null{}, Null{}, Null{}, Null{}, pole, wage, 1, Null{}, false);
  }

  template <class Bound, class Length, class Pole, class Split>
  void Add(std::string_view grade, std::string_view species, const Bound& from, const Bound& to,
           const Length& shortest, const Length& longest, const Pole& pole, int wage, int solid,
           const Split& split, bool by_species) {
    writer_.Add(grade, species, OrNull(marks_.est), marks_.bark, marks_.skidding, from, to, shortest, longest,
                pole, Decimal(wage, 4), Decimal(wage * 3 / 10, 4), solid, split, true, by_species);
  }

  Connection& connection_;
  LogMarks marks_;
  RowWriter writer_{connection_, "TARIFTABELLE",
                    "HS_GRUPPE, HA_GRUPPE, EST_MERKMAL, RINDENZUST, RUECKEZUST, DM_VON, DM_BIS, LAENGE_VON, "
                    "LAENGE_BIS, STANGEN_STKL, AZ, MZ, FM, SP, ZUSA, ZUSB"};
};

}  // namespace

void BuildTariff(Enterprise& enterprise) {
  const int grown = (enterprise.scale - 1) * (kMarkCombinations - kFewestMarks) / (kFullScale - 1);
  enterprise.tariff_marks = std::min(kFewestMarks + grown, kMarkCombinations);
  TariffWriter writer(enterprise.connection);
  for (int marks = 0; marks < enterprise.tariff_marks; ++marks) writer.WriteMarks(marks);
  writer.Finish();
}

}  // namespace tarvoni::demo
