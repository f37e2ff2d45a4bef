#pragma once

#include <chrono>

namespace tarvoni::host {

// A bar on stderr, drawn only on a terminal and only when the work takes longer than a second.
class ProgressBar {
 public:
  ProgressBar();
  ProgressBar(const ProgressBar&) = delete;
  ProgressBar& operator=(const ProgressBar&) = delete;
  ~ProgressBar();  // wipes the bar

  void Show(double done);  // 0 to 1

 private:
  using Clock = std::chrono::steady_clock;
  bool terminal_;
  bool drawn_ = false;
  Clock::time_point next_draw_;
};

}  // namespace tarvoni::host
