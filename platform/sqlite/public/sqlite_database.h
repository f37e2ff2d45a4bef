#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "src/context/data/database.h"

// The embedded database: T-SQL text on an SQLite file.
namespace tarvoni::sqlite {

struct OpenOptions {
  bool create = false;  // else a missing file is an error
  bool read_only = false;
  int schema_version = 0;  // a file of a higher one is refused; 0 takes every file
  std::chrono::milliseconds busy_timeout{5000};
};

// Opens a file, or a database in memory: ":memory:" is a new one each time, and its ConnectionString() opens
// the same one again while it lives. Connections to one file of this process share what they have not yet
// committed; they belong to one thread. Throws DatabaseError in German; a file that is refused stays as it
// is, byte for byte.
std::shared_ptr<Connection> OpenDatabase(const std::string& connection_string,
                                         const OpenOptions& options = {});

struct BackupOptions {
  bool force = false;  // also over a file that is no older backup of this database
};

// Copies the database to a file, which appears only when the copy is complete, sound and on the disk. Commits
// what is pending. Refuses an empty or damaged database, and a target that is anything but nothing or an older
// backup.
void Backup(Connection& connection, const std::string& target, BackupOptions options = {});

// Copies the database into a file that is there and empty; false when something stands in it by now.
bool FillEmptyFile(Connection& connection, const std::string& target);

// True when no table has been made in it.
bool IsEmpty(Connection& connection);

// What is in the file: tables, "ARA_KOPF", and their indexes, "ARA_KOPF.ARA_KOPF_NAME".
std::set<std::string> NamesInFile(Connection& connection);

// A new database in memory with what the other holds. Commits what is pending there.
std::shared_ptr<Connection> CopyToMemory(Connection& connection);

// A door for tests: makes the nth commit of writes from now on fail as one fails on a full disk, so that nothing of it
// stays, and tells whether it came to that. What it gives ends the arrangement with its own end.
std::function<bool()> FailCommit(Connection& connection, int nth);

// What is wrong with the file, a German sentence each; empty when it is sound. Cells that hold what their column
// cannot are named by table, key and column, and tables whose numbers would be given twice.
std::vector<std::string> CheckIntegrity(Connection& connection);

// Tables and columns of the model that the database lacks or has otherwise, a German sentence each.
std::vector<std::string> DifferencesFrom(Connection& model, Connection& connection);

}  // namespace tarvoni::sqlite
