#pragma once

#include <sql.h>

#include <new>
#include <utility>

namespace tarvoni::odbc {

// Owns one handle of the driver manager: kType is SQL_HANDLE_ENV, SQL_HANDLE_DBC or SQL_HANDLE_STMT.
template <SQLSMALLINT kType>
class Handle {
 public:
  explicit Handle(SQLHANDLE parent) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kType, parent, &handle_))) throw std::bad_alloc();
  }
  Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
  Handle& operator=(Handle&&) = delete;
  ~Handle() {
    if (handle_ != nullptr) SQLFreeHandle(kType, handle_);
  }

  SQLHANDLE Get() const { return handle_; }

 private:
  SQLHANDLE handle_ = nullptr;
};

}  // namespace tarvoni::odbc
