#pragma once

#include <string>
#include <string_view>

#include "platform/odbc/batch.h"
#include "platform/odbc/link.h"
#include "platform/odbc/public/odbc_database.h"

namespace tarvoni::odbc {

class OdbcConnection : public Connection {
 public:
  OdbcConnection(const std::string& connection_string, const OdbcOptions& options);

  long long Execute(const SqlText& text) override;
  Recordset Open(const SqlText& text) override;
  const std::string& ConnectionString() const override { return connection_string_; }

  // Every statement commits by itself on a server, which is what the system expects there: nothing is held
  // back.
  void BeginHandler() override {}
  void EndHandler() override {}
  void CommitHandler() override {}

  void SetTraceHook(TraceHook hook) override { trace_ = std::move(hook); }

 private:
  Batch Run(std::string_view text);
  void RequireLink(const std::string& statement) const;
  DatabaseError ErrorOf(const Diagnostic& diagnostic, const std::string& statement);

  std::string connection_string_;
  OdbcOptions options_;
  Link link_;
  bool lost_ = false;
  TraceHook trace_;
};

}  // namespace tarvoni::odbc
