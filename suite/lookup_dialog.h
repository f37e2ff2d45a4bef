#pragma once

#include "src/context/services.h"

namespace tarvoni {

// The list of codes behind a field, and the calendar behind a date.
//
// The option tells of each leading column, one character a column, whether it is hidden: "1" hides it, "0"
// and a missing character show it. So "" and "000" show all columns, and "100" hides the id that a statement
// begins with. The result is always the statement's first column, hidden or not; what the user types to find
// a row is the first column shown.
class SuiteLookupDialog : public LookupDialog {
 public:
  std::string Pick(const TvnVar_Dll& context, const std::string& sql, const std::string& caption,
                   const std::string& start_text, const std::string& option) override;
};

}  // namespace tarvoni
