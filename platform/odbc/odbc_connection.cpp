#include "platform/odbc/odbc_connection.h"

#include <utility>

#include "platform/odbc/application_lock.h"
#include "platform/odbc/connection_text.h"
#include "platform/odbc/error_number.h"
#include "platform/odbc/server_batch.h"
#include "platform/odbc/session.h"
#include "src/context/data/batch_words.h"
#include "src/context/data/password.h"

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
      passwords_(PasswordsIn(connection_string)),
      options_(options),
      link_(DriverText(connection_string), options.login_timeout),
      uses_lock_(IsServer() && WantsApplicationLock(connection_string)) {
  if (IsServer()) Run(kSessionBatch);
}

long long OdbcConnection::Execute(const SqlText& text) {
  return Run(text.Text()).AffectedRows();
}

Recordset OdbcConnection::Open(const SqlText& text) {
  return Run(text.Text()).Rows();
}

void OdbcConnection::OpenAll(const SqlText& text, const std::function<void(const BatchPart&)>& take) {
  const std::string statement = WithoutPassword(text.Text(), passwords_);
  const Batch batch = RunAlone(text.Text(), statement);
  for (const BatchPart& part : batch.Parts()) take(part);
  if (batch.Failure()) throw ErrorOf(*batch.Failure(), statement);
}

void OdbcConnection::EndHandler() {
  if (--handlers_ == 0) GiveLockBack();
}

Batch OdbcConnection::Run(std::string_view text) {
  const std::string statement = WithoutPassword(text, passwords_);
  Batch batch = RunAlone(text, statement);
  if (batch.Failure()) throw ErrorOf(*batch.Failure(), statement);
  return batch;
}

Batch OdbcConnection::RunAlone(std::string_view text, const std::string& statement) {
  RequireLink(statement);
  if (uses_lock_ && !has_lock_ && WritesTables(text)) TakeLock(statement);
  Batch batch = RunTraced(text, statement);
  if (handlers_ == 0) GiveLockBack();
  return batch;
}

Batch OdbcConnection::RunTraced(std::string_view text, const std::string& statement) {
  const auto started = Instant::now();
  const ServerBatch sent = IsServer() ? ForServer(text) : ServerBatch{std::string(text), false};
  Batch batch = Send(sent.text, sent.has_lead);
  const int error = batch.Failure() ? ErrorOf(*batch.Failure(), statement).Number() : 0;
  if (trace_) trace_({statement, Instant::now() - started, batch.AffectedRows(), error});
  return batch;
}

Batch OdbcConnection::Send(std::string_view text, bool has_lead) {
  Batch batch(link_.Get(), link_.Traits().wide_text, options_.query_timeout);
  batch.Run(text, has_lead);
  return batch;
}

void OdbcConnection::TakeLock(const std::string& statement) {
  Batch batch = Send(TakeLockText(options_.lock_timeout));
  if (batch.Failure()) throw ErrorOf(*batch.Failure(), statement);
  const Recordset answer = batch.Rows();
  has_lock_ = answer.IsOpen() && answer.RecordCount() == 1 && IsGranted(answer.Fields()[0].Value());
  if (!has_lock_) throw DatabaseError(kErrorBusy, std::string(kLockNotGranted), 0, 0, statement);
}

// A session that cannot give the lock back must end, or nobody else could write any more; the server takes it then.
void OdbcConnection::GiveLockBack() {
  if (!std::exchange(has_lock_, false) || lost_) return;
  if (!Send(kGiveLockBack).Failure()) return;
  lost_ = true;
  link_.Close();
}

void OdbcConnection::RequireLink(const std::string& statement) const {
  if (lost_) throw DatabaseError(kErrorConnection, std::string(kStillLost), 0, 0, statement);
}

DatabaseError OdbcConnection::ErrorOf(const Diagnostic& diagnostic, const std::string& statement) {
  const std::string message = WithoutPassword(PlainMessage(diagnostic), passwords_);
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
