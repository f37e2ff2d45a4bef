#include "platform/tsql/public/parser.h"

#include <algorithm>

#include "platform/tsql/parser_impl.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::tsql {

Batch Parse(const LexedBatch& lexed) {
  return Parser(lexed).ParseBatch();
}

Parser::Nesting::Nesting(Parser& parser) : parser_(parser), outside_(parser.deepest_) {
  if (parser.depth_ == kMaxNesting) parser.FailTooDeep();
  parser.deepest_ = ++parser.depth_;
}

Parser::Nesting::~Nesting() {
  --parser_.depth_;
  parser_.deepest_ = std::max(outside_, parser_.deepest_);
}

Parser::Link::Link(Parser& parser) : parser_(parser), left_(parser.deepest_ + 1) {
  if (left_ > kMaxHeight) parser.FailTooDeep();
  parser.deepest_ = parser.depth_;
}

Parser::Link::~Link() {
  parser_.deepest_ = std::max(left_, parser_.deepest_);
}

bool Parser::MatchName(std::string_view unreserved_word, std::ptrdiff_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::kName && !token.quoted && SameName(token.text, unreserved_word);
}

const Token& Parser::Consume() {
  const Token& token = Peek();
  if (token.kind == TokenKind::kEnd) FailUnexpected();
  ++next_;
  return token;
}

bool Parser::ConsumeIf(std::string_view reserved_word_or_symbol) {
  const bool matches = Match(reserved_word_or_symbol);
  if (matches) Consume();
  return matches;
}

const Token& Parser::Expect(std::string_view reserved_word_or_symbol) {
  if (!Match(reserved_word_or_symbol)) FailUnexpected();
  return Consume();
}

const Token& Parser::ExpectName() {
  if (!MatchKind(TokenKind::kName)) FailUnexpected();
  return Consume();
}

const Token& Parser::ExpectPinned(TokenKind kind) {
  if (!MatchKind(kind)) FailUnexpected();
  batch_.pinned.push_back(Peek().literal);
  return Consume();
}

bool Parser::ExpectOnOff() {
  if (ConsumeIf("ON")) return true;
  Expect("OFF");
  return false;
}

const Token& Parser::LastWord() const {
  return next_ == end_ && next_ != lexed_.tokens.data() ? next_[-1] : Peek();
}

// Where the text ends too early, the place is the last word there is.
void Parser::FailUnexpected() const {
  const Token& token = LastWord();
  const std::string text(token.text);
  if (MatchKind(TokenKind::kKeyword)) {
    throw Error(kSyntaxKeyword, "Incorrect syntax near the keyword '" + text + "'.", token.at);
  }
  throw Error(kSyntax, "Incorrect syntax near '" + text + "'.", token.at);
}

void Parser::FailUnsupported(const std::string& construct) const {
  throw Error(kUnsupported, construct + " is not supported.", Peek().at);
}

void Parser::FailTooDeep() const {
  throw Error(
      kTooDeep,
      "Some part of your SQL statement is nested too deeply. Rewrite the query or break it up into smaller "
      "queries.",
      Peek().at);
}

void Parser::Refuse(std::initializer_list<Foreign> words) const {
  const Token& token = Peek();
  const bool word =
      token.kind == TokenKind::kName || token.kind == TokenKind::kKeyword || token.kind == TokenKind::kSymbol;
  if (!word || token.quoted) return;
  for (const Foreign& foreign : words)
    if (SameName(token.text, foreign.word)) FailUnsupported(std::string(foreign.construct));
}

void Parser::SkipSemicolons() {
  while (ConsumeIf(";")) continue;
}

Batch Parser::ParseBatch() {
  SkipSemicolons();
  while (!MatchKind(TokenKind::kEnd)) {
    batch_.statements.push_back(ParseStatement());
    SkipSemicolons();
  }
  return std::move(batch_);
}

}  // namespace tarvoni::tsql
