#include "platform/tsql/public/lexer.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "platform/tsql/words.h"

namespace tarvoni::tsql {
namespace {

constexpr std::string_view kLargestInt = "2147483647";

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}
bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}
bool IsContinuation(char c) {
  return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

constexpr auto kSymbols = [] {
  std::array<bool, 256> symbols{};
  for (const char c : std::string_view("(),.;=<>+-*/%&|^~")) symbols[static_cast<unsigned char>(c)] = true;
  return symbols;
}();

bool IsSymbol(char c) {
  return kSymbols[static_cast<unsigned char>(c)];
}

// <> <= >= != !< !>
bool IsPair(char first, char second) {
  if (second == '=') return first == '<' || first == '>' || first == '!';
  if (second == '>') return first == '<' || first == '!';
  return second == '<' && first == '!';
}

std::string_view WithoutLeadingZeros(std::string_view digits) {
  digits.remove_prefix(std::min(digits.find_first_not_of('0'), digits.size()));
  return digits;
}

bool FitsInt(std::string_view digits) {
  digits = WithoutLeadingZeros(digits);
  return digits.size() < kLargestInt.size() || (digits.size() == kLargestInt.size() && digits <= kLargestInt);
}

// The beginning of a text as an error message quotes it: one line's worth, cut between characters.
std::string Excerpt(std::string_view text) {
  constexpr size_t kLongest = 60;
  size_t end = std::min(text.size(), kLongest);
  while (end > 0 && end < text.size() && IsContinuation(text[end])) --end;
  return std::string(text.substr(0, end));
}

std::string MakeSingle(std::string_view text, char quote) {
  if (text.find(quote) == std::string_view::npos) return std::string(text);
  std::string result;
  result.reserve(text.size());
  for (size_t i = 0; i < text.size(); ++i) {
    result += text[i];
    if (text[i] == quote) ++i;
  }
  return result;
}

bool HasLowerCase(std::string_view word) {
  return std::ranges::any_of(word, [](char c) { return c >= 'a' && c <= 'z'; });
}

class Lexer {
 public:
  Lexer(std::string_view text, bool with_tokens) : text_(text), with_tokens_(with_tokens) {
    if (with_tokens) batch_.tokens.reserve(text.size() / 4 + 4);
    batch_.literals.reserve(8);
    batch_.shape.reserve(text.size() + text.size() / 4);
  }

  LexedBatch Run() {
    while (SkipBlanks()) LexToken();
    AddToken(TokenKind::kEnd, {});
    return std::move(batch_);
  }

 private:
  char CharAt(size_t i) const { return i < text_.size() ? text_[i] : '\0'; }

  // Where the character at `offset` stands. Offsets must not decrease from call to call.
  Position Place(size_t offset);
  [[noreturn]] void Fail(int number, const std::string& message, size_t offset) {
    throw Error(number, message, Place(offset));
  }

  bool SkipBlanks();
  void SkipComment();
  size_t SkipDigits(size_t i) const;

  void LexToken();
  void LexText(size_t quote);
  void LexQuotedName(char closing);
  void LexWord(size_t length);
  void LexNumber();
  void LexSymbol();

  // The offset of the quote that closes the one at `open`.
  size_t FindClosing(size_t open, char closing);
  size_t FindExponentEnd(size_t e) const;

  void AddToken(TokenKind kind, std::string_view text, bool quoted = false);
  void AddLiteral(TokenKind kind, std::string_view text, std::string value);
  void AddToShape(std::string_view word);
  void AddDecimalToShape(std::string_view digits);

  std::string_view text_;
  bool with_tokens_;
  size_t offset_ = 0;
  size_t placed_ = 0;  // up to here lines and columns are counted
  Position place_{1, 1};
  LexedBatch batch_;
};

Position Lexer::Place(size_t offset) {
  Position place = place_;
  for (const char c : text_.substr(placed_, offset - placed_)) {
    if (c == '\n') {
      place = {place.line + 1, 1};
    } else if (!IsContinuation(c)) {
      ++place.column;
    }
  }
  placed_ = offset;
  return place_ = place;
}

// Goes to the next token; false at the end of the text.
bool Lexer::SkipBlanks() {
  while (offset_ < text_.size()) {
    const char c = text_[offset_];
    if (IsBlank(c)) {
      ++offset_;
    } else if (c == '-' && CharAt(offset_ + 1) == '-') {
      offset_ = std::min(text_.find('\n', offset_), text_.size());
    } else if (c == '/' && CharAt(offset_ + 1) == '*') {
      SkipComment();
    } else {
      return true;
    }
  }
  return false;
}

// Comments in /* */ nest.
void Lexer::SkipComment() {
  size_t i = offset_ + 2;
  for (int depth = 1; depth > 0; i += 2) {
    i = text_.find_first_of("/*", i);
    if (i == std::string_view::npos) Fail(kUnclosedComment, "Missing end comment mark '*/'.", offset_);
    const std::string_view mark = text_.substr(i, 2);
    if (mark == "/*") {
      ++depth;
    } else if (mark == "*/") {
      --depth;
    } else {
      --i;  // one character only
    }
  }
  offset_ = i;
}

size_t Lexer::SkipDigits(size_t i) const {
  while (IsDigit(CharAt(i))) ++i;
  return i;
}

void Lexer::LexToken() {
  const char c = text_[offset_];
  const char next = CharAt(offset_ + 1);
  if (c == '\'') {
    LexText(offset_);
  } else if ((c == 'N' || c == 'n') && next == '\'') {
    LexText(offset_ + 1);
  } else if (c == '[') {
    LexQuotedName(']');
  } else if (c == '"') {
    LexQuotedName('"');
  } else if (IsDigit(c) || (c == '.' && IsDigit(next))) {
    LexNumber();
  } else if (const size_t length = NameLength(text_.substr(offset_)); length > 0) {
    LexWord(length);
  } else {
    LexSymbol();
  }
}

size_t Lexer::FindClosing(size_t open, char closing) {
  for (size_t i = open + 1;; i += 2) {
    i = text_.find(closing, i);
    if (i == std::string_view::npos) {
      Fail(kUnclosedQuote,
           "Unclosed quotation mark after the character string '" + Excerpt(text_.substr(open + 1)) + "'.",
           open);
    }
    if (CharAt(i + 1) != closing) return i;
  }
}

void Lexer::LexText(size_t quote) {
  const size_t end = FindClosing(quote, '\'');
  const std::string_view inside = text_.substr(quote + 1, end - quote - 1);
  const bool national = quote > offset_;
  AddToShape(national ? "?n" : "?t");
  AddLiteral(TokenKind::kText, inside, MakeSingle(inside, '\''));
  batch_.literals.back().national = national;
  offset_ = end + 1;
}

void Lexer::LexQuotedName(char closing) {
  const size_t end = FindClosing(offset_, closing);
  std::string_view name = text_.substr(offset_ + 1, end - offset_ - 1);
  if (name.empty()) Fail(kSyntax, "An object or column name is missing or empty.", offset_);
  AddToShape(text_.substr(offset_, end + 1 - offset_));
  if (with_tokens_ && name.find(closing) != std::string_view::npos) {
    name = batch_.unescaped.emplace_front(MakeSingle(name, closing));
  }
  AddToken(TokenKind::kName, name, true);
  offset_ = end + 1;
}

void Lexer::LexWord(size_t length) {
  const std::string_view word = text_.substr(offset_, length);
  // The shape has a word in capitals as it stands.
  const bool matters = with_tokens_ || HasLowerCase(word);
  const std::string_view reserved = matters ? FindReservedWord(word) : std::string_view();
  const std::string_view text = reserved.empty() ? word : reserved;
  AddToShape(text);
  AddToken(reserved.empty() ? TokenKind::kName : TokenKind::kKeyword, text);
  offset_ += length;
}

// `e` is the offset of the letter; a sign and digits may follow.
size_t Lexer::FindExponentEnd(size_t e) const {
  const char sign = CharAt(e + 1);
  return SkipDigits(sign == '+' || sign == '-' ? e + 2 : e + 1);
}

void Lexer::LexNumber() {
  if (text_[offset_] == '0' && (CharAt(offset_ + 1) | 0x20) == 'x') {
    Fail(kUnsupported, "A binary literal (0x…) is not supported.", offset_);
  }
  size_t end = SkipDigits(offset_);
  const bool point = CharAt(end) == '.';
  if (point) end = SkipDigits(end + 1);
  const bool exponent = (CharAt(end) | 0x20) == 'e';
  if (exponent) end = FindExponentEnd(end);
  const std::string_view text = text_.substr(offset_, end - offset_);
  std::string value(text);
  if (exponent) {
    if (!IsDigit(text.back())) value += '0';  // 1e is 1e0
    double number = 0;
    const auto result = std::from_chars(value.data(), value.data() + value.size(), number);
    if (result.ec == std::errc::result_out_of_range && value.find('-') == std::string::npos) {
      Fail(kFloatTooLarge, "The floating point value '" + Excerpt(text) + "' is out of range.", offset_);
    }
    AddToShape("?f");
    AddLiteral(TokenKind::kFloat, text, std::move(value));
  } else if (!point && FitsInt(text)) {
    AddToShape("?i");
    AddLiteral(TokenKind::kInteger, text, std::move(value));
  } else {
    AddDecimalToShape(text);
    AddLiteral(TokenKind::kDecimal, text, std::move(value));
  }
  offset_ = end;
}

void Lexer::LexSymbol() {
  const char c = text_[offset_];
  if (c == '@') Fail(kUnsupported, "A variable (@…) is not supported.", offset_);
  const bool pair = IsPair(c, CharAt(offset_ + 1));
  if (!pair && !IsSymbol(c)) {
    const bool printable = c >= ' ' && c <= '~';
    Fail(kSyntax, std::string("Incorrect syntax near '") + (printable ? c : '?') + "'.", offset_);
  }
  const std::string_view symbol = text_.substr(offset_, pair ? 2 : 1);
  AddToShape(symbol);
  AddToken(TokenKind::kSymbol, symbol);
  offset_ += symbol.size();
}

void Lexer::AddToken(TokenKind kind, std::string_view text, bool quoted) {
  if (with_tokens_) batch_.tokens.push_back({text, Place(offset_), -1, kind, quoted});
}

void Lexer::AddLiteral(TokenKind kind, std::string_view text, std::string value) {
  AddToken(kind, text);
  if (with_tokens_) batch_.tokens.back().literal = static_cast<int>(batch_.literals.size());
  batch_.literals.push_back({kind, std::move(value)});
}

void Lexer::AddToShape(std::string_view word) {
  std::string& shape = batch_.shape;
  if (!shape.empty()) shape += ' ';
  shape += word;
}

void Lexer::AddDecimalToShape(std::string_view digits) {
  const Type type = DecimalType(digits);
  if (type.precision > Type::kMaxPrecision) {
    Fail(kNumberTooLong, "The number '" + Excerpt(digits) + "' has more than 38 digits.", offset_);
  }
  AddToShape("?d(" + std::to_string(type.precision) + ',' + std::to_string(type.scale) + ')');
}

}  // namespace

LexedBatch Lex(std::string_view text) {
  return Lexer(text, true).Run();
}

LexedBatch LexShape(std::string_view text) {
  return Lexer(text, false).Run();
}

Type DecimalType(std::string_view digits) {
  const size_t point = std::min(digits.find('.'), digits.size());
  const size_t whole = WithoutLeadingZeros(digits.substr(0, point)).size();
  const size_t scale = digits.size() - std::min(point + 1, digits.size());
  return Type::Decimal(static_cast<int>(std::max<size_t>(whole + scale, 1)), static_cast<int>(scale));
}

}  // namespace tarvoni::tsql
