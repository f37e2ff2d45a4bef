#include "host/demo/natural_writer.h"

#include <array>
#include <string_view>

namespace tarvoni::demo {
namespace {

constexpr std::array<std::string_view, 4> kOriginNotes = {"Eigener Forstgarten", "Saatgutplantage",
                                                          "Naturverjüngung", "Zukauf Baumschule"};

}  // namespace

void NaturalWriter::WriteForLine(int line, const WorkType& type, const District& district, int location) {
  Write(line, 0, type, district, location);
}

void NaturalWriter::WriteForPosition(int position, const WorkType& type, const District& district,
                                     int location) {
  Write(0, position, type, district, location);
}

void NaturalWriter::Write(int line, int position, const WorkType& type, const District& district,
                          int location) {
  Random& random = enterprise_.random;
  const NatureCodes& codes = enterprise_.nature;
  const ExecutionMark& mark = random.Pick(type.marks);
  const auto drawn = [&random](bool wanted, int count) {
    return wanted ? OrNull(random.Between(1, count)) : OrNull(0);
  };
  const auto stand_type = drawn(mark.stand_type, codes.stand_types);
  const auto state = drawn(mark.origin, codes.states);
  const auto office = drawn(mark.origin, 9);
  const auto origin = drawn(mark.origin, codes.origins);
  const auto number = drawn(mark.origin, 250);
  const auto category = drawn(mark.origin, codes.categories);
  const auto note = mark.origin ? std::optional(random.Pick(kOriginNotes)) : std::nullopt;
  const auto height = drawn(mark.pruning, 6);
  rows_.Add(++enterprise_.last.natural, OrNull(line), OrNull(position), mark.id, stand_type, state, office,
            origin, number, category, note, height, mark.fence);
  WriteLocations(enterprise_.last.natural, district, location);
}

// No location may lie beneath another: either the owner's own, or stands.
void NaturalWriter::WriteLocations(int id, const District& district, int location) {
  Random& random = enterprise_.random;
  if (location != 0 && random.Chance(75)) {
    locations_.Add(id, location);
    return;
  }
  const auto first =
      static_cast<std::size_t>(random.Between(0, static_cast<int>(district.stands.size()) - 2));
  locations_.Add(id, district.stands[first]);
  locations_.Add(id, district.stands[first + 1]);
}

void NaturalWriter::Finish() {
  rows_.Finish();
  locations_.Finish();
}

}  // namespace tarvoni::demo
