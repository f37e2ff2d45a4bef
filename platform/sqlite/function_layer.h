#pragma once

#include <sqlite3.h>

#include <cassert>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <new>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

#include "platform/sqlite/exact.h"
#include "platform/sqlite/functions.h"
#include "platform/sqlite/server_error.h"
#include "platform/tsql/public/type.h"
#include "src/context/data/database_error.h"
#include "src/context/values/date_time.h"

// Makes an SQL function of a C++ function: its arguments and its result are converted by their types, NULL in gives
// NULL out, and what it throws becomes the statement's error. A function that takes a Raw argument sees NULL itself;
// one whose first parameter is a FunctionContext gets that of its connection.
namespace tarvoni::sqlite {

using Raw = sqlite3_value*;

inline constexpr int kPure = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
// Depends on, or changes, more than its arguments.
inline constexpr int kImpure = SQLITE_UTF8;

// An argument's value. A REAL where an exact value or a whole number is due is an overflow; anything else that no
// value of the type can be is kErrorDamaged.
template <typename T>
T ReadArgument(sqlite3_value* value);

void ReturnValue(sqlite3_context* context, std::int64_t value);
void ReturnValue(sqlite3_context* context, double value);  // error 8115 for an infinite one
void ReturnValue(sqlite3_context* context, Int128 value);
void ReturnValue(sqlite3_context* context, const WideExact& value);
void ReturnValue(sqlite3_context* context, std::string_view value);
void ReturnValue(sqlite3_context* context, const DateTime& value);

template <typename T>
void ReturnValue(sqlite3_context* context, const std::optional<T>& value) {
  if (value) {
    ReturnValue(context, *value);
  } else {
    sqlite3_result_null(context);
  }
}

inline FunctionContext& ContextOf(sqlite3_context* context) {
  return *static_cast<FunctionContext*>(sqlite3_user_data(context));
}

void Fail(sqlite3_context* context, int number, const char* message);

// No exception may cross SQLite.
template <typename Body>
void Trapped(sqlite3_context* context, const Body& body) noexcept {
  try {
    body();
  } catch (const DatabaseError& error) {
    Fail(context, error.Number(), error.what());
  } catch (const std::bad_alloc&) {
    sqlite3_result_error_nomem(context);
  } catch (const std::exception& error) {
    sqlite3_result_error(context, error.what(), -1);
  }
}

template <typename... Arguments, std::size_t... kIndex>
void Apply(sqlite3_context* context, sqlite3_value** values, std::index_sequence<kIndex...> /*places*/,
           const auto& function) {
  constexpr bool kSeesNull = (std::is_same_v<Arguments, Raw> || ...);
  const bool any_null = ((sqlite3_value_type(values[kIndex]) == SQLITE_NULL) || ...);
  if (any_null && !kSeesNull) return sqlite3_result_null(context);
  ReturnValue(context, function(ReadArgument<Arguments>(values[kIndex])...));
}

template <auto kFunction, typename Type = decltype(kFunction)>
struct SqlFunction;

template <auto kFunction, typename Result, typename... Arguments>
struct SqlFunction<kFunction, Result (*)(Arguments...)> {
  static constexpr int kCount = sizeof...(Arguments);

  static void Call(sqlite3_context* context, int /*count*/, sqlite3_value** values) noexcept {
    Trapped(context, [&] {
      Apply<Arguments...>(context, values, std::index_sequence_for<Arguments...>(), kFunction);
    });
  }
};

template <auto kFunction, typename Result, typename... Arguments>
struct SqlFunction<kFunction, Result (*)(FunctionContext&, Arguments...)> {
  static constexpr int kCount = sizeof...(Arguments);

  static void Call(sqlite3_context* context, int /*count*/, sqlite3_value** values) noexcept {
    const auto function = [context](Arguments... arguments) {
      return kFunction(ContextOf(context), arguments...);
    };
    Trapped(context,
            [&] { Apply<Arguments...>(context, values, std::index_sequence_for<Arguments...>(), function); });
  }
};

// A function of any number of arguments, NULL if one of them is.
using ArgumentList = std::span<sqlite3_value*>;

template <auto kFunction>
struct ListFunction {
  static void Call(sqlite3_context* context, int count, sqlite3_value** values) noexcept {
    Trapped(context, [&] {
      const ArgumentList arguments(values, static_cast<std::size_t>(count));
      for (sqlite3_value* value : arguments) {
        if (sqlite3_value_type(value) == SQLITE_NULL) return sqlite3_result_null(context);
      }
      ReturnValue(context, kFunction(arguments));
    });
  }
};

// An aggregate over exact values but NULL. State begins as zero bytes, takes values by Take and gives its Result.
template <typename State>
struct ExactAggregate {
  static_assert(std::is_trivially_copyable_v<State>);

  static void Step(sqlite3_context* context, int /*count*/, sqlite3_value** values) noexcept {
    if (sqlite3_value_type(values[0]) == SQLITE_NULL) return;
    Trapped(context, [&] {
      auto* state = static_cast<State*>(sqlite3_aggregate_context(context, sizeof(State)));
      if (state == nullptr) throw std::bad_alloc();
      state->Take(ReadArgument<Int128>(values[0]));
    });
  }

  static void Finish(sqlite3_context* context) noexcept {
    const auto* state = static_cast<const State*>(sqlite3_aggregate_context(context, 0));
    if (state == nullptr) return sqlite3_result_null(context);
    Trapped(context, [&] { ReturnValue(context, state->Result()); });
  }
};

using Call = void (*)(sqlite3_context*, int, sqlite3_value**);

inline void CreateFunction(sqlite3* db, const char* name, int count, int flags, FunctionContext& context,
                           Call call, Call step = nullptr, void (*finish)(sqlite3_context*) = nullptr) {
  [[maybe_unused]] const int code =
      sqlite3_create_function_v2(db, name, count, flags, &context, call, step, finish, nullptr);
  assert(code == SQLITE_OK);
}

template <auto kFunction>
void Register(sqlite3* db, FunctionContext& context, const char* name, int flags = kPure) {
  using Function = SqlFunction<kFunction>;
  CreateFunction(db, name, Function::kCount, flags, context, &Function::Call);
}

template <auto kFunction>
void RegisterList(sqlite3* db, FunctionContext& context, const char* name) {
  CreateFunction(db, name, -1, kPure, context, &ListFunction<kFunction>::Call);
}

template <typename State>
void RegisterAggregate(sqlite3* db, FunctionContext& context, const char* name) {
  using Aggregate = ExactAggregate<State>;
  CreateFunction(db, name, 1, kPure, context, nullptr, &Aggregate::Step, &Aggregate::Finish);
}

}  // namespace tarvoni::sqlite
