#include "tests/disk/faulty_disk.h"

#include <new>
#include <set>

#include "tests/support/file_bytes.h"

namespace tarvoni::disktest {
namespace {

namespace fs = std::filesystem;

}  // namespace

// The file as SQLite holds it; the real one stands behind it in the same memory.
struct FaultyDisk::File {
  sqlite3_file base;
  FaultyDisk* disk;
  std::shared_ptr<Content>* content;  // null for files without a name
  bool syncs_folder;                  // as SQLite's own files do with a new journal

  sqlite3_file* Real() { return reinterpret_cast<sqlite3_file*>(this + 1); }
};

// What SQLite calls; named as its methods.
struct FaultyDiskCalls {
  using File = FaultyDisk::File;
  using Change = FaultyDisk::Change;

  static File& Of(sqlite3_file* file) { return *reinterpret_cast<File*>(file); }
  static FaultyDisk& Of(sqlite3_vfs* vfs) { return *static_cast<FaultyDisk*>(vfs->pAppData); }
  static int Next(File& file) { return file.content == nullptr ? SQLITE_OK : file.disk->Next(); }

  static int Close(sqlite3_file* file) {
    File& mine = Of(file);
    const int code =
        mine.Real()->pMethods == nullptr ? SQLITE_OK : mine.Real()->pMethods->xClose(mine.Real());
    delete mine.content;
    return code;
  }

  static int Read(sqlite3_file* file, void* to, int size, sqlite3_int64 at) {
    if (const int code = Next(Of(file))) return code == SQLITE_FULL ? SQLITE_IOERR_READ : code;
    return Of(file).Real()->pMethods->xRead(Of(file).Real(), to, size, at);
  }

  static int Write(sqlite3_file* file, const void* from, int size, sqlite3_int64 at) {
    File& mine = Of(file);
    if (const int code = Next(mine)) return code;
    if (mine.content != nullptr)
      (*mine.content)
          ->open.push_back({at, {static_cast<const char*>(from), static_cast<std::size_t>(size)}, false});
    return mine.Real()->pMethods->xWrite(mine.Real(), from, size, at);
  }

  static int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    File& mine = Of(file);
    if (const int code = Next(mine)) return code;
    if (mine.content != nullptr) (*mine.content)->open.push_back({size, {}, true});
    return mine.Real()->pMethods->xTruncate(mine.Real(), size);
  }

  static int Sync(sqlite3_file* file, int) {
    File& mine = Of(file);
    if (const int code = Next(mine)) return code;
    if (mine.content == nullptr) return SQLITE_OK;
    for (const Change& change : (*mine.content)->open) Apply((*mine.content)->synced, change);
    (*mine.content)->open.clear();
    if (mine.syncs_folder) mine.disk->SyncFolder();
    mine.syncs_folder = false;
    return SQLITE_OK;
  }

  static void Apply(std::string& bytes, const Change& change) {
    const auto at = static_cast<std::size_t>(change.at);
    if (change.truncates) return bytes.resize(at);
    if (bytes.size() < at + change.bytes.size()) bytes.resize(at + change.bytes.size());
    bytes.replace(at, change.bytes.size(), change.bytes);
  }

  static int FileSize(sqlite3_file* file, sqlite3_int64* size) {
    return Of(file).Real()->pMethods->xFileSize(Of(file).Real(), size);
  }
  static int Lock(sqlite3_file* file, int level) {
    return Of(file).Real()->pMethods->xLock(Of(file).Real(), level);
  }
  static int Unlock(sqlite3_file* file, int level) {
    return Of(file).Real()->pMethods->xUnlock(Of(file).Real(), level);
  }
  static int CheckReservedLock(sqlite3_file* file, int* held) {
    return Of(file).Real()->pMethods->xCheckReservedLock(Of(file).Real(), held);
  }
  static int FileControl(sqlite3_file* file, int what, void* argument) {
    return Of(file).Real()->pMethods->xFileControl(Of(file).Real(), what, argument);
  }
  static int SectorSize(sqlite3_file* file) {
    return Of(file).Real()->pMethods->xSectorSize(Of(file).Real());
  }
  static int DeviceCharacteristics(sqlite3_file* file) {
    return Of(file).Real()->pMethods->xDeviceCharacteristics(Of(file).Real());
  }

