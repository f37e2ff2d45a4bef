#include "suite/value_helper.h"

#include "src/context/data/statement.h"
#include "src/context/services/environment.h"
#include "src/context/services/told_on_leaving.h"
#include "src/context/values/field_text.h"
#include "src/context/values/number_text.h"
#include "src/context/values/utf8.h"
#include "suite/reading.h"

namespace tarvoni::suite {
namespace {

constexpr int kFirstPrintable = 32;
constexpr NumberMask kAnySize{
    .whole = Decimal::kMaxDigits / 2, .places = Decimal::kMaxDigits / 2, .minus = true};

std::string TextWithKey(const TextBox& box, int key) {
  std::string text(utf8::Substring(box.Text(), 0, box.SelStart()));
  utf8::Append(text, static_cast<char32_t>(key));
  return text.append(utf8::Substring(box.Text(), box.SelStart() + box.SelLength()));
}

void FilterNumberKey(int& key, const TextBox& box, const NumberMask& mask) {
  if (key >= kFirstPrintable && !mask.Admits(TextWithKey(box, key), CurrentLocale())) key = 0;
}

Value FirstValue(const TvnVar_Dll& context, const std::string& column, const std::string& table,
                 const SqlText& condition) {
  const Recordset rows = DatabaseOf(context).Open(
      Compose("SELECT TOP 1 {} FROM {} WHERE {}", Name(column), Name(table), condition));
  return rows.EndOfFile() ? Value(Null{}) : rows.Fields()[0].Value();
}

}  // namespace

std::string ValueHelper::ToText(const Value& value, bool, bool) {
  return ToTextPlain(value);
}

std::int16_t ValueHelper::ToInteger(const Value& value) {
  return ToInt16(ToNumber(value));
}

double ValueHelper::ToNumber(const Value& value) {
  const auto number = NumberOf(value, CurrentLocale());
  return number ? number->ToDouble() : 0;
}

std::string ValueHelper::ToTextPlain(const Value& value) {
  return tarvoni::FieldText(value, "", CurrentLocale());
}

std::string ValueHelper::FieldText(const std::string& column, const Recordset& rows) {
  return ToTextPlain(rows.Fields()[column].Value());
}

std::string ValueHelper::LookupColumn(const TvnVar_Dll& context, const std::string& column,
                                      const std::string& table, const SqlText& condition) {
  return ToTextPlain(FirstValue(context, column, table, condition));
}

double ValueHelper::LookupColumnNumber(const TvnVar_Dll& context, const std::string& column,
                                       const std::string& table, const SqlText& condition) {
  return ToNumber(FirstValue(context, column, table, condition));
}

int ValueHelper::ColumnSize(const SqlText& sql, const std::string& column, const TvnVar_Dll& context) {
  const Recordset rows =
      DatabaseOf(context).Open(Compose("SELECT TOP 0 {} FROM ({}) ASKED", Name(column), sql));
  return rows.Fields()[0].DefinedSize();
}

int ValueHelper::FilterKeyOptions(int& key, bool allow_decimal, TextBox& box, bool allow_minus) {
  NumberMask mask = kAnySize;
  if (!allow_decimal) mask.places = 0;
  mask.minus = allow_minus;
  FilterNumberKey(key, box, mask);
  return key;
}

void ValueHelper::FormatOnLeave(TextBox& box, const std::string& format) {
  const Locale& locale = CurrentLocale();
  if (const auto number = ParseNumber(box.Text(), locale)) {
    const std::string shown = FormatNumber(*number, format, locale);
    if (box.HasFocus() && ParseNumber(shown, locale) != number)
      TellOnLeaving(box, box.Text() + " wurde auf " + shown + " gerundet.");
    box.SetText(shown);
  } else if (kAnySize.Admits(utf8::Trim(box.Text()), locale)) {
    box.SetText("");
  }
}

void ValueHelper::FilterKeyFormat(int& key, TextBox& box, const std::string& format) {
  FilterNumberKey(key, box, NumberMask::Of(format));
}

// What parts a date in other places becomes the point that parts it here: left out, it would leave another date.
int ValueHelper::FilterDateKey(int key, TextBox& box) {
  if (key == '/' || key == ' ') {
    const std::string before = std::string(utf8::Substring(box.Text(), 0, box.SelStart()));
    return before.empty() || before.ends_with('.') ? 0 : '.';
  }
  const bool admitted =
      key < kFirstPrintable || (key >= '0' && key <= '9') || key == '.' || key == ',' || key == '-';
  return admitted ? key : 0;
}

}  // namespace tarvoni::suite
