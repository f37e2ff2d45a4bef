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
    "noch ausgeführt wurde, ist ungewiss. Bitte das Programm neu starten und die letzte Eingabe prüfen.";
constexpr std::string_view kStillLost =
    "Die Verbindung zum Datenbankserver ist abgebrochen. Bitte das Programm neu starten.";

std::string TimeoutText(std::chrono::seconds limit) {
  return "Der Datenbankserver hat nicht innerhalb von " + std::to_string(limit.count()) +
         " Sekunden geantwortet. Die Anweisung wurde abgebrochen und wird nicht wiederholt; ob sie noch "
         "ausgeführt wurde, ist ungewiss. Die Verbindung besteht weiter.";
}

// It did not answer to the cancellation either.
std::string GoneText(std::chrono::seconds limit) {
  return "Der Datenbankserver hat nicht innerhalb von " + std::to_string(limit.count()) +
         " Sekunden geantwortet, auch nicht darauf, dass die Anweisung abgebrochen wurde; die Verbindung zu ihm ist "
         "beendet. Die Anweisung wird nicht wiederholt; ob sie noch ausgeführt wurde, ist ungewiss. Bitte das "
         "Programm neu starten und die letzte Eingabe prüfen.";
}

}  // namespace

OdbcConnection::OdbcConnection(const std::string& connection_string, const OdbcOptions& options)
    : connection_string_(connection_string),
      passwords_(PasswordsIn(connection_string)),
      options_(options),
      link_(DriverText(connection_string), options.login_timeout),
      deadline_(link_.Socket()),
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
  Batch batch = Send(sent.text, options_.query_timeout, sent.has_lead);
  const int error = batch.Failure() ? ErrorOf(*batch.Failure(), statement).Number() : 0;
  if (trace_) trace_({statement, Instant::now() - started, batch.AffectedRows(), error});
  return batch;
}

// A batch with nothing in it is one for a file, and an error for the driver manager.
Batch OdbcConnection::Send(std::string_view text, std::chrono::seconds limit, bool has_lead) {
  Batch batch(link_.Get(), link_.Traits().wide_text, limit);
  if (IsBlankBatch(text)) return batch;
  deadline_.Start(limit);
  batch.Run(text, has_lead);
  deadline_.Stop();
  return batch;
}

void OdbcConnection::TakeLock(const std::string& statement) {
  Batch batch = Send(TakeLockText(options_.lock_timeout), options_.query_timeout);
  if (batch.Failure()) throw ErrorOf(*batch.Failure(), statement);
  const Recordset answer = batch.Rows();
  has_lock_ = answer.IsOpen() && answer.RecordCount() == 1 && IsGranted(answer.Fields()[0].Value());
  if (!has_lock_) throw DatabaseError(kErrorBusy, std::string(kLockNotGranted), 0, 0, statement);
}

// A session that cannot give the lock back must end, or nobody else could write any more; the server takes it then.
void OdbcConnection::GiveLockBack() {
  if (!std::exchange(has_lock_, false) || lost_) return;
  if (!Send(kGiveLockBack, options_.lock_timeout).Failure()) return;
  lost_ = true;
  link_.Close();
}

void OdbcConnection::RequireLink(const std::string& statement) const {
  if (lost_) throw DatabaseError(kErrorConnection, std::string(kStillLost), 0, 0, statement);
}

DatabaseError OdbcConnection::ErrorOf(const Diagnostic& diagnostic, const std::string& statement) {
  const std::string message = WithoutPassword(PlainMessage(diagnostic), passwords_);
  if (diagnostic.IsLostConnection() || deadline_.HasStruck() || link_.IsDead()) {
    lost_ = true;
    if (deadline_.HasStruck()) return {kErrorConnection, GoneText(options_.query_timeout), 0, 0, statement};
    return {kErrorConnection, std::string(kLost) + " Meldung: " + message, 0, 0, statement};
  }
  if (diagnostic.IsTimeout()) return {kErrorBusy, TimeoutText(options_.query_timeout), 0, 0, statement};
  return {ErrorNumber(diagnostic, link_.Traits().dialect), message, diagnostic.line, 0, statement};
}

std::vector<std::string> OdbcConnection::TableNames() {
  RequireLink("");
  Batch batch(link_.Get(), link_.Traits().wide_text, options_.query_timeout);
  deadline_.Start(options_.query_timeout);
  batch.RunTables();
  deadline_.Stop();
  if (batch.Failure()) throw ErrorOf(*batch.Failure(), "");
  constexpr int kName = 2;
  std::vector<std::string> names;
  for (Recordset rows = batch.Rows(); !rows.EndOfFile(); rows.MoveNext())
    names.push_back(ToDisplayText(rows.Fields()[kName].Value()));
  return names;
}

std::shared_ptr<Connection> OpenOdbc(const std::string& connection_string, const OdbcOptions& options) {
  return std::make_shared<OdbcConnection>(connection_string, options);
}

std::vector<std::string> TableNames(Connection& connection) {
  return dynamic_cast<OdbcConnection&>(connection).TableNames();
}

}  // namespace tarvoni::odbc