  static int Open(sqlite3_vfs* vfs, sqlite3_filename path, sqlite3_file* file, int flags, int* out_flags) {
    static constexpr sqlite3_io_methods kMethods = {1,
                                                    Close,
                                                    Read,
                                                    Write,
                                                    Truncate,
                                                    Sync,
                                                    FileSize,
                                                    Lock,
                                                    Unlock,
                                                    CheckReservedLock,
                                                    FileControl,
                                                    SectorSize,
                                                    DeviceCharacteristics,
                                                    nullptr,
                                                    nullptr,
                                                    nullptr,
                                                    nullptr,
                                                    nullptr,
                                                    nullptr};
    FaultyDisk& disk = Of(vfs);
    file->pMethods = nullptr;
    if (path != nullptr) {
      if (disk.Next() != SQLITE_OK) return SQLITE_CANTOPEN;
    }
    const bool created = path != nullptr && !fs::exists(path);
    auto* const mine =
        new (file) File{{nullptr}, &disk, nullptr, created && (flags & SQLITE_OPEN_MAIN_JOURNAL) != 0};
    const int code = disk.real_->xOpen(disk.real_, path, mine->Real(), flags, out_flags);
    if (code != SQLITE_OK) return code;
    if (path != nullptr) mine->content = new std::shared_ptr(disk.Opened(path, created));
    file->pMethods = &kMethods;
    return SQLITE_OK;
  }

  static int Delete(sqlite3_vfs* vfs, const char* path, int sync_folder) {
    FaultyDisk& disk = Of(vfs);
    if (const int code = disk.Next()) return code == SQLITE_FULL ? SQLITE_IOERR_DELETE : code;
    const int code = disk.real_->xDelete(disk.real_, path, 0);
    if (code == SQLITE_OK) disk.names_.erase(path);
    if (code == SQLITE_OK && sync_folder != 0) disk.SyncFolder();
    if (code == SQLITE_OK) disk.committed_();
    return code;
  }
};

FaultyDisk::FaultyDisk() : real_(sqlite3_vfs_find(nullptr)) {
  vfs_ = *real_;
  vfs_.zName = "faulty";
  vfs_.pAppData = this;
  vfs_.szOsFile = static_cast<int>(sizeof(File)) + real_->szOsFile;
  vfs_.xOpen = FaultyDiskCalls::Open;
  vfs_.xDelete = FaultyDiskCalls::Delete;
  sqlite3_vfs_register(&vfs_, 1);
}

FaultyDisk::~FaultyDisk() {
  sqlite3_vfs_unregister(&vfs_);
  sqlite3_vfs_register(real_, 1);
}

void FaultyDisk::FailAt(long n, int code) {
  fail_at_ = operations_ + n;
  fail_code_ = code;
}

void FaultyDisk::CutAt(long n) {
  cut_at_ = operations_ + n;
}

int FaultyDisk::Next() {
  ++operations_;
  if (operations_ == cut_at_) cut_ = true;
  if (cut_) return SQLITE_IOERR;
  return operations_ == fail_at_ ? fail_code_ : SQLITE_OK;
}

std::shared_ptr<FaultyDisk::Content> FaultyDisk::Opened(const std::string& path, bool created) {
  auto& content = names_[path];
  if (content && !created) return content;
  content = std::make_shared<Content>();
  if (created) return content;
  content->synced = dbtest::BytesOf(path);
  return on_disk_[path] = content;
}

std::string FaultyDisk::Survivor(const Content& content, Unsynced unsynced, std::minstd_rand& chance) const {
  std::string bytes = content.synced;
  for (const Change& change : content.open) {
    const bool kept = unsynced == Unsynced::kKept || (unsynced == Unsynced::kByChance && chance() % 2 == 0);
    if (kept) FaultyDiskCalls::Apply(bytes, change);
  }
  return bytes;
}

void FaultyDisk::PowerCut(Unsynced unsynced, unsigned seed) {
  std::minstd_rand chance(seed + 1);
  std::set<std::string> paths;
  for (const Names* names : {&names_, &on_disk_}) {
    for (const auto& [path, content] : *names) paths.insert(path);
  }
  for (const std::string& path : paths) {
    const bool newer = unsynced == Unsynced::kKept || (unsynced == Unsynced::kByChance && chance() % 2 == 0);
    const Names& names = newer ? names_ : on_disk_;
    const auto found = names.find(path);
    fs::remove(path);
    if (found != names.end()) dbtest::WriteBytes(path, Survivor(*found->second, unsynced, chance));
  }
  names_.clear();
  on_disk_.clear();
  cut_ = false;
  cut_at_ = 0;
}

}  // namespace tarvoni::disktest
