#pragma once

#include <cstdint>
#include <string>

#include "src/common/current_row.h"
#include "src/common/list_pair.h"

namespace tarvoni {

// A wage order as timber lists see it; ids as text, "" for none.
struct TimberOrder {
  // From the columns ARBEITSAUFTRAGID, ARBEITSAUFTRAG_KOPF_ID, ARBEITSAUFTRAGLEISTUNG and
  // ARBEITSAUFTRAGKOSTENSTELLE_ID of the row.
  TimberOrder(std::int32_t client, std::int32_t order, const CurrentRow& row);

  std::int32_t client;
  std::int32_t order;       // ARA_KOPF.ID
  std::string position;     // ARBEITSAUFTRAG.ID
  std::string header;       // ARBEITSAUFTRAG_KOPF.ID
  std::string service;      // RELTABLE.ID
  std::string cost_centre;  // KOSTENSTELLE.ID
};

// The timber lists of a wage order in two boxes: those that are free for it, and those that it has. What is moved
// between them reaches the database when it is stored.
class TimberLists {
 public:
  TimberLists(ListBox& free, ListBox& assigned) : pair_(free, assigned) {}

  ListPair& Pair() { return pair_; }
  bool HasAssigned() const { return pair_.Selected().ListCount() > 0; }

  // Fills both boxes anew.
  void Load(Connection& connection, const TimberOrder& order);
  // An error with one sentence if another order took one of the assigned lists meanwhile, or if a list bears a name with
  // a quote. Comes before the writes of a save, so that none of them is done.
  void RequireStorable(Connection& connection, const TimberOrder& order) const;
  // Releases the lists of the one box, then assigns those of the other. Only what belongs to this order is released,
  // so that lists that have always been free may stand among them.
  void Store(Connection& connection, const TimberOrder& order) const;

 private:
  ListPair pair_;
};

}  // namespace tarvoni
