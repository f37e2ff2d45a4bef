#pragma once

#include <stdexcept>
#include <string>

namespace tarvoni {

// A failed statement of either backend, with the number a T-SQL server gives where there is one.
class DatabaseError : public std::runtime_error {
 public:
  DatabaseError(int number, const std::string& message, int line = 0, int column = 0,
                std::string statement = {})
      : std::runtime_error(message),
        number_(number),
        line_(line),
        column_(column),
        statement_(std::move(statement)) {}

  int Number() const { return number_; }
  // Place in the text that was sent, counted from 1; 0 when it is not known.
  int Line() const { return line_; }
  int Column() const { return column_; }
  // The text that was sent; passwords never stand in it.
  const std::string& Statement() const { return statement_; }

 private:
  int number_;
  int line_;
  int column_;
  std::string statement_;
};

// Numbers of our own, above those of the server.
inline constexpr int kErrorNotSupported = 50001;    // a construct the embedded database does not know
inline constexpr int kErrorConnection = 50002;      // the database cannot be opened, or was lost
inline constexpr int kErrorBusy = 50003;            // another program holds the file
inline constexpr int kErrorReadOnly = 50004;        // the file or its folder cannot be written
inline constexpr int kErrorDamaged = 50005;         // the file is damaged or no database
inline constexpr int kErrorDiskFull = 50006;        // no space left
inline constexpr int kErrorNewerSchema = 50007;     // made by a newer release
inline constexpr int kErrorInvalidArgument = 3001;  // ADO: a criterion or position that makes no sense
inline constexpr int kErrorNoCurrentRow =
    3021;  // ADO: the recordset stands before the first or behind the last row
inline constexpr int kErrorItemNotFound = 3265;  // ADO: no field of that name or number
inline constexpr int kErrorObjectClosed = 3704;  // ADO: the recordset is closed

}  // namespace tarvoni
