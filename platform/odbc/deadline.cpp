#include "platform/odbc/deadline.h"

#include <sys/socket.h>

namespace tarvoni::odbc {
namespace {

constexpr std::chrono::seconds kGrace(1);

}  // namespace

Deadline::Deadline(int socket) : socket_(socket) {
  if (socket_ >= 0) watcher_ = std::thread([this] { Watch(); });
}

Deadline::~Deadline() {
  if (!watcher_.joinable()) return;
  {
    const std::lock_guard lock(mutex_);
    finished_ = true;
  }
  changed_.notify_one();
  watcher_.join();
}

void Deadline::Start(std::chrono::seconds limit) {
  const std::lock_guard lock(mutex_);
  struck_ = false;
  if (socket_ < 0 || limit.count() == 0) return;
  end_ = Clock::now() + limit + kGrace;
  changed_.notify_one();
}

void Deadline::Stop() {
  const std::lock_guard lock(mutex_);
  end_.reset();
}

bool Deadline::HasStruck() const {
  const std::lock_guard lock(mutex_);
  return struck_;
}

void Deadline::Watch() {
  std::unique_lock lock(mutex_);
  while (!finished_) {
    if (!end_) {
      changed_.wait(lock);
    } else if (Clock::now() < *end_) {
      changed_.wait_until(lock, *end_);
    } else {
      shutdown(socket_, SHUT_RDWR);
      struck_ = true;
      end_.reset();
    }
  }
}

}  // namespace tarvoni::odbc
