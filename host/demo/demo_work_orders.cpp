#include <fmt/format.h>

#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"
#include "host/demo/work_type_rows.h"

namespace tarvoni::demo {
namespace {

constexpr std::array kYears = {2023, 2024};
constexpr int kGroupsOfClient = 100;  // the ids of PA_GRUPPE begin with the client

// Which products have work orders on which cost centres.
struct ProductPlace {
  int product;  // number
  CentreType centre;
};
constexpr auto kProductPlaces =
    std::to_array<ProductPlace>({{kHarvest, CentreType::kDistrict},
                                 {kSilviculture, CentreType::kDistrict},
                                 {30, CentreType::kDistrict},
                                 {40, CentreType::kDistrict},
                                 {50, CentreType::kHunting},
                                 {60, CentreType::kNursery},
                                 {70, CentreType::kDistrict},
                                 {kMachineOperation, CentreType::kMachineYard},
                                 {kAdministrationProduct, CentreType::kAdministration}});
constexpr std::array<std::string_view, 3> kCentralGroups = {"Lehrlingsausbildung", "Betriebsrat",
                                                            "Waldpädagogik"};
constexpr int kFirstCentralNumber = 7001;

std::size_t ProductIndex(int number) {
  std::size_t index = 0;
  while (kProducts[index].number != number) ++index;
  return index;
}

// Groups by product, some whose number is the number of their work orders, and others that have no orders yet.
void WriteGroups(Enterprise& enterprise) {
  RowWriter writer(
      enterprise.connection, "PA_GRUPPE",
      "ID, BEZEICHNUNG, FWJ, ID_PERSONAL, ID_PRODUKT, ID_T_PA_KATEGORIE, PA_NUMMER, BESCHREIBUNG, STANDART",
      RowWriter::Keys::kGiven);
  for (const Client& client : enterprise.clients) {
    int id = client.id * kGroupsOfClient;
    const auto& products = enterprise.CodesOf(client).products;
    for (std::size_t i = 0; i < kProducts.size(); ++i)
      writer.Add(++id, kProducts[i].name.substr(0, kProducts[i].name.find(' ')), "2023", client.id,
                 products[i], kOwnWorkCategory, Null{}, fmt::format("Alle Aufträge: {}", kProducts[i].name),
                 i == 0);
    int number = kFirstCentralNumber;
    for (const auto name : kCentralGroups)
      writer.Add(++id, name, "2023", client.id, products.back(), kCentralCategory, number++, Null{}, false);
    writer.Add(++id, "Firmeneinsatz", "2024", client.id, Null{}, kContractorCategory, Null{},
               "Vergaben an Unternehmer, Produkt je Auftrag", false);
  }
  writer.Finish();
}

class WorkOrderWriter {
 public:
  explicit WorkOrderWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  void Write() {
    for (Client& client : enterprise_.clients) {
      for (const int year : kYears) {
        for (const District& district : client.districts)
          WriteCentre(client, year, district.centre, &district);
        for (const CentreType type : {CentreType::kHunting, CentreType::kNursery, CentreType::kMachineYard,
                                      CentreType::kAdministration})
          WriteCentre(client, year, client.Centre(type), nullptr);
      }
    }
    for (const Client& client : enterprise_.clients) WriteCentralOrders(client);
    writer_.Finish();
  }

 private:
  // The numbers run on one cost centre and year, over all products.
  void WriteCentre(Client& client, int year, const CostCentre& centre, const District* district) {
    int number = 0;
    for (const ProductPlace& place : kProductPlaces) {
      if (place.centre != centre.type) continue;
      const int orders = 1 + enterprise_.scale / 25;
      for (int i = 0; i < orders; ++i) WriteOrder(client, year, centre, district, place.product, ++number);
    }
  }

  void WriteOrder(Client& client, int year, const CostCentre& centre, const District* district,
                  int product_number, int number) {
    const auto product = ProductIndex(product_number);
    const int product_id = enterprise_.CodesOf(client).products[product];
    Random& random = enterprise_.random;
    const auto fwj = std::to_string(year);
    const DateTime day{year, 1, random.Between(2, 26)};
    const int feature = random.Chance(80) ? 1 : random.Between(2, 6);
    const bool closed = random.Chance(year == kToday.year ? 5 : 80);
    const int id = ++enterprise_.last.work_order;
    writer_.Add(id, fmt::format("{}{}{}{:04}", client.number, fwj, centre.number, number), client.id, fwj,
                std::to_string(centre.number), number, feature, product_id,
                client.id * kGroupsOfClient + static_cast<int>(product) + 1, day,
                fmt::format("{} {}", kProducts[product].name, fwj), client.forest_office, fwj, closed);
    client.work_orders.push_back({id, year, product_id, centre, district, 0});
  }

  // The first central group gives its number to an order of each year; nothing is booked on them yet.
  void WriteCentralOrders(const Client& client) {
    const CostCentre& centre = client.Centre(CentreType::kAdministration);
    for (const int year : kYears) {
      const auto fwj = std::to_string(year);
      writer_.Add(++enterprise_.last.work_order,
                  fmt::format("{}{}{}{}", client.number, fwj, centre.number, kFirstCentralNumber), client.id,
                  fwj, std::to_string(centre.number), kFirstCentralNumber, 1,
                  enterprise_.CodesOf(client).products.back(),
                  client.id * kGroupsOfClient + static_cast<int>(kProducts.size()) + 1, DateTime{year, 1, 2},
                  fmt::format("{} {}", kCentralGroups.front(), fwj), client.forest_office, fwj, false);
    }
  }

  Enterprise& enterprise_;
  RowWriter writer_{
      enterprise_.connection, "ARBEITSAUFTRAG_KOPF",
      "ID, NAME, PERSONAL_ID, NAME_FWJ, NAME_REVIER, NAME_NUMMER, ID_SONDERMERKMAL, PRODUKT_ID, "
      "ID_PA_GRUPPE, DATUM, BESCHREIBUNG, FORSTAMT, FWJ, ABGENSCHLOSEN",
      RowWriter::Keys::kGiven};
};

}  // namespace

void BuildWorkOrders(Enterprise& enterprise) {
  WriteGroups(enterprise);
  WorkOrderWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
