#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/odbc/batch.h"
#include "platform/odbc/deadline.h"
#include "platform/odbc/link.h"
#include "platform/odbc/public/odbc_database.h"

namespace tarvoni::odbc {

class OdbcConnection : public Connection {
 public:
  OdbcConnection(const std::string& connection_string, const OdbcOptions& options);

  long long Execute(const SqlText& text) override;
  Recordset Open(const SqlText& text) override;
  void OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) override;
  const std::string& ConnectionString() const override { return connection_string_; }

  // Every statement commits by itself on a server, which is what the system expects there: nothing is held
  // back. But from its first write on a handler has the server to itself (application_lock.h).
  void BeginHandler() override { ++handlers_; }
  void EndHandler() override;
  void CommitHandler() override { GiveLockBack(); }

  // See odbc_database.h.
  std::vector<std::string> TableNames();

  void SetTraceHook(TraceHook hook) override { trace_ = std::move(hook); }

 private:
  // Throws the batch's error.
  Batch Run(std::string_view text);
  Batch RunAlone(std::string_view text, const std::string& statement);
  Batch RunTraced(std::string_view text, const std::string& statement);
  Batch Send(std::string_view text, std::chrono::seconds limit, bool has_lead = false);
  bool IsServer() const { return link_.Traits().dialect == Dialect::kTsqlServer; }
  void TakeLock(const std::string& statement);
  void GiveLockBack();
  void RequireLink(const std::string& statement) const;
  DatabaseError ErrorOf(const Diagnostic& diagnostic, const std::string& statement);

  std::string connection_string_;
  std::vector<std::string> passwords_;  // of the text, that no message shows them
  OdbcOptions options_;
  Link link_;
  Deadline deadline_;
  bool lost_ = false;
  bool uses_lock_ = false;
  bool has_lock_ = false;
  int handlers_ = 0;
  TraceHook trace_;
};

}  // namespace tarvoni::odbc
