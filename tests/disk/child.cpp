#include "tests/disk/child.h"

#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <exception>
#include <stdexcept>

namespace tarvoni::disktest {

Child::Child(const std::function<void(const Tell&)>& work) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) throw std::runtime_error("no pipe");
  std::fflush(nullptr);
  process_ = fork();
  if (process_ < 0) throw std::runtime_error("no process");
  if (process_ > 0) {
    close(ends[1]);
    pipe_ = ends[0];
    return;
  }
  int code = 0;
  try {
    work([&ends](long long number) { (void)!write(ends[1], &number, sizeof number); });
  } catch (const std::exception&) {
    code = 1;
  }
  _exit(code);
}

Child::~Child() {
  Kill();
  Wait();
  close(pipe_);
}

void Child::Kill() {
  if (!waited_) kill(process_, SIGKILL);
}

bool Child::Wait() {
  if (waited_) return sound_;
  int status = 0;
  waitpid(process_, &status, 0);
  waited_ = true;
  sound_ = !WIFSIGNALED(status) || WTERMSIG(status) == SIGKILL;
  return sound_;
}

std::vector<long long> Child::Told() {
  Wait();
  std::vector<long long> told;
  for (long long number = 0; read(pipe_, &number, sizeof number) == sizeof number;) told.push_back(number);
  return told;
}

}  // namespace tarvoni::disktest
