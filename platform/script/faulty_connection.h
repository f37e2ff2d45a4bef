#pragma once

#include <memory>
#include <string>
#include <utility>

#include "src/context/data/database.h"

namespace tarvoni {

// The failure that `fail write` arms: the nth statement that writes, on whichever connection of the script.
class WriteFault {
 public:
  void Arm(int nth, int number);
  void Disarm() { nth_ = 0; }
  bool Happened() const { return seen_ >= nth_; }
  // How many writes came since it was armed.
  int Writes() const { return seen_; }
  // Throws if `statement` is the one to fail; nothing of it is sent then.
  void Hear(std::string_view statement);

 private:
  int nth_ = 0;  // 0: none is to fail
  int number_ = 0;
  int seen_ = 0;
};

// A connection of a script, on which `fail write` can throw.
class FaultyConnection : public Connection {
 public:
  FaultyConnection(std::shared_ptr<Connection> real, std::shared_ptr<WriteFault> fault)
      : real_(std::move(real)), fault_(std::move(fault)) {}

  long long Execute(const SqlText& text) override { return Sending(text).Execute(text); }
  Recordset Open(const SqlText& text) override { return Sending(text).Open(text); }
  void OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) override {
    Sending(text).OpenAll(text, take);
  }
  const std::string& ConnectionString() const override { return real_->ConnectionString(); }
  void BeginHandler() override { real_->BeginHandler(); }
  void EndHandler() override { real_->EndHandler(); }
  void CommitHandler() override { real_->CommitHandler(); }
  void SetTraceHook(TraceHook hook) override { real_->SetTraceHook(std::move(hook)); }

  Connection& Real() { return *real_; }

 private:
  Connection& Sending(const SqlText& text) {
    fault_->Hear(text.Text());
    return *real_;
  }

  std::shared_ptr<Connection> real_;
  std::shared_ptr<WriteFault> fault_;
};

}  // namespace tarvoni
