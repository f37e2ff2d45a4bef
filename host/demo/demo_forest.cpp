#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"

namespace tarvoni::demo {
namespace {

constexpr int kForestParts = 4;  // of a district
constexpr std::array<std::string_view, 6> kSlopes = {
    "Schattseitiger Steilhang",  "Sonnseitige Mittelhanglage", "Plateau",
    "Talboden und Bacheinhänge", "Rücken und Oberhang",        "Felsdurchsetzter Einhang"};
constexpr std::array<std::string_view, 6> kPlaces = {
    "ober dem Köhlerbach",     "beim Jägersteig",       "unter der Hochleitenalm",
    "entlang der Grenzstraße", "hinter dem Steinbruch", "zwischen Ameisgraben und Kreuzweg"};
constexpr std::array<std::string_view, 6> kStands = {
    "fichtenreicher Altbestand", "Mischwald aus Fichte, Tanne und Buche",
    "Jungwuchs nach Windwurf",   "Buchenstangenholz",
    "lärchenreiches Baumholz",   "Dickung mit Weichlaubholz"};

std::string_view WithoutKind(std::string_view name) {
  return name.substr(name.find(' ') + 1);
}

// The forest as a tree: client, district, part, compartment, subcompartment, stand.
class ForestWriter {
 public:
  explicit ForestWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      client_ = client.id;
      path_[0] = WithoutKind(client.name);
      for (District& district : client.districts) WriteDistrict(district);
    }
    writer_.Finish();
  }

 private:
  void WriteDistrict(District& district) {
    path_[1] = WithoutKind(district.name);
    for (int part = 1; part <= kForestParts; ++part) {
      Enter(district, 2, fmt::format("Waldteil {}", part));
      const int compartments = enterprise_.random.Between(2, 4) + std::min(enterprise_.scale / 10, 10);
      for (int compartment = 1; compartment <= compartments; ++compartment)
        WriteCompartment(district, part * 100 + compartment);
    }
  }

  // A compartment may be divided, and each of its parts again.
  void WriteCompartment(District& district, int number) {
    Enter(district, 3, fmt::format("Abt. {}", number));
    const int parts = enterprise_.random.Between(0, 3);
    if (parts == 0) district.stands.push_back(last_id_);
    for (int part = 0; part < parts; ++part) WriteSubcompartment(district, static_cast<char>('a' + part));
  }

  void WriteSubcompartment(District& district, char letter) {
    Enter(district, 4, std::string(1, letter));
    const int stands = enterprise_.random.Between(0, 2);
    if (stands == 0) district.stands.push_back(last_id_);
    for (int stand = 1; stand <= stands; ++stand) {
      Enter(district, 5, std::to_string(stand));
      district.stands.push_back(last_id_);
    }
  }

  void Enter(District& district, std::size_t level, std::string name) {
    path_[level] = std::move(name);
    for (auto below = level + 1; below < path_.size(); ++below) path_[below].reset();
    Random& random = enterprise_.random;
    const auto slope = random.Pick(kSlopes);
    const auto place = random.Pick(kPlaces);
    const auto stand = random.Pick(kStands);
    writer_.Add(++last_id_, path_[0], path_[1], path_[2], path_[3], path_[4], path_[5],
                fmt::format("{} {}, {}", slope, place, stand), client_);
    district.locations.push_back(last_id_);
  }

  Enterprise& enterprise_;
  RowWriter writer_{enterprise_.connection, "WALDORT",
                    "ID_WALDORT, WO1, WO2, WO3, WO4, WO5, WO6, LANGNAME, MANDANTEN_ID",
                    RowWriter::Keys::kGiven};
  std::array<std::optional<std::string>, 6> path_;
  int client_ = 0;
  int last_id_ = 0;
};

}  // namespace

void BuildForest(Enterprise& enterprise) {
  ForestWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
