#include <algorithm>
#include <array>

#include "platform/tsql/convert.h"
#include "platform/tsql/expression_binder.h"
#include "platform/tsql/type_rules.h"

namespace tarvoni::tsql {
namespace {

constexpr int kAnyCount = 99;

struct FunctionRow {
  std::string_view name;
  Function function;
  size_t fewest;
  size_t most;
};

constexpr std::array kFunctions{
    FunctionRow{"ISNULL", Function::kIsNull, 2, 2},
    FunctionRow{"COALESCE", Function::kCoalesce, 2, kAnyCount},
    FunctionRow{"NULLIF", Function::kNullIf, 2, 2},
    FunctionRow{"ROUND", Function::kRound, 2, 2},
    FunctionRow{"ABS", Function::kAbs, 1, 1},
    FunctionRow{"ISNUMERIC", Function::kIsNumeric, 1, 1},
    FunctionRow{"IDENT_CURRENT", Function::kIdentCurrent, 1, 1},
    FunctionRow{"RIGHT", Function::kRight, 2, 2},
    FunctionRow{"LEFT", Function::kLeft, 2, 2},
    FunctionRow{"LEN", Function::kLen, 1, 1},
    FunctionRow{"RTRIM", Function::kRtrim, 1, 1},
    FunctionRow{"LTRIM", Function::kLtrim, 1, 1},
    FunctionRow{"UPPER", Function::kUpper, 1, 1},
    FunctionRow{"LOWER", Function::kLower, 1, 1},
    FunctionRow{"YEAR", Function::kYear, 1, 1},
    FunctionRow{"MONTH", Function::kMonth, 1, 1},
    FunctionRow{"DAY", Function::kDay, 1, 1},
};

Type AnsiText() {
  Type type = Type::VarChar(Type::kMaxLength);
  type.ansi = true;
  return type;
}

double YearLimit(Function part) {
  constexpr double kLastYear = 9999;
  return part == Function::kYear ? kLastYear : part == Function::kMonth ? 12 : 31;
}

}  // namespace

void RequireCount(const Call& call, size_t fewest, size_t most, Position at) {
  const size_t count = call.arguments.size();
  if (count >= fewest && count <= most) return;
  throw Error(kArgumentCount,
              "The " + call.function + " function requires " + std::to_string(fewest) + " argument(s).", at);
}

BoundPtr ExpressionBinder::BindNode(const Call& call, Position at) {
  if (SameName(call.function, "GETDATE")) {
    RequireCount(call, 0, 0, at);
    return MakeValue(at, Type::DateTime(), 0, BoundNow{});
  }
  if (const auto aggregate = AggregateNamed(call.function)) return BindAggregate(*aggregate, call, at);
  for (const FunctionRow& row : kFunctions) {
    if (!SameName(row.name, call.function)) continue;
    RequireCount(call, row.fewest, row.most, at);
    return BindFunction(row.function, call, at);
  }
  throw Error(kUnknownFunction, "'" + call.function + "' is not a recognized built-in function name.", at);
}

BoundPtr ExpressionBinder::BindFunction(Function function, const Call& call, Position at) {
  switch (function) {
    case Function::kIsNull:
      return BindIsNullFunction(call, at);
    case Function::kCoalesce:
      return BindCoalesce(call, at);
    case Function::kNullIf:
      return BindNullIf(call, at);
    case Function::kRound:
    case Function::kAbs:
      return BindRounding(function, call, at);
    default:
      break;
  }
  BoundCall bound{function, {}};
  bound.arguments.reserve(call.arguments.size());
  for (const ExpressionPtr& argument : call.arguments) bound.arguments.push_back(Value(*argument));
  BoundPtr& first = bound.arguments.front();
  const auto as = [&](size_t argument, const Type& type) {
    bound.arguments[argument] = ConvertTo(std::move(bound.arguments[argument]), type);
  };
  const auto text = [&] {
    if (!first->type.IsText()) as(0, AnsiText());
    Type type = first->type;
    type.kind = TypeKind::kVarChar;
    return type;
  };
  switch (function) {
    case Function::kIsNumeric:
      return MakeValue(at, Type::Int(), 1, std::move(bound));
    case Function::kIdentCurrent:
      text();
      return MakeValue(at, Type::Decimal(Type::kMaxPrecision, 0), LimitOf(Type::BigInt()), std::move(bound));
    case Function::kRight:
    case Function::kLeft: {
      const Type type = text();
      as(1, Type::Int());
      return MakeValue(at, type, 0, std::move(bound));
    }
    case Function::kLen:
      text();
      return MakeValue(at, Type::Int(), Type::kMaxLength, std::move(bound));
    case Function::kYear:
    case Function::kMonth:
    case Function::kDay:
      as(0, Type::DateTime());
      return MakeValue(at, Type::Int(), YearLimit(function), std::move(bound));
    default: {
      const Type type = text();
      return MakeValue(at, type, 0, std::move(bound));
    }
  }
}

BoundPtr ExpressionBinder::BindRounding(Function function, const Call& call, Position at) {
  BoundCall bound{function, {}};
  for (const ExpressionPtr& argument : call.arguments) bound.arguments.push_back(Value(*argument));
  BoundPtr& first = bound.arguments.front();
  if (first->type.IsDate() || first->type.kind == TypeKind::kBit)
    throw Error(kArgumentType,
                "Argument data type " + NameOf(first->type) + " is invalid for argument 1 of " +
                    call.function + " function.",
                at);
  if (first->type.IsText()) first = ConvertTo(std::move(first), Type::Float());
  double limit = first->limit;
  if (function == Function::kRound) {
    if (first->type.IsInteger() && first->type.kind != TypeKind::kBigInt)
      first = ConvertTo(std::move(first), Type::Int());
    bound.arguments[1] = ConvertTo(std::move(bound.arguments[1]), Type::Int());
    limit *= 10;  // rounding up may add a unit of the highest place
  }
  const Type type = first->type.IsReal() && function == Function::kRound ? Type::Float() : first->type;
  return MakeValue(at, type, std::min(limit, LimitOf(type)), std::move(bound));
}

}  // namespace tarvoni::tsql
