#include "platform/sqlite/public/partial_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <system_error>

#include "platform/sqlite/public/system_reason.h"
#include "src/context/data/database_error.h"

namespace tarvoni::sqlite {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kEnding = ".tarvoni-teil";
constexpr std::array kJournals = {"-journal", "-wal", "-shm"};

fs::path With(const fs::path& path, std::string_view ending) {
  return path.string().append(ending);
}

void Remove(const fs::path& path) {
  std::error_code ignored;
  fs::remove(path, ignored);
}

void RemoveJournals(const fs::path& path) {
  for (const char* ending : kJournals) Remove(With(path, ending));
}

// Whether the open file still bears the name.
bool Bears(int file, const fs::path& path) {
  struct stat opened {
  }, named{};
  return ::fstat(file, &opened) == 0 && ::lstat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
         opened.st_dev == named.st_dev;
}

// The open and locked file, or -1 with errno; EWOULDBLOCK when somebody is still at work on it.
int OpenLocked(const fs::path& path, int flags) {
  for (;;) {
    const int file = ::open(path.c_str(), flags | O_RDWR | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0644);
    if (file < 0) return -1;
    if (::flock(file, LOCK_EX | LOCK_NB) == 0 && Bears(file, path)) return file;
    const int reason = errno;
    const bool renamed = !Bears(file, path);
    ::close(file);
    if (!renamed) return errno = reason, -1;
  }
}

// What a killed program left is known by its ending and by nobody holding it.
void ClearLeftovers(const fs::path& folder) {
  std::error_code ignored;
  for (const auto& entry : fs::directory_iterator(folder, ignored)) {
    if (!entry.path().string().ends_with(kEnding)) continue;
    const int file = OpenLocked(entry.path(), 0);
    if (file < 0) continue;
    RemoveJournals(entry.path());
    Remove(entry.path());
    ::close(file);
  }
}

}  // namespace

PartialFile::PartialFile(fs::path target) : target_(std::move(target)), path_(With(target_, kEnding)) {
  ClearLeftovers(target_.parent_path());
  file_ = OpenLocked(path_, O_CREAT);
  if (file_ >= 0) return;
  if (errno != EWOULDBLOCK) Fail(errno);
  throw DatabaseError(
      kErrorBusy, "Die Datei „" + target_.string() + "“ wird gerade von einem anderen Programm geschrieben.");
}

PartialFile::~PartialFile() {
  if (!path_.empty()) {
    RemoveJournals(path_);
    Remove(path_);
  }
  ::close(file_);
}

bool PartialFile::TakeFreeName() {
  Sync();
  // A journal without its database belongs to one that was removed.
  if (!fs::exists(target_)) RemoveJournals(target_);
  if (::renameat2(AT_FDCWD, path_.c_str(), AT_FDCWD, target_.c_str(), RENAME_NOREPLACE) == 0) {
    path_.clear();
  } else if (errno != EINVAL || ::link(path_.c_str(), target_.c_str()) != 0) {
    if (errno == EEXIST) return false;
    Fail(errno);
  }
  SyncFolder();
  return true;
}

void PartialFile::TakeName() {
  Sync();
  RemoveJournals(target_);
  SyncFolder();
  if (::rename(path_.c_str(), target_.c_str()) != 0) Fail(errno);
  path_.clear();
  SyncFolder();
}

void PartialFile::Sync() const {
  if (::fsync(file_) != 0) Fail(errno);
}

void PartialFile::SyncFolder() const {
  const int folder = ::open(target_.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  const bool synced = folder >= 0 && ::fsync(folder) == 0;
  const int reason = errno;
  if (folder >= 0) ::close(folder);
  if (!synced) Fail(reason);
}

void PartialFile::Fail(int reason) const {
  const int number = reason == ENOSPC || reason == EDQUOT ? kErrorDiskFull : kErrorConnection;
  throw DatabaseError(number, "Die Datei „" + target_.string() +
                                  "“ lässt sich nicht schreiben: " + SystemReason(reason) + ".");
}

}  // namespace tarvoni::sqlite
