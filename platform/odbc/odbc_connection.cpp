#include "platform/odbc/odbc_connection.h"

#include <utility>

#include "platform/odbc/connection_text.h"
#include "platform/odbc/error_number.h"
#include "platform/odbc/public/password.h"
#include "platform/odbc/server_batch.h"
#include "platform/odbc/session.h"

namespace tarvoni::odbc {
namespace {

using Instant = std::chrono::steady_clock;

constexpr std::string_view kLost =
    "Die Verbindung zum Datenbankserver ist abgebrochen. Die letzte Anweisung wird nicht wiederholt; ob sie "
    "noch "
    "ausgeführt wurde, ist ungewiss. Bitte das Programm neu starten und die letzte Eingabe prüfen.";
constexpr std::string_view kStillLost =
    "Die Verbindung zum Datenbankserver ist abgebrochen. Bitte das Programm neu starten.";

std::string TimeoutText(std::chrono::seconds limit) {
  return "Der Datenbankserver hat nicht innerhalb von " + std::to_string(limit.count()) +
         " Sekunden geantwortet. Die Anweisung wurde abgebrochen und wird nicht wiederholt; ob sie noch "
         "ausgeführt "
         "wurde, ist ungewiss.";
}

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connection_string, const OdbcOptions& options)
    : connection_string_(connection_string),
      options_(options),
      link_(DriverText(connection_string), options.login_timeout) {
  if (link_.Traits().dialect == Dialect::kTsqlServer) Run(kSessionBatch);
}

long long OdbcConnection::Execute(const SqlText& text) {
  return Run(text.Text()).AffectedRows();
}

Recordset OdbcConnection::Open(const SqlText& text) {
  Batch batch = Run(text.Text());
  return batch.Rows() ? Recordset(std::move(*batch.Rows())) : Recordset();
}

Batch OdbcConnection::Run(std::string_view text) {
  const std::string statement = WithoutPassword(text);
  RequireLink(statement);
  const auto started = Instant::now();
  const bool server = link_.Traits().dialect == Dialect::kTsqlServer;
  const ServerBatch sent = server ? ForServer(text) : ServerBatch{std::string(text), false};
  Batch batch(link_.Get(), link_.Traits().wide_text, options_.query_timeout);
  batch.Run(sent.text, sent.has_lead);
  TraceEvent event{statement, Instant::now() - started, batch.AffectedRows(), 0};
  if (!batch.Failure()) {
    if (trace_) trace_(event);
    return batch;
  }
  const DatabaseError error = ErrorOf(*batch.Failure(), statement);
  event.error_number = error.Number();
  if (trace_) trace_(event);
  throw error;
}

void OdbcConnection::RequireLink(const std::string& statement) const {
  if (lost_) throw DatabaseError(kErrorConnection, std::string(kStillLost), 0, 0, statement);
}

DatabaseError OdbcConnection::ErrorOf(const Diagnostic& diagnostic, const std::string& statement) {
  const std::string message = PlainMessage(diagnostic);
  if (diagnostic.IsLostConnection() || link_.IsDead()) {
    lost_ = true;
    return {kErrorConnection, std::string(kLost) + " Meldung: " + message, 0, 0, statement};
  }
  if (diagnostic.IsTimeout()) return {kErrorBusy, TimeoutText(options_.query_timeout), 0, 0, statement};
  return {ErrorNumber(diagnostic, link_.Traits().dialect), message, diagnostic.line, 0, statement};
}

std::shared_ptr<Connection> OpenOdbc(const std::string& connection_string, const OdbcOptions& options) {
  return std::make_shared<OdbcConnection>(connection_string, options);
}

}  // namespace tarvoni::odbc
