#pragma once

#include <cstdint>

#include "src/context/data/sql_text.h"

// What the logs of a wage order are worth in EST piecework: T-SQL over the timber lists assigned to the order
// (LISTENKOPF), their logs (LOGS) and the tariff (TARIFTABELLE). The database works the price out; nobody stores it.
//
//   AZ = AZ of the tariff x volume x share x (1 + (surcharge A + surcharge B + special surcharge) / 100)
//
// and MZ likewise with the tariff's MZ and the machine's surcharge B. A log without a tariff row is worth 0; one that
// meets two tariff rows, or two special surcharges, stands there twice.
namespace tarvoni::est_pricing {

// The groupings in which the tariff names timber: the numbers of the columns HOLZSORTE.HSGR… and HOLZART.HAGR…, as
// the options STANDARD_HS and STANDARD_HA tell them.
struct Groupings {
  std::int32_t grade = 0;
  std::int32_t species = 0;
};

// --- the statement of a list: all logs of the order, by list and number ---

// An order without logs gives one row with an empty ID_LOG. MODIFY 1: its pay month is closed, and hours of it lie in
// a closed month.
SqlText LogsOfOrder(std::int32_t order, const Groupings& groupings);

// --- its parts, for who asks for other columns of the same logs ---

SqlText GradeGroup(const Groupings& groupings);
SqlText SpeciesGroup(const Groupings& groupings);
// The volumes of a log by the share that its tariff row counts, in solid and in stacked cubic metres; NULL stays NULL.
SqlText SolidVolume();
SqlText StackedVolume();
// What a log is worth to the worker and for the machine, not rounded; never NULL.
SqlText WorkerWage();
SqlText MachineWage();
// "FROM … WHERE …": ARA_KOPF with ARBEITSAUFTRAG, LEISTUNGSART, LISTENKOPF, LOGS, SONDERZ, WARENEINHEIT, the marks
// MEFVERF, EST and RUCKE, HOLZSORTE, HOLZART and TARIFTABELLE.
SqlText FromLogsOfOrder(std::int32_t order, const Groupings& groupings);

}  // namespace tarvoni::est_pricing
