#pragma once

#include <memory>
#include <string>

#include "src/context/data/database.h"

namespace tarvoni::host {

enum class OpenMode { kExisting, kReadOnly, kCreate };

// Opens a file, or with "odbc:…" a server. Throws DatabaseError, also for a file of a newer schema. A file of an older
// one gets the indexes that it lacks, unless it is opened for reading only.
std::shared_ptr<Connection> OpenDatabase(const std::string& database, OpenMode mode = OpenMode::kExisting);

// Whether a text names a server: it begins with "odbc:" or has a password in it, as no name of a file has.
bool IsServer(const std::string& database);

}  // namespace tarvoni::host
