#include "src/context/rules/location_path.h"

#include "src/context/values/field_text.h"

namespace tarvoni {

std::string LocationPathOf(const FieldList& row, const Locale& locale) {
  std::string path = FieldText(row["WO1"].Value(), "", locale);
  for (const char* level : {"WO2", "WO3", "WO4", "WO5", "WO6"}) {
    const Value& part = row[level].Value();
    if (!IsNull(part)) path += "/ " + FieldText(part, "", locale);
  }
  return path;
}

}  // namespace tarvoni
