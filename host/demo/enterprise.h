#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "host/demo/calendar.h"
#include "host/demo/random.h"
#include "src/context/data/database.h"

// What the parts of the demo know of one another: the ids of the codes and persons, and what follows from them.
namespace tarvoni::demo {

enum class CentreType { kDistrict = 1, kAdministration, kMachineYard, kHunting, kNursery, kBuildings };

struct CostCentre {
  int id = 0;
  int number = 0;
  CentreType type = CentreType::kDistrict;
};

// A forest district: its cost centre and the forest locations in it.
struct District {
  CostCentre centre;
  std::string_view name;
  int place = 0;               // RELTABLE.ID
  std::vector<int> locations;  // WALDORT.ID_WALDORT
  std::vector<int> stands;     // those of them that have none beneath
};

enum WorkFlag : unsigned {
  kEst = 1U << 0,
  kArea = 1U << 1,
  kTimber = 1U << 2,   // ALLOW_HOLZ
  kNatural = 1U << 3,  // NV_KLR
  kNoLines = 1U << 4,  // ZL_HAB
  kCost = 1U << 5,
  kRevenue = 1U << 6,
  kHours = 1U << 7,
  kMachine = 1U << 8,   // MAS
  kChainsaw = 1U << 9,  // no column: the workers book motor hours and tool money
};

struct ExecutionMark {
  int id = 0;
  bool stand_type = false, origin = false, pruning = false, fence = false;
};

struct WorkType {
  int id = 0;
  int number = 0;
  int product = 0;  // PRODUKT.ID
  int unit = 0;
  unsigned flags = 0;
  unsigned centre_types = 0;  // bits by CentreType
  std::string_view name;
  std::vector<int> methods;
  std::vector<ExecutionMark> marks;

  bool Has(unsigned flag) const { return (flags & flag) != 0; }
  bool FitsCentre(CentreType type) const { return (centre_types >> static_cast<int>(type) & 1U) != 0; }
};

struct CostType {
  int id = 0;
  int number = 0;
  bool revenue = false;
};

// A set of codes that clients share by its name in TABLE_NAME.
struct CodeSet {
  std::string_view name;
  std::vector<int> products;
  std::vector<WorkType> work_types;
  std::vector<CostType> cost_types;
  std::vector<int> chapters, titles, payment_kinds, payment_reasons;

  int CostTypeId(int number) const;
  const WorkType& WorkTypeOf(int number) const;
};

// A gang with the workers who go out together.
struct Team {
  int gang = 0;              // RELTABLE.ID
  std::vector<int> workers;  // indexes into Enterprise::workers
};

struct Machine {
  int number = 0;
  int object = 0;
};

// A work order head and what its positions need of it.
struct WorkOrder {
  int id = 0;
  int year = 0;
  int product = 0;  // PRODUKT.ID
  CostCentre centre;
  const District* district = nullptr;  // nothing for a cost centre that is none
  int positions = 0;                   // the highest ORDERS so far
};

struct Client {
  int id = 0;
  int number = 0;
  int code_set = 0;
  std::array<int, 2> orders_a_year{};  // wage orders of 2023 and 2024 at scale 1
  int forest_office = 0;
  std::string_view name;
  std::vector<CostCentre> centres;  // without the districts
  std::vector<District> districts;
  std::vector<Team> teams;
  std::vector<int> buildings;  // OBJEKT.ID
  std::vector<Machine> machines;
  std::vector<WorkOrder> work_orders;

  const CostCentre& Centre(CentreType type) const;
  // The work orders of a year for a product on a cost centre.
  std::vector<WorkOrder*> WorkOrdersFor(int year, int product, const CostCentre& centre);
};

struct DatedRate {
  DateTime from;
  std::int64_t rate = 0;  // of an amount or a factor, in ten-thousandths
};

struct Worker {
  int id = 0;
  int client = 0;                     // index into Enterprise::clients
  std::vector<DatedRate> wage_group;  // indexes into Enterprise::wage_groups
  std::vector<DatedRate> personal_factor;
};

struct WageType {
  int id = 0;
  int number = 0;
  int mode = 1;
  int factor = 0;         // DLS_LG
  int payment_shift = 0;  // months
  std::vector<DatedRate> rates;
};

// Ids of the services in RELTABLE, by what pays for them.
struct Services {
  int time_wage = 0, est = 0, piecework = 0, contractor = 0;
};

// The last id given in each table that several parts write.
struct LastIds {
  int position = 0, wage_order = 0, wage_line = 0, natural = 0, list = 0, work_order = 0, voucher = 0;
  int stores_document = 0, stores_position = 0;
};

// How many rows the code lists of the natural execution have; their ids run from 1.
struct NatureCodes {
  int stand_types = 0, states = 0, origins = 0, categories = 0;
};

struct Enterprise {
  Enterprise(Connection& to, int of_scale, std::size_t sets)
      : connection(to), scale(of_scale), code_sets(sets) {}

  Connection& connection;
  int scale;
  Random random{20240412};
  std::vector<CodeSet> code_sets;
  std::vector<Client> clients;
  std::vector<Worker> workers;
  std::vector<int> suppliers;  // PERSONAL.ID_PERSONAL
  std::vector<WageType> wage_types;
  std::vector<std::vector<DatedRate>> wage_groups;
  Services services;
  NatureCodes nature;
  std::vector<int> species;  // HOLZART.ID
  int tariff_marks = 0;      // combinations of marks that the tariff knows
  LastIds last;

  CodeSet& CodesOf(const Client& client) { return code_sets[static_cast<std::size_t>(client.code_set)]; }
  const WageType& WageTypeOf(int number) const;
};

// What holds on a day; 0 before the first.
std::int64_t RateOn(const std::vector<DatedRate>& rates, const DateTime& day);

// What an hour or unit of a wage type is worth to a worker on a day, in cents.
std::int64_t HourRate(const Enterprise& enterprise, const WageType& type, const Worker& worker,
                      const DateTime& day);

}  // namespace tarvoni::demo
