#pragma once

#include <sqlite3.h>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace tarvoni::disktest {

// A disk that fails on demand: for the object's life SQLite opens its files through it. The files lie in their folders
// as usual; beside them it keeps what would be there after a power cut, with changes that nobody synced still open.
class FaultyDisk {
 public:
  FaultyDisk();
  FaultyDisk(const FaultyDisk&) = delete;
  FaultyDisk& operator=(const FaultyDisk&) = delete;
  ~FaultyDisk();

  // The n-th operation from now on, counted from 1, ends in SQLite's `code`, once.
  void FailAt(long n, int code);
  // At the n-th operation from now on the power goes: it and all behind it fail.
  void CutAt(long n);
  bool IsCut() const { return cut_; }
  long Operations() const { return operations_; }
  // Hears of each journal that is removed, with which a commit is done, or a rollback.
  void OnCommit(std::function<void()> heard) { committed_ = std::move(heard); }

  // How much of what nobody synced has reached the disk all the same.
  enum class Unsynced { kLost, kKept, kByChance };
  // Leaves in the folders what the disk holds after the power came back. Nobody has a file open any more.
  void PowerCut(Unsynced unsynced, unsigned seed = 0);

 private:
  struct Change {
    sqlite3_int64 at = 0;
    std::string bytes;
    bool truncates = false;
  };
  // A file's content apart from its name: synced, and what was done since.
  struct Content {
    std::string synced;
    std::vector<Change> open;
  };
  using Names = std::map<std::string, std::shared_ptr<Content>>;
  struct File;
  friend struct FaultyDiskCalls;

  // Counts an operation; what it ends in, SQLITE_OK when it is to be done.
  int Next();
  std::shared_ptr<Content> Opened(const std::string& path, bool created);
  void SyncFolder() { on_disk_ = names_; }
  std::string Survivor(const Content& content, Unsynced unsynced, std::minstd_rand& chance) const;

  sqlite3_vfs vfs_{};
  sqlite3_vfs* real_ = nullptr;
  std::function<void()> committed_ = [] {};
  long operations_ = 0;
  long fail_at_ = 0;
  int fail_code_ = SQLITE_OK;
  long cut_at_ = 0;
  bool cut_ = false;
  Names names_;    // as the programs see the folder
  Names on_disk_;  // as it is after a power cut
};

}  // namespace tarvoni::disktest
