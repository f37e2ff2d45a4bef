#include <algorithm>
#include <string>

#include "host/demo/nature_codes.h"
#include "host/demo/parts.h"
#include "host/demo/row_writer.h"
#include "host/demo/work_type_rows.h"

namespace tarvoni::demo {
namespace {

constexpr int kSetStep = 1000;  // between the ids of the two sets

std::vector<std::string_view> Split(std::string_view list) {
  std::vector<std::string_view> parts;
  while (!list.empty()) {
    const auto end = list.find('|');
    parts.push_back(list.substr(0, end));
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
  }
  return parts;
}

ExecutionMark MarkOf(std::string_view code) {
  const auto row =
      std::find_if(kMarks.begin(), kMarks.end(), [&](const MarkRow& m) { return m.code == code; });
  return {static_cast<int>(row - kMarks.begin()) + 1, row->stand_type, row->origin, row->pruning, row->fence};
}

class WorkTypeWriter {
 public:
  WorkTypeWriter(Connection& connection, CodeSet& codes, int set)
      : connection_(connection), codes_(codes), base_(set * kSetStep) {}

  void Write() {
    WriteProducts();
    for (const WorkTypeRow& row : kWorkTypes) WriteWorkType(row);
    for (const CostTypeLink& link : kCostTypeLinks)
      Link("KOSTENART.LEISTUNGSART", codes_.CostTypeId(link.cost_type), codes_.WorkTypeOf(link.work_type).id);
    work_types_.Finish();
    methods_.Finish();
    links_.Finish();
  }

 private:
  void WriteProducts() {
    RowWriter products(connection_, "PRODUKT", "ID, NUMBER, NAME, TABLE_NAME, DISABLE",
                       RowWriter::Keys::kGiven);
    for (const ProductRow& product : kProducts) {
      codes_.products.push_back(base_ + static_cast<int>(codes_.products.size()) + 1);
      products.Add(codes_.products.back(), product.number, product.name, codes_.name, false);
    }
    products.Finish();
  }

  int ProductOf(const WorkTypeRow& row) const {
    const auto product = std::find_if(kProducts.begin(), kProducts.end(), [&](const ProductRow& p) {
      return p.number == row.number / 1000 * 10;
    });
    return codes_.products[static_cast<std::size_t>(product - kProducts.begin())];
  }

  void WriteWorkType(const WorkTypeRow& row) {
    WorkType type{.id = base_ + static_cast<int>(codes_.work_types.size()) + 1,
                  .number = row.number,
                  .product = ProductOf(row),
                  .unit = row.unit,
                  .flags = row.flags,
                  .centre_types = row.centre_types,
                  .name = row.name,
                  .methods = {},
                  .marks = {}};
    work_types_.Add(type.id, type.number, type.name, codes_.name, false, type.product, type.unit,
                    type.Has(kTimber) ? std::optional("S") : std::nullopt, type.Has(kEst), type.Has(kArea),
                    type.Has(kHours), type.Has(kMachine), type.Has(kCost), type.Has(kRevenue),
                    type.Has(kTimber), type.Has(kNatural), type.Has(kNoLines));
    WriteMethods(row, type);
    WriteLinks(row, type);
    codes_.work_types.push_back(std::move(type));
  }

  void WriteMethods(const WorkTypeRow& row, WorkType& type) {
    for (const auto name : Split(row.methods)) {
      type.methods.push_back(base_ + ++last_method_);
      methods_.Add(type.methods.back(), type.number * 10 + static_cast<int>(type.methods.size()), name,
                   codes_.name, false, type.id);
    }
  }

  void WriteLinks(const WorkTypeRow& row, WorkType& type) {
    for (int centre = 1; centre <= static_cast<int>(CentreType::kBuildings); ++centre) {
      if (type.FitsCentre(static_cast<CentreType>(centre)))
        Link("LEISTUNGSART.KOSTENSTELLE_TYP", type.id, centre);
    }
    for (const auto code : Split(row.marks)) {
      type.marks.push_back(MarkOf(code));
      Link("LEISTUNGSART.NUTZUNGSART", type.id, type.marks.back().id);
    }
  }

  void Link(std::string_view relation, int master, int slave) { links_.Add(relation, master, slave); }

  Connection& connection_;
  CodeSet& codes_;
  int base_;
  int last_method_ = 0;
  RowWriter work_types_{
      connection_, "LEISTUNGSART",
      "ID, NUMBER, NAME, TABLE_NAME, DISABLE, PRODUKT_ID, MENGENEINHEIT, HSGR, EST, FLACHE, STUNDEN, "
      "MAS, KOSTEN, ERLOSE, ALLOW_HOLZ, NV_KLR, ZL_HAB",
      RowWriter::Keys::kGiven};
  RowWriter methods_{connection_, "VERFAHREN", "ID, NUMBER, NAME, TABLE_NAME, DISABLE, ID_LEISTUNGSART",
                     RowWriter::Keys::kGiven};
  RowWriter links_{connection_, "ONETOMANY", "RELATION, ID_MASTER, ID_SLAVE"};
};

}  // namespace

void BuildWorkTypes(Enterprise& enterprise) {
  int set = 0;
  for (CodeSet& codes : enterprise.code_sets) WorkTypeWriter(enterprise.connection, codes, set++).Write();
}

}  // namespace tarvoni::demo
