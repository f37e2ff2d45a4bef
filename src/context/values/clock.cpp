#include "src/context/values/clock.h"

#include <chrono>
#include <ctime>
#include <mutex>
#include <optional>

namespace tarvoni {
namespace {

std::mutex guard;
std::optional<DateTime> fixed_now;

DateTime SystemNow() {
  const auto now = std::chrono::system_clock::now();
  const auto whole = std::chrono::floor<std::chrono::seconds>(now);
  const auto fraction = std::chrono::duration_cast<std::chrono::milliseconds>(now - whole);
  const std::time_t seconds = std::chrono::system_clock::to_time_t(whole);
  std::tm local{};
  localtime_r(&seconds, &local);
  const int second_of_day = (local.tm_hour * 60 + local.tm_min) * 60 + local.tm_sec;
  return {.year = local.tm_year + 1900,
          .month = local.tm_mon + 1,
          .day = local.tm_mday,
          .milliseconds = second_of_day * 1000 + static_cast<int>(fraction.count())};
}

}  // namespace

DateTime Clock::Now() {
  const std::scoped_lock lock(guard);
  return fixed_now ? *fixed_now : SystemNow();
}

DateTime Clock::Today() {
  DateTime today = Now();
  today.milliseconds = 0;
  return today;
}

void Clock::Set(const DateTime& now) {
  const std::scoped_lock lock(guard);
  fixed_now = now;
}

void Clock::Reset() {
  const std::scoped_lock lock(guard);
  fixed_now.reset();
}

}  // namespace tarvoni
