#include "host/demo/demo.h"

#include <array>

#include "host/demo/parts.h"
#include "host/new_database.h"
#include "src/context/data/handler_scope.h"

namespace tarvoni::demo {
namespace {

constexpr std::size_t kCodeSets = 2;
constexpr double kMasterShare = 0.04;     // of the time, before the wage orders begin
constexpr double kWageOrderShare = 0.75;  // of the time, for the wage orders
constexpr std::array kMasterParts = {BuildSettings,  BuildUnits,      BuildNatureCodes, BuildCodeSets,
                                     BuildWorkTypes, BuildClients,    BuildPlaces,      BuildForest,
                                     BuildWageTypes, BuildWageScales, BuildWorkers,     BuildTimberCodes,
                                     BuildTariff,    BuildMachines,   BuildWorkOrders,  BuildPlans};
constexpr std::array kMovementParts = {BuildFreeLists,       BuildJournals,    BuildPositions,
                                       BuildMachineCosts,    BuildVouchers,    BuildStores,
                                       BuildMachinePurchase, BuildToldVouchers};

}  // namespace

void BuildDemo(Connection& connection, const DemoOptions& options) {
  const auto report = [&options](double done) {
    if (options.progress) options.progress(done);
  };
  HandlerScope all_at_once(connection);
  host::MakeTables(connection);
  Enterprise enterprise(connection, options.scale, kCodeSets);
  for (const auto& build : kMasterParts) build(enterprise);
  BuildWageOrders(enterprise, [&](double done) { report(kMasterShare + done * kWageOrderShare); });
  for (std::size_t i = 0; i < kMovementParts.size(); ++i) {
    const double share = static_cast<double>(i) / kMovementParts.size();
    report(kMasterShare + kWageOrderShare + share * (1 - kMasterShare - kWageOrderShare));
    kMovementParts[i](enterprise);
  }
  all_at_once.Finish();
  report(1);
}

}  // namespace tarvoni::demo
