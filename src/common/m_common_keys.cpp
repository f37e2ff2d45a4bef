#include <map>
#include <tuple>

#include "src/common/m_common.h"
#include "src/common/query.h"
#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/services/services.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/call_error.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"

namespace tarvoni {
namespace {

constexpr int kFirstPrintable = 32;

std::string ActiveText() {
  const Form* form = CurrentToolkit().TopForm();
  const Control* active = form ? form->ActiveControl() : nullptr;
  if (const auto* box = dynamic_cast<const TextBox*>(active)) return box->Text();
  if (const auto* combo = dynamic_cast<const ComboBox*>(active)) return combo->Text();
  return {};
}

// Asked without a row, and once for each column of a database, as every key needs it.
FieldType ColumnType(Connection& conn, const std::string& table, const std::string& column) {
  static thread_local std::map<std::tuple<std::string, std::string, std::string>, FieldType> known;
  const auto key = std::tuple(conn.ConnectionString(), table, column);
  const auto found = known.find(key);
  if (found != known.end()) return found->second;
  const Recordset rows = conn.Open(Compose("SELECT TOP 0 {} FROM {}", Name(column), Name(table)));
  return known[key] = rows.Fields()[0].Type();
}

void RequireByte(std::int32_t number) {
  if (number < 0 || number > 255) throw OverflowError("Überlauf: Die Zahl ist zu groß.");
}

// Throws what the conversion to the column's type would.
void RequireConvertible(const std::string& text, FieldType type) {
  const Locale& locale = CurrentLocale();
  switch (type) {
    case FieldType::kSmallInt:
      ToInt16(text, locale);
      return;
    case FieldType::kUnsignedTinyInt:
      return RequireByte(ToInt32(text, locale));
    case FieldType::kInteger:
    case FieldType::kBoolean:
      ToInt32(text, locale);
      return;
    case FieldType::kSingle:
    case FieldType::kDouble:
    case FieldType::kNumeric:
      if (!IsNumeric(text, locale)) throw CallError("\"" + text + "\" ist keine Zahl.");
      return;
    default:
      return;
  }
}

}  // namespace

int TypedKeyFilter(int keyAscii, const std::string& table, const std::string& column, const TvnVar_Dll& ctx) {
  if (keyAscii < kFirstPrintable) return keyAscii;
  std::string text = CurrentSuite().Convert().NormalizeNumber(ActiveText());
  utf8::Append(text, static_cast<char32_t>(keyAscii));
  if (text == "-") return keyAscii;
  const FieldType type = ColumnType(DbOf(ctx), table, column);
  try {
    RequireConvertible(text, type);
    return keyAscii;
  } catch (const CallError&) {
    AppMsgBox(CurrentSuite().Messages().GetMessage(199, ctx), 16);
    return 0;
  }
}

int NumericKeyFilter(int keyAscii, bool allowDecimal, std::string_view text) {
  const char separator = CurrentLocale().decimal_separator;
  if ((keyAscii >= '0' && keyAscii <= '9') || keyAscii == kKeyBackspace || keyAscii == kKeyEnter)
    return keyAscii;
  const bool first_separator = keyAscii == separator && text.find(separator) == std::string_view::npos;
  return allowDecimal && first_separator ? keyAscii : 0;
}

int DateKeyFilter(int keyAscii, TextBox& box) {
  return CurrentSuite().Values().FilterDateKey(keyAscii, box);
}

void FormatKeyFilter(int& keyAscii, TextBox& box, const std::string& format) {
  CurrentSuite().Values().FilterKeyFormat(keyAscii, box, format);
}

void FormatNumberBox(TextBox& box, const std::string& format) {
  CurrentSuite().Values().FormatOnLeave(box, format);
}

int KeyFilterOptions(int& keyAscii, bool allowDecimal, TextBox& box, bool allowMinus) {
  return CurrentSuite().Values().FilterKeyOptions(keyAscii, allowDecimal, box, allowMinus);
}

}  // namespace tarvoni
