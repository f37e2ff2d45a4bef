#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/tsql/error.h"

namespace tarvoni::tsql {

enum class TokenKind {
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
  TokenKind kind = TokenKind::kEnd;
  std::string_view text;  // names and texts without their quotes where that needs no change, else see `own`
  bool own = false;       // the text stands in LexedBatch::unescaped
  bool quoted = false;    // [name] or "name": never a word of the language
  int literal = -1;       // place among LexedBatch::literals
  Position at;
};

// One literal of a batch: what a parameter of the plan is filled with.
struct LiteralToken {
  TokenKind kind = TokenKind::kInteger;
  std::string text;  // digits as written, or the text with doubled quotes made one
  Position at;
};

// The words of one batch. Tokens point into the text that was lexed, which must outlive them.
struct LexedBatch {
  std::vector<Token> tokens;  // the last one is kEnd
  std::vector<LiteralToken> literals;
  std::vector<std::string> unescaped;
  // The batch with its literals replaced by their kinds: equal shapes share a plan. A decimal keeps its
  // precision and scale, which decide the types it meets.
  std::string shape;
};

// Throws Error 105 for an unclosed quote, 113 for an unclosed comment, 102 for a character that begins
// nothing.
LexedBatch Lex(std::string_view text);

}  // namespace tarvoni::tsql
