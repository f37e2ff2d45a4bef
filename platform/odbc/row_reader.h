#pragma once

#include <sql.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/odbc/diagnostics.h"
#include "src/context/data/recordset.h"

namespace tarvoni::odbc {

// Reads the result at which a statement stands, to its end.
class RowReader {
 public:
  // `columns` is above zero.
  RowReader(const Respondent& statement, SQLSMALLINT columns);

  // The rows up to the end or to the error that ended them.
  RowSet Read();
  const std::optional<Diagnostic>& Failure() const { return failure_; }

 private:
  Column Describe(SQLUSMALLINT number);
  Value Cell(SQLUSMALLINT number, FieldType type);
  template <typename T>
  std::optional<T> Fixed(SQLUSMALLINT number, SQLSMALLINT c_type);
  template <typename Unit>
  std::optional<std::basic_string<Unit>> Pieces(SQLUSMALLINT number, SQLSMALLINT c_type);
  Value Number(SQLUSMALLINT number);
  Value Text(SQLUSMALLINT number);
  Value Date(SQLUSMALLINT number);
  bool Check(SQLRETURN result);

  Respondent statement_;
  SQLSMALLINT count_;
  std::vector<char16_t> piece_;
  std::optional<Diagnostic> failure_;
};

}  // namespace tarvoni::odbc
