#include "host/progress_bar.h"

#include <fmt/format.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

namespace tarvoni::host {
namespace {

constexpr int kWidth = 40;
constexpr std::chrono::seconds kPatience{1};
constexpr std::chrono::milliseconds kInterval{100};

}  // namespace

ProgressBar::ProgressBar() : terminal_(isatty(STDERR_FILENO) != 0), next_draw_(Clock::now() + kPatience) {}

ProgressBar::~ProgressBar() {
  if (drawn_) fmt::print(stderr, "\r\033[K");
}

void ProgressBar::Show(double done) {
  if (!terminal_ || Clock::now() < next_draw_) return;
  next_draw_ = Clock::now() + kInterval;
  drawn_ = true;
  const int full = static_cast<int>(std::clamp(done, 0.0, 1.0) * kWidth);
  fmt::print(stderr, "\r[{:#<{}}{:.<{}}] {:3.0f} %", "", full, "", kWidth - full, done * 100);
  std::fflush(stderr);
}

}  // namespace tarvoni::host
