#include <fmt/format.h>

#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

class PlanWriter {
 public:
  explicit PlanWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  void Write() {
    for (const Client& client : enterprise_.clients) {
      const int plans = 4 + enterprise_.scale;
      for (int number = 1; number <= plans; ++number) WritePlan(client, number);
    }
    heads_.Finish();
    positions_.Finish();
  }

 private:
  void WritePlan(const Client& client, int number) {
    Random& random = enterprise_.random;
    const WorkType& type = DrawWorkType(client);
    const District& district = random.Pick(client.districts);
    const int id = ++last_id_;
    heads_.Add(id, fmt::format("P24-{:03}", number), client.id, type.product, DateTime{2023, 11, 15},
               fmt::format("{} {}", type.name, district.name), client.forest_office, "2024",
               fmt::format("Planung 2024: {} im {}", type.name, district.name));
    const int area = random.Between(5, 60);  // tenths of a hectare
    const int quantity = random.Between(20, 900);
    const int unit_cost = random.Between(150, 4800);  // cents
    const bool by_quantity = !type.Has(kArea);
    const int total = by_quantity ? quantity * unit_cost : area * unit_cost / 10;
    const int location = random.Pick(district.locations);
    const int method = random.Pick(type.methods);
    positions_.Add(id, DateTime{2023, 11, 15}, district.centre.id, type.id, method,
                   enterprise_.CodesOf(client).CostTypeId(kWages), 1, location, Decimal(area, 1), quantity,
                   by_quantity, type.unit, Decimal(unit_cost, 2), Decimal(total, 2), true);
  }

  const WorkType& DrawWorkType(const Client& client) {
    while (true) {
      const WorkType& type = enterprise_.random.Pick(enterprise_.CodesOf(client).work_types);
      if (type.FitsCentre(CentreType::kDistrict) && type.Has(kCost) && type.Has(kHours)) return type;
    }
  }

  Enterprise& enterprise_;
  int last_id_ = 0;
  RowWriter heads_{enterprise_.connection, "ARBEITSAUFTRAG_KOPF_PLANN",
                   "ID, NAME, PERSONAL_ID, PRODUKT_ID, DATUM, BESCHREIBUNG, FORSTAMT, FWJ, PLANUNG_LANG",
                   RowWriter::Keys::kGiven};
  RowWriter positions_{enterprise_.connection, "ARBEITSAUFTRAG_PLANN",
                       "AA_PLANN_ID, DATUM_NR, KOSTENSTELLE_ID, LEISTUNGSART_ID, VERFAHREN_ID, KOSTENART_ID, "
                       "SONDERMERKMAL_ID, WO_ID, FLAECHE, MENGE, PRO_MENGE, EINH_ID, KOSTEN, GESAMT, EURO"};
};

}  // namespace

void BuildPlans(Enterprise& enterprise) {
  PlanWriter(enterprise).Write();
}

}  // namespace tarvoni::demo
