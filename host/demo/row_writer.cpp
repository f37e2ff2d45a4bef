#include "host/demo/row_writer.h"

#include <fmt/format.h>

#include <cassert>
#include <exception>
#include <iterator>

namespace tarvoni::demo {

void AppendLiteral(std::string& sql, long long number) {
  fmt::format_to(std::back_inserter(sql), "{}", number);
}

void AppendLiteral(std::string& sql, bool flag) {
  sql += flag ? '1' : '0';
}

// As a text: a number's digits would give each amount a type, and so each statement a plan, of its own.
void AppendLiteral(std::string& sql, const Decimal& number) {
  AppendLiteral(sql, number.ToString());
}

// Without separators a server reads it alike under every language.
void AppendLiteral(std::string& sql, const DateTime& day) {
  fmt::format_to(std::back_inserter(sql), "'{:04}{:02}{:02}'", day.year, day.month, day.day);
}

void AppendLiteral(std::string& sql, std::string_view text) {
  sql += '\'';
  for (const char c : text) {
    if (c == '\'') sql += c;
    sql += c;
  }
  sql += '\'';
}

void AppendLiteral(std::string& sql, Null) {
  sql += "NULL";
}

RowWriter::RowWriter(Connection& connection, std::string_view table, std::string_view columns, Keys keys)
    : connection_(connection), head_(fmt::format("INSERT INTO {} ({}) VALUES\n", table, columns)) {
  if (keys == Keys::kFromDatabase) return;
  head_ = fmt::format("SET IDENTITY_INSERT {} ON\n{}", table, head_);
  tail_ = fmt::format("\nSET IDENTITY_INSERT {} OFF", table);
}

RowWriter::~RowWriter() {
  assert(rows_.empty() || std::uncaught_exceptions() > 0);
}

void RowWriter::Write(Rows& rows) {
  if (rows.cells == 0) return;
  connection_.Execute(SqlText::Verbatim(head_ + rows.sql + tail_));
  rows = {};
}

void RowWriter::Finish() {
  for (auto& [nulls, rows] : rows_) Write(rows);
  rows_.clear();
}

}  // namespace tarvoni::demo
