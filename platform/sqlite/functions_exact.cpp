#include <algorithm>

#include "platform/sqlite/exact.h"
#include "platform/sqlite/function_layer.h"
#include "platform/sqlite/number_text.h"

namespace tarvoni::sqlite {
namespace {

Int128 Negate(Int128 value) {
  return -value;
}

Int128 Absolute(Int128 value) {
  return value < 0 ? -value : value;
}

Int128 AddAll(ArgumentList summands) {
  Int128 total = 0;
  for (sqlite3_value* summand : summands) total = AddExact(total, ReadArgument<Int128>(summand));
  return total;
}

std::int64_t Compare(Int128 a, int scale_a, Int128 b, int scale_b) {
  const auto order = Decimal(a, scale_a) <=> Decimal(b, scale_b);
  return static_cast<std::int64_t>(order > 0) - static_cast<std::int64_t>(order < 0);
}

// The memory of an aggregate is aligned for eight bytes; a Decimal asks for no more.
struct Sum {
  Decimal total;

  void Take(Int128 value) { total = Decimal(AddExact(total.Unscaled(), value), 0); }
  Int128 Result() const { return total.Unscaled(); }
};

template <bool (*kReplaces)(Int128 value, Int128 best)>
struct Extreme {
  Decimal best;
  bool any;

  void Take(Int128 value) {
    if (!any || kReplaces(value, best.Unscaled())) best = Decimal(value, 0);
    any = true;
  }
  Int128 Result() const { return best.Unscaled(); }
};

bool IsLess(Int128 a, Int128 b) {
  return a < b;
}

bool IsGreater(Int128 a, Int128 b) {
  return a > b;
}

}  // namespace

void RegisterExactFunctions(sqlite3* db, FunctionContext& context) {
  Register<&ExactFromText>(db, context, "ts_exact_from_text");
  Register<&MoneyFromText>(db, context, "ts_money_from_text");
  Register<&ExactFromFloat>(db, context, "ts_exact_from_float");
  Register<&RescaleExact>(db, context, "ts_exact_rescale");
  RegisterList<&AddAll>(db, context, "ts_exact_add");
  Register<&Absolute>(db, context, "ts_exact_abs");
  Register<&Negate>(db, context, "ts_exact_neg");
  Register<&MultiplyExact>(db, context, "ts_exact_mul");
  Register<&DivideExact>(db, context, "ts_exact_div");
  Register<&RequireMoney>(db, context, "ts_exact_money");
  Register<&Compare>(db, context, "ts_exact_cmp");
  Register<&SortKey>(db, context, "ts_exact_key");
  Register<&RoundExact>(db, context, "ts_round");
  RegisterAggregate<Sum>(db, context, "ts_exact_sum");
  RegisterAggregate<Extreme<&IsLess>>(db, context, "ts_exact_min");
  RegisterAggregate<Extreme<&IsGreater>>(db, context, "ts_exact_max");
}

}  // namespace tarvoni::sqlite
