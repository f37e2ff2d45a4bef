#pragma once

#include <sql.h>

#include <chrono>
#include <string>

#include "platform/odbc/diagnostics.h"
#include "platform/odbc/driver_traits.h"
#include "platform/odbc/handle.h"

namespace tarvoni::odbc {

// An open connection of the driver manager, closed with the object.
class Link {
 public:
  // Throws DatabaseError kErrorConnection.
  Link(const std::string& driver_text, std::chrono::seconds login_timeout);
  Link(const Link&) = delete;
  Link& operator=(const Link&) = delete;
  ~Link();

  SQLHANDLE Get() const { return connection_.Get(); }
  const DriverTraits& Traits() const { return traits_; }
  // The socket of the session, -1 if the driver does not tell.
  int Socket() const;
  // Ends the session; nothing can be sent any more.
  void Close();
  // Whether the driver knows that the other side has gone.
  bool IsDead() const;

 private:
  std::string Info(SQLUSMALLINT what) const;

  Handle<SQL_HANDLE_ENV> environment_;
  Handle<SQL_HANDLE_DBC> connection_;
  DriverTraits traits_;
};

}  // namespace tarvoni::odbc
