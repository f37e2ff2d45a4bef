#include "host/demo/timber_writer.h"

#include <fmt/format.h>

#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kSolidInStacked = 70;    // percent of a stacked cubic metre
constexpr int kMainSpeciesShare = 70;  // percent of a list's logs

struct SizeClass {
  int below;
  std::string_view code;
};
constexpr auto kSizeClasses = std::to_array<SizeClass>({{15, "1a"},
                                                        {20, "1b"},
                                                        {25, "2a"},
                                                        {30, "2b"},
                                                        {35, "3a"},
                                                        {40, "3b"},
                                                        {50, "4"},
                                                        {60, "5"},
                                                        {999, "6"}});

std::string_view SizeClassOf(int diameter_cm) {
  for (const SizeClass& size : kSizeClasses) {
    if (diameter_cm < size.below) return size.code;
  }
  return kSizeClasses.back().code;
}

const SpeciesRow& DrawSpecies(Random& random) {
  int place = random.Between(1, 100);
  for (const SpeciesRow& species : kSpecies) {
    place -= species.share;
    if (place <= 0) return species;
  }
  return kSpecies.front();
}

const GradeRow& DrawGrade(Random& random, const SpeciesRow& species) {
  constexpr std::size_t kFirstStacked = 4;
  constexpr std::size_t kPoles = 6;
  if (species.group == "FI" && random.Chance(4)) return kGrades[kPoles];
  if (random.Chance(species.conifer ? 12 : 40)) return kGrades[kFirstStacked + (random.Chance(50) ? 1 : 0)];
  return kGrades[static_cast<std::size_t>(random.Between(0, 3))];
}

std::optional<std::string_view> MarkOrNull(std::string_view mark) {
  return mark == kNoMark ? std::nullopt : std::optional(mark);
}

}  // namespace

std::int64_t Volume(int diameter_cm, int length_cm, int pieces) {
  constexpr std::int64_t kQuarterPi = 785'398'163;  // in billionths
  constexpr std::int64_t kToHundredths = 10'000'000'000'000;
  const std::int64_t cylinder = static_cast<std::int64_t>(diameter_cm) * diameter_cm * length_cm * pieces;
  return (cylinder * kQuarterPi + kToHundredths / 2) / kToHundredths;
}

struct TimberWriter::Log {
  const SpeciesRow* species = nullptr;
  const GradeRow* grade = nullptr;
  std::string_view size_class;
  int pieces = 1;
  int length = 0;    // centimetres
  int diameter = 0;  // centimetres
  int split = 0;     // percent
};

TimberWriter::Log TimberWriter::DrawLog(const SpeciesRow& main_species) {
  Random& random = enterprise_.random;
  Log log;
  log.species = random.Chance(kMainSpeciesShare) ? &main_species : &DrawSpecies(random);
  log.grade = &DrawGrade(random, *log.species);
  switch (log.grade->kind) {
    case TimberKind::kRound:
      log.length = random.Between(6, 24) * 50;
      log.diameter = random.Between(14, 42) + (random.Chance(15) ? random.Between(0, 30) : 0);
      break;
    case TimberKind::kStacked:
      log.pieces = random.Between(20, 160);
      log.length = random.Between(2, 4) * 50;
      log.diameter = random.Between(8, 22);
      log.split = random.Chance(30) ? random.Between(1, 6) * 10 : 0;
      break;
    case TimberKind::kPole:
      log.pieces = random.Between(5, 40);
      log.length = random.Between(8, 18) * 50;
      log.diameter = random.Between(8, 13);
      break;
  }
  log.size_class =
      log.grade->kind == TimberKind::kPole ? random.Pick(kPoleClasses) : SizeClassOf(log.diameter);
  return log;
}

std::int64_t TimberWriter::WriteLog(const TimberList& list, const SpeciesRow& main_species,
                                    const std::string& name, int number) {
  const Log log = DrawLog(main_species);
  // Now and then a log bears marks that the tariff may not know.
  const bool usual = !enterprise_.random.Chance(3);
  const int known = usual ? enterprise_.tariff_marks : kMarkCombinations;
  const LogMarks marks = MarksOf(enterprise_.random.Between(0, known - 1));
  const std::int64_t volume = Volume(log.diameter, log.length, log.pieces);
  const std::int64_t stacked = (volume * 100 + kSolidInStacked / 2) / kSolidInStacked;
  logs_.Add(name, number, log.species->code, log.grade->code, log.size_class, log.pieces,
            Decimal(log.length, 2), log.diameter, Decimal(volume, 2), Decimal(stacked, 2), Decimal(volume, 2),
            kCubicMetres, log.split, "HE", list.district.place, list.service, MarkOrNull(marks.est),
            marks.bark, marks.skidding, OrNull(list.owner.position), OrNull(list.owner.work_order),
            list.client.id, false);
  return volume;
}

void TimberWriter::WriteSurcharge(const std::string& name) {
  if (enterprise_.random.Chance(25)) surcharges_.Add(name, "E", enterprise_.random.Between(1, 4) * 5);
}

WrittenList TimberWriter::Write(const TimberList& list) {
  const int id = ++enterprise_.last.list;
  WrittenList written{id, fmt::format("{}-{:02}-{:05}", list.client.number, list.year % 100, id), 0};
  const SpeciesRow& main_species = DrawSpecies(enterprise_.random);
  for (int number = 1; number <= list.logs; ++number)
    written.volume += WriteLog(list, main_species, written.name, number);
  const int surcharge = enterprise_.random.Chance(30) ? 10 : 0;
  heads_.Add(id, written.name, Decimal(written.volume, 2), list.locked, OrNull(list.owner.wage_order),
             OrNull(list.owner.work_order), surcharge, 5, 4, 3, 8, 6, 2, 2, 1, 3, 3);
  WriteSurcharge(written.name);
  return written;
}

void TimberWriter::Finish() {
  heads_.Finish();
  logs_.Finish();
  surcharges_.Finish();
}

}  // namespace tarvoni::demo
