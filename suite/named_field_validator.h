#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// The check of a typed code. In a statement of a check the first column is the row's id, the second its code; the names
// are found by their column names.
class NamedFieldValidator final : public tarvoni::NamedFieldValidator {
 public:
  // The message names the field by the label that belongs to it: "lblObjekt" to "txtObjekt" and "txtObjektN".
  bool Validate(const TvnVar_Dll& context, bool report_missing, const SqlText& sql, TextBox* code,
                TextBox* id_box, const std::string& name_column, TextBox* name_box,
                const std::string& extra) override;
  Value ReadColumn(const TvnVar_Dll& context, const SqlText& sql, const std::string& column) override;
};

}  // namespace tarvoni::suite
