#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>

#include "src/context/data/database.h"
#include "tests/odbc/tds_server.h"

namespace tarvoni::odbc {

// A server with one empty database: it speaks the server's protocol, and the embedded database answers.
class EngineServer {
 public:
  // `reversed`: rows of a statement that orders none come the other way round than from a file.
  explicit EngineServer(bool reversed);

  // What opens the database, with FreeTDS.
  std::string ConnectionText() const;

 private:
  std::string Answer(const std::string& batch, int session);
  std::string AnswerOfEngine(Connection& connection, const std::string& batch);
  Connection& SessionOf(int session);

  // The engine belongs to one thread at a time.
  std::mutex mutex_;
  std::shared_ptr<Connection> database_;
  std::map<int, std::shared_ptr<Connection>> sessions_;
  TdsServer server_;
};

}  // namespace tarvoni::odbc
