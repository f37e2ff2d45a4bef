#pragma once

#include "src/context/services/services.h"

namespace tarvoni::suite {

// Values and typed keys by the rules of the current locale. The flags of ToText change nothing: every caller
// wants the value as a field shows it.
//
// The key filters look at the text as it will be once the key has replaced the selection. They let control
// characters through and refuse what the text could not be typed on from: a second separator, a minus behind
// the first place, a digit too many. The other locale's separator is refused, not translated.
class ValueHelper final : public tarvoni::ValueHelper {
 public:
  std::string ToText(const Value& value, bool flag_a, bool flag_b) override;
  std::int16_t ToInteger(const Value& value) override;
  double ToNumber(const Value& value) override;
  std::string ToTextPlain(const Value& value) override;
  std::string FieldText(const std::string& column, const Recordset& rows) override;
  std::string LookupColumn(const TvnVar_Dll& context, const std::string& column, const std::string& table,
                           const SqlText& condition) override;
  double LookupColumnNumber(const TvnVar_Dll& context, const std::string& column, const std::string& table,
                            const SqlText& condition) override;
  // Reads no row. The statement must be fit to stand in brackets: no ORDER BY.
  int ColumnSize(const SqlText& sql, const std::string& column, const TvnVar_Dll& context) override;
  int FilterKeyOptions(int& key, bool allow_decimal, TextBox& box, bool allow_minus) override;
  // A number is shown by the format, and one never typed to its end ("-", ",") goes; any other text stays for
  // the user to mend.
  void FormatOnLeave(TextBox& box, const std::string& format) override;
  void FilterKeyFormat(int& key, TextBox& box, const std::string& format) override;
  // Digits, points or the keypad's commas, and the hyphens of the form year-month-day.
  int FilterDateKey(int key, TextBox& box) override;
};

}  // namespace tarvoni::suite
