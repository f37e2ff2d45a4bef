#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// Text for statements, by the rules of the statement composers and the date masks.
class ConvertHelper final : public tarvoni::ConvertHelper {
 public:
  // A text counts as the date it reads as.
  std::string DateToSql(const Value& date, const std::string& format) override;
  // `separator` parts the groups of digits. A text that is no number is a syntax error (102).
  std::string NumberToSql(const std::string& text, const std::string& separator) override;
  std::string NormalizeNumber(const std::string& text) override;
};

}  // namespace tarvoni::suite
