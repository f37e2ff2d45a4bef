#pragma once

#include <cstdint>
#include <forward_list>
#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/public/error.h"
#include "platform/tsql/public/type.h"

namespace tarvoni::tsql {

enum class TokenKind : std::uint8_t {
  kEnd,
  kName,     // a word that is no reserved word, or [name], or "name"
  kKeyword,  // a reserved word, in upper case in `text`
  kInteger,
  kDecimal,
  kFloat,
  kText,  // '…' and N'…'
  kSymbol,
};

struct Token {
  std::string_view text;  // without quotes; of a text as written in between (its value: LiteralToken::text)
  Position at;
  int literal = -1;  // place among LexedBatch::literals
  TokenKind kind = TokenKind::kEnd;
  bool quoted = false;  // [name] or "name": never a word of the language
};

// One literal of a batch: what a parameter of the plan is filled with.
struct LiteralToken {
  TokenKind kind = TokenKind::kInteger;
  std::string text;       // digits as written, or the text with doubled quotes made one
  bool national = false;  // N'…'
};

// The words of one batch. Tokens point into the text that was lexed, which must outlive them, and into `unescaped`.
struct LexedBatch {
  LexedBatch() = default;
  LexedBatch(LexedBatch&&) = default;
  LexedBatch& operator=(LexedBatch&&) = default;

  std::vector<Token> tokens;  // the last one is kEnd
  std::vector<LiteralToken> literals;
  std::forward_list<std::string> unescaped;  // names with a doubled quote in them
  // The batch with its literals replaced by their kinds, one blank between words, reserved words in upper case:
  // equal shapes share a plan. Names stay as they are spelled, since results bear them. A decimal keeps its
  // precision and scale, which decide the types it meets.
  std::string shape;
};

// Throws Error 105 for an unclosed quote, 113 for an unclosed comment, 102 for a character that begins nothing,
// 168 and 1007 for a number that no type can hold, kUnsupported for variables and binary literals.
LexedBatch Lex(std::string_view text);

// The same without tokens: what is needed of a batch whose shape has a plan.
LexedBatch LexShape(std::string_view text);

// The type of a kDecimal literal: "0012.50" is a decimal of 4 digits, 2 of them after the point.
Type DecimalType(std::string_view digits);

}  // namespace tarvoni::tsql
