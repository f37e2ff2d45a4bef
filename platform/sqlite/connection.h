#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "platform/sqlite/database.h"
#include "platform/sqlite/executor.h"
#include "src/context/data/database.h"

namespace tarvoni::sqlite {

// A connection's own settings on a shared database.
class SqliteConnection : public Connection {
 public:
  explicit SqliteConnection(std::shared_ptr<Database> database) : database_(std::move(database)) {}
  ~SqliteConnection() override;

  long long Execute(const SqlText& text) override;
  Recordset Open(const SqlText& text) override;
  void OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) override;
  const std::string& ConnectionString() const override { return database_->Name(); }
  void BeginHandler() override;
  void EndHandler() override;
  void CommitHandler() override { database_->Commit(); }
  void SetTraceHook(TraceHook hook) override { trace_ = std::move(hook); }

  Database& Shared() { return *database_; }
  const std::shared_ptr<Database>& SharedOwner() const { return database_; }

 private:
  // Throws the batch's error.
  BatchResult Run(std::string_view text, Wanted wanted);
  BatchResult RunTraced(std::string_view text, Wanted wanted);
  BatchResult RunBatch(std::string_view text, Wanted wanted);

  std::shared_ptr<Database> database_;
  Session session_;
  TraceHook trace_;
  int handlers_ = 0;  // own share of the database's
};

}  // namespace tarvoni::sqlite
