#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <optional>
#include <thread>

namespace tarvoni::odbc {

// Ends a conversation with a server that has gone. A driver whose time limit runs out cancels the statement, and then
// waits as long again for the server to say that it heard; so behind the limit, with a moment for that word, the socket
// is shut down under it.
class Deadline {
 public:
  // Below 0: there is no socket to shut down, and nothing ever strikes.
  explicit Deadline(int socket);
  Deadline(const Deadline&) = delete;
  Deadline& operator=(const Deadline&) = delete;
  ~Deadline();

  // A limit of 0 is none.
  void Start(std::chrono::seconds limit);
  void Stop();
  // Whether the last one ran out.
  bool HasStruck() const;

 private:
  using Clock = std::chrono::steady_clock;
  void Watch();

  int socket_;
  mutable std::mutex mutex_;
  std::condition_variable changed_;
  std::optional<Clock::time_point> end_;
  bool struck_ = false;
  bool finished_ = false;
  std::thread watcher_;
};

}  // namespace tarvoni::odbc
