#include "platform/sqlite/function_layer.h"
#include "platform/sqlite/like.h"
#include "platform/sqlite/number_text.h"
#include "platform/sqlite/utf8_text.h"

namespace tarvoni::sqlite {
namespace {

std::string TextFromExact(Int128 value, int scale) {
  return Decimal(value, scale).ToString();
}

std::string TextFromMoney(Int128 value) {
  constexpr int kShownPlaces = 2;
  return TextFromExact(RescaleExact(value, tsql::Type::kMoneyScale, kShownPlaces, Decimal::kMaxDigits),
                       kShownPlaces);
}

std::size_t SizeOf(int length) {
  return static_cast<std::size_t>(length);
}

// The text with blanks up to `length` characters.
std::string Padded(std::string_view text, int length, bool fixed) {
  std::string padded(text);
  const std::size_t count = fixed ? CountCharacters(text) : SizeOf(length);
  if (count < SizeOf(length)) padded.append(SizeOf(length) - count, ' ');
  return padded;
}

std::string CastText(std::string_view text, int length, bool fixed) {
  return Padded(FirstCharacters(text, SizeOf(length)), length, fixed);
}

std::string CastWholeToText(std::int64_t value, int length, bool fixed) {
  const std::string digits = std::to_string(value);
  return Padded(digits.size() <= SizeOf(length) ? digits : "*", length, fixed);
}

std::string CastNumberToText(std::string_view number, int length, bool fixed) {
  if (number.size() > SizeOf(length)) RaiseOverflow(tsql::TypeKind::kVarChar);
  return Padded(number, length, fixed);
}

std::string StoreText(std::string_view text, int length, bool fixed) {
  const std::string_view kept = FirstCharacters(text, SizeOf(length));
  if (!WithoutTrailingBlanks(text.substr(kept.size())).empty()) Raise(kTextTooLong);
  return Padded(kept, length, fixed);
}

std::size_t RequireLength(std::int64_t count) {
  if (count < 0) Raise(kTextLength);
  return static_cast<std::size_t>(count);
}

std::string_view Left(std::string_view text, std::int64_t count) {
  return FirstCharacters(text, RequireLength(count));
}

std::string_view Right(std::string_view text, std::int64_t count) {
  return LastCharacters(text, RequireLength(count));
}

std::int64_t Length(std::string_view text) {
  return static_cast<std::int64_t>(CountCharacters(WithoutTrailingBlanks(text)));
}

std::int64_t Like(std::string_view text, std::string_view pattern) {
  return IsLike(text, pattern, TrailingBlanks::kIgnored);
}

std::int64_t LikeUnicode(std::string_view text, std::string_view pattern) {
  return IsLike(text, pattern, TrailingBlanks::kHeeded);
}

}  // namespace

void RegisterTextFunctions(sqlite3* db, FunctionContext& context) {
  Register<&TextFromExact>(db, context, "ts_text_from_exact");
  Register<&TextFromMoney>(db, context, "ts_text_from_money");
  Register<&TextFromFloat>(db, context, "ts_text_from_float");
  Register<&CastText>(db, context, "ts_text_cast");
  Register<&CastWholeToText>(db, context, "ts_int_text_cast");
  Register<&CastNumberToText>(db, context, "ts_number_text_cast");
  Register<&StoreText>(db, context, "ts_text_store");
  Register<&Left>(db, context, "ts_left");
  Register<&Right>(db, context, "ts_right");
  Register<&Length>(db, context, "ts_len");
  Register<&WithoutTrailingBlanks>(db, context, "ts_rtrim");
  Register<&WithoutLeadingBlanks>(db, context, "ts_ltrim");
  Register<&UpperCase>(db, context, "ts_upper");
  Register<&LowerCase>(db, context, "ts_lower");
  Register<&Like>(db, context, "ts_like");
  Register<&LikeUnicode>(db, context, "ts_like_unicode");
}

}  // namespace tarvoni::sqlite
