#pragma once

#include <functional>

#include "host/demo/enterprise.h"

// The parts of the demo in the order in which they build on one another; each fills its tables and what others need
// to know of them.
namespace tarvoni::demo {

void BuildSettings(Enterprise& enterprise);
void BuildUnits(Enterprise& enterprise);
void BuildNatureCodes(Enterprise& enterprise);
void BuildCodeSets(Enterprise& enterprise);
void BuildWorkTypes(Enterprise& enterprise);
void BuildClients(Enterprise& enterprise);
void BuildPlaces(Enterprise& enterprise);
void BuildForest(Enterprise& enterprise);
void BuildWageTypes(Enterprise& enterprise);
void BuildWageScales(Enterprise& enterprise);
void BuildWorkers(Enterprise& enterprise);
void BuildTimberCodes(Enterprise& enterprise);
void BuildTariff(Enterprise& enterprise);
void BuildMachines(Enterprise& enterprise);
void BuildWorkOrders(Enterprise& enterprise);
void BuildPlans(Enterprise& enterprise);
void BuildWageOrders(Enterprise& enterprise, const std::function<void(double)>& progress);
void BuildFreeLists(Enterprise& enterprise);
void BuildJournals(Enterprise& enterprise);
void BuildPositions(Enterprise& enterprise);
void BuildMachineCosts(Enterprise& enterprise);
void BuildVouchers(Enterprise& enterprise);
void BuildStores(Enterprise& enterprise);
void BuildMachinePurchase(Enterprise& enterprise);
void BuildToldVouchers(Enterprise& enterprise);

}  // namespace tarvoni::demo
