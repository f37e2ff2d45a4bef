#pragma once

#include <sys/types.h>

#include <functional>
#include <string>
#include <vector>

namespace tarvoni::disktest {

// A process of its own that works until it ends or is killed, and tells its parent numbers meanwhile.
class Child {
 public:
  // `work` gets a way to tell a number; the process ends with it, or with 1 after an exception.
  using Tell = std::function<void(long long)>;
  explicit Child(const std::function<void(const Tell&)>& work);
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;
  ~Child();

  void Kill();
  // Waits for the end; true unless a signal other than Kill() ended it.
  bool Wait();
  // Waits for the end and gives what it told.
  std::vector<long long> Told();

 private:
  pid_t process_ = -1;
  int pipe_ = -1;
  bool waited_ = false;
  bool sound_ = true;
};

}  // namespace tarvoni::disktest
