#pragma once

#include <stdexcept>
#include <string>

namespace tarvoni::tsql {

// A place in the text of a batch, counted from 1; columns count characters.
struct Position {
  int line = 0;
  int column = 0;
};

// Error numbers of a T-SQL server that the front end itself raises.
enum ErrorNumber : int {
  kSyntax = 102,
  kUnclosedQuote = 105,
  kOrdinalOutOfRange = 108,
  kFewerValuesThanColumns = 109,
  kMoreValuesThanColumns = 110,
  kUnclosedComment = 113,
  kOnlyOneColumn = 116,
  kFewerSelectColumns = 120,
  kMoreSelectColumns = 121,
  kAggregateInAggregate = 130,
  kAggregateInGroupBy = 144,
  kDistinctOrder = 145,
  kAggregateInWhere = 147,
  kSyntaxKeyword = 156,
  kAggregateInSet = 157,
  kNoGroupColumn = 164,
  kFloatTooLarge = 168,
  kArgumentCount = 174,
  kTooDeep = 191,
  kUnknownFunction = 195,
  kUnionWidth = 205,
  kTypeClash = 206,
  kUnknownColumn = 207,
  kUnknownTable = 208,
  kAmbiguousColumn = 209,
  kWrongInsertWidth = 213,
  kNoImplicitConversion = 257,
  kDuplicateColumn = 264,
  kIncompatibleTypes = 402,
  kConstantOrder = 408,
  kNoCast = 529,
  kExplicitIdentity = 544,
  kIdentityMissing = 545,
  kNumberTooLong = 1007,
  kExposedNames = 1013,
  kAggregateInOn = 1015,
  kOrderInDerived = 1033,
  kTableExists = 2714,
  kDateOrder = 2741,
  kSecondIdentity = 2744,
  kUnboundIdentifier = 4104,
  kCoalesceOfNulls = 4127,
  kNoCondition = 4145,
  kNullIfOfNull = 4151,
  kIdentityWithoutList = 8101,
  kIdentityUpdate = 8102,
  kNoIdentity = 8106,
  kArgumentType = 8116,
  kOperandType = 8117,
  kNotGrouped = 8120,
  kHavingNotGrouped = 8121,
  kOuterAggregate = 8124,
  kOrderNotGrouped = 8127,
  kCaseOfNulls = 8133,
  kUnnamedColumn = 8155,
  kDuplicateDerivedColumn = 8156,
  kUnsupported = 50001,  // our own: the construct is named in the message
};

// What is wrong with a batch before anything of it runs, and where.
class Error : public std::runtime_error {
 public:
  Error(int number, const std::string& message, Position at)
      : std::runtime_error(message), number_(number), at_(at) {}
  int Number() const { return number_; }
  Position At() const { return at_; }

 private:
  int number_;
  Position at_;
};

}  // namespace tarvoni::tsql
