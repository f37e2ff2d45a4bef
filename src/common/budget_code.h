#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "src/common/table_code.h"

namespace tarvoni {

// A code over one of the tables of the budget and of payments (HH_KAPITEL, HH_TITEL, ZUHLUNGSART, ZUHLUNGSGRUND):
// a box for the number, a companion for the name. The list also opens on a locked box.
class BudgetCode {
 public:
  // What a number may hold beside what its column can: in the payment tables digits alone.
  enum class Kind { kBudget, kPayment };

  BudgetCode(const TvnVar_Dll& context, const Guard& loading, const Label& label, TextBox& code,
             TextBox& name, std::string table, Kind kind, std::function<std::int32_t()> client);

  // Sets up the filter of the keys, the list and the check on leaving.
  void Connect();
  // Number and name of a stored code, also of one that is no longer offered; 0 is none.
  void Show(std::int32_t id);
  void Clear() { field_.Clear(); }
  std::int32_t Id() const;

 private:
  const TvnVar_Dll& context_;
  TextBox& name_;
  std::string table_;
  Kind kind_;
  std::string shown_number_;  // what Show put into the box
  std::string shown_id_;
  CodeField field_;
};

}  // namespace tarvoni
