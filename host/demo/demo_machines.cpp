#include <fmt/format.h>

#include <array>
#include <string_view>

#include "host/demo/parts.h"
#include "host/demo/position_writer.h"
#include "host/demo/row_writer.h"
#include "host/demo/well_known.h"

namespace tarvoni::demo {
namespace {

constexpr int kFirstObject = 1001;  // OBJEKT.ID of the machines

struct MachineRow {
  std::size_t client;
  int number;
  std::string_view name;
  int bought, years;
  std::string_view chassis, plate;
};
constexpr auto kMachines = std::to_array<MachineRow>(
    {{0, 501, "Forstspezialschlepper mit Doppeltrommelwinde", 2017, 10, "FSS17004711", "LN 117 KW"},
     {0, 502, "Mobilseilkran, 800 m", 2014, 15, "MSK14000233", "LN 204 KW"},
     {0, 503, "Radbagger 9 t", 2019, 12, "RBG19008150", "LN 330 KW"},
     {0, 504, "Geländewagen Revierdienst", 2021, 8, "GLW21093377", "LN 415 KW"},
     {0, 505, "Kipper 3-Achs", 2012, 15, "KIP12001904", "LN 88 KW"},
     {1, 601, "Traktor 90 PS mit Rückeanhänger", 2018, 10, "TRK18020618", "GM 61 AF"},
     {1, 602, "Geländewagen Betriebsleitung", 2022, 8, "GLW22010042", "GM 77 AF"},
     {2, 701, "Klosterschlepper mit Seilwinde", 2010, 15, "KLS10000077", "ZT 12 MW"}});
// It has no cost object yet, so nothing is booked on it.
constexpr MachineRow kWithoutObject = {0, 506, "Rückeanhänger 8 t", 2024, 12, "RAH24000318", ""};

struct LabelRow {
  std::string_view label;
  int cost_type;
};
constexpr auto kLabels = std::to_array<LabelRow>({{"ANS", kMachinePurchase},
                                                  {"EIG", kOwnWorkshop},
                                                  {"ABS", kMachineDepreciation},
                                                  {"UNT", kForeignRepairs},
                                                  {"UNT", kSpareParts},
                                                  {"VK", kFuel},
                                                  {"OI", kLubricants},
                                                  {"STE", kVehicleTax},
                                                  {"STE", kInsurance},
                                                  {"EIG", kSpareParts}});  // counts here and under UNT

void WriteLabels(Enterprise& enterprise) {
  RowWriter writer(enterprise.connection, "MASCHINE_STAMM", "LABEL, KOSTENART_ID");
  for (const LabelRow& row : kLabels)
    writer.Add(row.label, enterprise.code_sets[0].CostTypeId(row.cost_type));
  writer.Finish();
}

// What a machine costs in one month: some every month, the rest now and then.
class MachineCostWriter {
 public:
  explicit MachineCostWriter(Enterprise& enterprise) : enterprise_(enterprise) {}

  void Write() {
    for (const Month& month : MonthsBetween(MonthOf(kFirstDay), AddMonths(MonthOf(kToday), -1))) {
      for (Client& client : enterprise_.clients)
        for (const Machine& machine : client.machines) WriteMonth(client, machine, month);
    }
    positions_.Finish();
  }

 private:
  void WriteMonth(Client& client, const Machine& machine, const Month& month) {
    Random& random = enterprise_.random;
    WriteCost(client, machine, month, kFuel, random.Between(80, 600), 152);
    if (random.Chance(40)) WriteCost(client, machine, month, kLubricants, random.Between(2, 20), 620);
    if (random.Chance(30)) WriteCost(client, machine, month, kOwnWorkshop, random.Between(2, 24), 5'400);
    if (random.Chance(15))
      WriteCost(client, machine, month, kForeignRepairs, 1, random.Between(15'000, 320'000));
    const int parts = random.Between(1, 4);
    if (random.Chance(20))
      WriteCost(client, machine, month, kSpareParts, parts, random.Between(3'000, 40'000));
    if (month.month == 1) WriteYear(client, machine, month);
  }

  void WriteYear(Client& client, const Machine& machine, const Month& month) {
    Random& random = enterprise_.random;
    WriteCost(client, machine, month, kMachineDepreciation, 1, random.Between(300'000, 1'900'000));
    WriteCost(client, machine, month, kInsurance, 1, random.Between(40'000, 210'000));
    WriteCost(client, machine, month, kVehicleTax, 1, random.Between(9'000, 60'000));
  }

  // `price` in cents.
  void WriteCost(Client& client, const Machine& machine, const Month& month, int cost_type, int quantity,
                 int price) {
    const CodeSet& codes = enterprise_.CodesOf(client);
    const WorkType& type = codes.WorkTypeOf(cost_type == kOwnWorkshop ? kWorkshopWork : kMachineRunning);
    WorkOrder& order =
        *client.WorkOrdersFor(month.year, type.product, client.Centre(CentreType::kMachineYard)).front();
    const CostType cost{codes.CostTypeId(cost_type), cost_type, false};
    Position position(order, type, cost, {month.year, month.month, 25});
    position.object = machine.object;
    position.quantity = std::int64_t{quantity} * 100;
    position.unit_price = price;
    position.amount = static_cast<std::int64_t>(quantity) * price;
    if (cost_type == kFuel) position.machine_hours = quantity;
    positions_.Write(position);
  }

  Enterprise& enterprise_;
  PositionWriter positions_{enterprise_};
};

}  // namespace

void BuildMachines(Enterprise& enterprise) {
  WriteLabels(enterprise);
  RowWriter objects(enterprise.connection, "OBJEKT", "ID, NUMBER, NAME, TABLE_NAME, DISABLE",
                    RowWriter::Keys::kGiven);
  RowWriter book(enterprise.connection, "MASCHINENBUCH",
                 "NUMMER, BEZEICHNUNG, ANSCHAFF_JAHR, NUTZUNGSDAUER, FAHRGEST_NUM, POLIZ_KENNZ, OBJEKT_ID");
  int object = kFirstObject;
  for (const MachineRow& row : kMachines) {
    Client& client = enterprise.clients[row.client];
    client.machines.push_back({row.number, object});
    objects.Add(object, row.number, row.name, fmt::format("OBJ {}", client.number), false);
    book.Add(row.number, row.name, row.bought, row.years, row.chassis, row.plate, object++);
  }
  const MachineRow& row = kWithoutObject;
  book.Add(row.number, row.name, row.bought, row.years, row.chassis, row.plate, OrNull(0));
  objects.Finish();
  book.Finish();
}

void BuildMachineCosts(Enterprise& enterprise) {
  MachineCostWriter(enterprise).Write();
}

// What the first machine cost, on the cost type of the group ANS; behind all that is drawn by lot.
void BuildMachinePurchase(Enterprise& enterprise) {
  Client& client = enterprise.clients.front();
  const CodeSet& codes = enterprise.CodesOf(client);
  const WorkType& type = codes.WorkTypeOf(kMachineRunning);
  WorkOrder& order =
      *client.WorkOrdersFor(kFirstDay.year, type.product, client.Centre(CentreType::kMachineYard)).front();
  const CostType cost{codes.CostTypeId(kMachinePurchase), kMachinePurchase, false};
  Position position(order, type, cost, {kFirstDay.year, 1, 25});
  position.object = client.machines.front().object;
  position.quantity = 100;
  position.unit_price = position.amount = 18'600'000;
  PositionWriter positions(enterprise);
  positions.Write(position);
  positions.Finish();
}

}  // namespace tarvoni::demo
