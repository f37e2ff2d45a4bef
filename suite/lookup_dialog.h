#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The list of codes behind a field, and the calendar behind a date.
//
// The option speaks of the leading columns, a character for each: "1" hides the column if it is the row's id,
// named ID. So "" and "000" show all columns, and "100" hides the id that a list begins with, while a list
// that begins with its code shows it. The result is always the statement's first column, hidden or not; what
// the user types to find a row is the first column shown. A "2" in the third place, as in "102", shows a button for
// what the list does not hold yet; pressed, it gives kNew.
class LookupDialog final : public tarvoni::LookupDialog {
 public:
  std::string Pick(const TvnVar_Dll& context, const SqlText& sql, const std::string& caption,
                   const std::string& start_text, const std::string& option) override;
};

}  // namespace tarvoni::suite
