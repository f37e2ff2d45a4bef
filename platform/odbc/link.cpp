#include "platform/odbc/link.h"

#include <sqlext.h>
#include <sqlucode.h>

#include <algorithm>
#include <array>

#include "platform/odbc/connection_text.h"
#include "platform/odbc/driver_text.h"
#include "platform/odbc/error_number.h"
#include "src/context/data/database_error.h"
#include "src/context/data/password.h"
#include "src/context/values/keywords.h"

namespace tarvoni::odbc {
namespace {

Handle<SQL_HANDLE_ENV> NewEnvironment() {
  Handle<SQL_HANDLE_ENV> environment(SQL_NULL_HANDLE);
  SQLSetEnvAttr(environment.Get(), SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
  return environment;
}

bool IsRefusedLogin(const Diagnostic& diagnostic) {
  constexpr int kLoginFailed = 18456;
  return diagnostic.state == "28000" || diagnostic.native == kLoginFailed;
}

// Drivers tell the cause in several records, the manager's own first.
DatabaseError OpenError(const Respondent& connection, const std::vector<std::string>& passwords) {
  const std::vector<Diagnostic> found = DiagnosticsOf(connection);
  std::string text =
      std::any_of(found.begin(), found.end(), IsRefusedLogin)
          ? "Der Datenbankserver lehnt die Anmeldung ab. Bitte Benutzername und Kennwort prüfen."
          : "Die Verbindung zur Datenbank lässt sich nicht öffnen.";
  std::string separator = " Meldung: ";
  for (const Diagnostic& diagnostic : found) {
    text += separator + PlainMessage(diagnostic);
    separator = "; ";
  }
  return {kErrorConnection, WithoutPassword(text, passwords)};
}

}  // namespace

Link::Link(const std::string& driver_text, std::chrono::seconds login_timeout)
    : environment_(NewEnvironment()), connection_(environment_.Get()) {
  SQLSetConnectAttr(Get(), SQL_ATTR_LOGIN_TIMEOUT, AsAttribute(login_timeout), SQL_IS_UINTEGER);
  // The driver can be asked only when it is loaded; its name in the text decides how the text goes there.
  traits_ = TraitsOf(Attribute(driver_text, "DRIVER").value_or(""), "");
  const SQLRETURN result = WithText(
      traits_.wide_text, driver_text,
      [&](SQLCHAR* text, SQLINTEGER size) {
        return SQLDriverConnect(Get(), nullptr, text, static_cast<SQLSMALLINT>(size), nullptr, 0, nullptr,
                                SQL_DRIVER_NOPROMPT);
      },
      [&](SQLWCHAR* text, SQLINTEGER size) {
        return SQLDriverConnectW(Get(), nullptr, text, static_cast<SQLSMALLINT>(size), nullptr, 0, nullptr,
                                 SQL_DRIVER_NOPROMPT);
      });
  if (!SQL_SUCCEEDED(result))
    throw OpenError({SQL_HANDLE_DBC, Get(), traits_.wide_text}, PasswordsIn(driver_text));
  traits_ = TraitsOf(Info(SQL_DRIVER_NAME), Info(SQL_DBMS_NAME));
}

Link::~Link() {
  Close();
}

void Link::Close() {
  SQLDisconnect(Get());
}

std::string Link::Info(SQLUSMALLINT what) const {
  std::array<char, 256> text{};
  SQLGetInfo(Get(), what, text.data(), static_cast<SQLSMALLINT>(text.size()), nullptr);
  return text.data();
}

int Link::Socket() const {
  constexpr SQLUSMALLINT kSocket = 1301;  // a question of FreeTDS alone
  SQLULEN socket = 0;
  SQLSMALLINT size = 0;
  if (!ContainsKeyword(Info(SQL_DRIVER_NAME), "TDSODBC")) return -1;
  const SQLRETURN result = SQLGetInfo(Get(), kSocket, &socket, sizeof socket, &size);
  return SQL_SUCCEEDED(result) && size == sizeof socket ? static_cast<int>(socket) : -1;
}

bool Link::IsDead() const {
  SQLUINTEGER dead = SQL_CD_FALSE;
  return SQL_SUCCEEDED(SQLGetConnectAttr(Get(), SQL_ATTR_CONNECTION_DEAD, &dead, 0, nullptr)) &&
         dead == SQL_CD_TRUE;
}

}  // namespace tarvoni::odbc
