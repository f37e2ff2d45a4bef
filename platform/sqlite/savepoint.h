#pragma once

#include <string>

#include "platform/sqlite/handle.h"

namespace tarvoni::sqlite {

// Undoes what was done since unless it is kept.
class Savepoint {
 public:
  // `name` is a word of SQL.
  Savepoint(Handle& handle, std::string name) : handle_(handle), name_(std::move(name)) {
    handle.Execute("SAVEPOINT " + name_);
  }
  Savepoint(const Savepoint&) = delete;
  Savepoint& operator=(const Savepoint&) = delete;
  ~Savepoint() {
    // Some errors have already ended the whole transaction.
    if (kept_ || !handle_.InTransaction()) return;
    const std::string undo = "ROLLBACK TO " + name_ + "; RELEASE " + name_;
    sqlite3_exec(handle_.Raw(), undo.c_str(), nullptr, nullptr, nullptr);
  }
  void Keep() {
    handle_.Execute("RELEASE " + name_);
    kept_ = true;
  }

 private:
  Handle& handle_;
  std::string name_;
  bool kept_ = false;
};

}  // namespace tarvoni::sqlite
