#pragma once

#include <filesystem>

namespace tarvoni::sqlite {

// A file in the making, beside its target and under a name that no other program opens: with the object it is gone
// unless it took the target's name. What killed programs left in the folder goes first. What fails throws a
// DatabaseError that names the target.
class PartialFile {
 public:
  explicit PartialFile(std::filesystem::path target);
  PartialFile(const PartialFile&) = delete;
  PartialFile& operator=(const PartialFile&) = delete;
  ~PartialFile();

  std::string Path() const { return path_.string(); }
  // Takes the target's name when the content is on the disk; false when something bears it already.
  bool TakeFreeName();
  // The same in place of what bears the name, whose journal goes with it.
  void TakeName();

 private:
  void Sync() const;
  void SyncFolder() const;
  [[noreturn]] void Fail(int reason) const;

  std::filesystem::path target_;
  std::filesystem::path path_;
  int file_ = -1;  // holds the lock that tells others of its maker
};

}  // namespace tarvoni::sqlite
