#include <benchmark/benchmark.h>

#include <filesystem>

#include "platform/sqlite/statement.h"

// What it costs that a save outlives a power cut: one save of 41 columns, by the way SQLite ends its journal and by
// how much it syncs. All take turns on one new file on the disk of out/.
namespace tarvoni::bench {
namespace {

constexpr int kRows = 1000;
constexpr int kUpdates = 41;

class SavesFile {
 public:
  SavesFile() {
    std::filesystem::create_directories("out");
    std::filesystem::remove(path_);
    sqlite::Handle handle = Open();
    handle.Execute("BEGIN; CREATE TABLE T (ID INTEGER PRIMARY KEY, MENGE INT, TEXT TEXT)");
    for (int i = 1; i <= kRows; ++i)
      handle.Execute("INSERT INTO T VALUES (" + std::to_string(i) + ", 0, '" + std::string(300, 'x') + "')");
    handle.Execute("COMMIT");
  }
  SavesFile(const SavesFile&) = delete;
  SavesFile& operator=(const SavesFile&) = delete;
  ~SavesFile() { std::filesystem::remove(path_); }

  sqlite::Handle Open() const {
    return {path_, SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE, std::chrono::milliseconds(5000)};
  }

 private:
  std::string path_ = "out/durability.db";
};

const SavesFile& TheFile() {
  static const SavesFile file;
  return file;
}

void Save(benchmark::State& state, const std::string& settings) {
  sqlite::Handle handle = TheFile().Open();
  handle.Execute(settings);
  sqlite::Statement update(handle, "UPDATE T SET MENGE = ?1 WHERE ID = ?2", sqlite::Statement::Use::kOften);
  int value = 0;
  for (auto _ : state) {
    handle.Execute("BEGIN IMMEDIATE");
    for (int i = 0; i < kUpdates; ++i) {
      update.BindInteger(1, ++value);
      update.BindInteger(2, i * (kRows / kUpdates) + 1);
      update.Run();
    }
    handle.Execute("COMMIT");
  }
}

BENCHMARK_CAPTURE(Save, delete_full, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = FULL")
    ->Name("Speichern, DELETE und FULL")
    ->UseRealTime();
BENCHMARK_CAPTURE(Save, delete_extra, "PRAGMA journal_mode = DELETE; PRAGMA synchronous = EXTRA")
    ->Name("Speichern, DELETE und EXTRA")
    ->UseRealTime();
BENCHMARK_CAPTURE(Save, truncate_full, "PRAGMA journal_mode = TRUNCATE; PRAGMA synchronous = FULL")
    ->Name("Speichern, TRUNCATE und FULL")
    ->UseRealTime();
BENCHMARK_CAPTURE(Save, persist_full, "PRAGMA journal_mode = PERSIST; PRAGMA synchronous = FULL")
    ->Name("Speichern, PERSIST und FULL")
    ->UseRealTime();

}  // namespace
}  // namespace tarvoni::bench
