#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "src/context/data/database.h"

namespace tarvoni::host {

// The demo enterprise at scale 1, built once for all tests; they only read it.
Connection& Demo();

// A copy of it in a file of its own, to be damaged.
class DemoCopy {
 public:
  DemoCopy();
  ~DemoCopy();
  Connection& operator*() const { return *connection_; }
  Connection* operator->() const { return connection_.get(); }
  const std::filesystem::path& File() const { return file_; }

 private:
  std::filesystem::path file_;
  std::shared_ptr<Connection> connection_;
};

// A path in the temporary folder that no other test uses; nothing is there.
std::filesystem::path TemporaryFile();

}  // namespace tarvoni::host
