#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/sqlite/public/sqlite_database.h"

// Saves as a Screen makes them, so that a test can tell afterwards whether one is lost, halved or there twice.
namespace tarvoni::disktest {

// Makes the file with its two tables; then a save writes a head and its rows, which belong together.
void MakeSavesFile(const std::string& path);

// One save: a head numbered by MAX+1 and its rows, in one handler. Gives the head's key. The handler's commit is the
// acknowledgement: an error instead leaves through DatabaseError.
long long Save(Connection& connection);

// Saves until one fails or `saves` are done; the keys of those that were acknowledged.
std::vector<long long> SaveUntilItFails(const std::string& path, int saves);

// What is wrong with the file, a sentence each: damage, halved saves, numbers given twice, and saves of
// `acknowledged` that are not there.
std::vector<std::string> FaultsOf(const std::string& path, const std::vector<long long>& acknowledged);

}  // namespace tarvoni::disktest
