#include "platform/sqlite/server_error.h"

#include "src/context/data/database_error.h"

namespace tarvoni::sqlite {
namespace {

std::string MessageOf(int number) {
  switch (number) {
    case kMoneySyntax:
      return "Cannot convert a char value to money. The char value has incorrect syntax.";
    case kDateSyntax:
      return "Conversion failed when converting date and/or time from character string.";
    case kDateRange:
      return "The conversion of a nvarchar data type to a datetime data type resulted in an out-of-range "
             "value.";
    case kSeveralRows:
      return "Subquery returned more than 1 value. This is not permitted when the subquery is used as an "
             "expression.";
    case kNullRefused:
      return "Cannot insert the value NULL into a column that does not allow nulls.";
    case kDateOverflow:
      return "Adding a value to a 'datetime' column caused an overflow.";
    case kTextLength:
      return "Invalid length parameter passed to the LEFT or RIGHT function.";
    case kDivisionByZero:
      return "Divide by zero error encountered.";
    case kTextTooLong:
      return "String or binary data would be truncated.";
    default:
      return "Error " + std::to_string(number) + ".";
  }
}

}  // namespace

void Raise(int number) {
  Raise(number, MessageOf(number));
}

void Raise(int number, const std::string& message) {
  throw DatabaseError(number, message);
}

void RaiseOverflow(tsql::TypeKind kind) {
  Raise(kOverflow,
        "Arithmetic overflow error converting expression to data type " + std::string(NameOf(kind)) + ".");
}

void RaiseSyntax(int number, std::string_view text, tsql::TypeKind kind) {
  Raise(number, "Conversion failed when converting the nvarchar value '" + std::string(text) +
                    "' to data type " + std::string(NameOf(kind)) + ".");
}

}  // namespace tarvoni::sqlite
