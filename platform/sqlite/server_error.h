#pragma once

#include <string>
#include <string_view>

#include "platform/tsql/public/type.h"

namespace tarvoni::sqlite {

// Numbers of the errors that conversion and arithmetic end with, as a T-SQL server gives them.
enum ServerError : int {
  kIntegerCast = 220,
  kFloatToInteger = 232,
  kMoneySyntax = 235,
  kDateSyntax = 241,
  kDateRange = 242,
  kSmallIntegerText = 244,
  kIntegerSyntax = 245,
  kIntegerText = 248,
  kSeveralRows = 512,
  kNullRefused = 515,
  kDateOverflow = 517,
  kTextLength = 536,
  kDateOrder = 2741,
  kNumberSyntax = 8114,
  kOverflow = 8115,
  kDivisionByZero = 8134,
  kTextTooLong = 8152,
};

// Throws the error with the message that needs no more than its number.
[[noreturn]] void Raise(int number);
[[noreturn]] void Raise(int number, const std::string& message);
// 8115: a value is too large for a type.
[[noreturn]] void RaiseOverflow(tsql::TypeKind kind);
// 245 or 8114: a text is no value of a type.
[[noreturn]] void RaiseSyntax(int number, std::string_view text, tsql::TypeKind kind);

}  // namespace tarvoni::sqlite
