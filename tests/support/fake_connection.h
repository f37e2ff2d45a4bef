#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/data/database.h"

namespace tarvoni::test {

inline RowSet Rows(std::vector<Column> columns, std::vector<Value> cells = {}) {
  return {.columns = std::move(columns), .cells = std::move(cells)};
}

inline Column Whole(std::string name) {
  return {.name = std::move(name), .type = FieldType::kInteger, .size = 0};
}
inline Column Chars(std::string name) {
  return {.name = std::move(name), .type = FieldType::kVarChar, .size = 50};
}

// A database that knows its answers by the text of the statement, and keeps what was sent. "COMMIT" stands in
// the log where the writes before it became durable.
class FakeConnection : public Connection {
 public:
  void Answer(const std::string& statement, RowSet rows) { answers_[statement] = std::move(rows); }
  void Refuse(const std::string& statement) { refused_ = statement; }
  const std::vector<std::string>& Log() const { return log_; }
  void ClearLog() { log_.clear(); }
  int Depth() const { return depth_; }

  long long Execute(const SqlText& text) override {
    Send(text.Text());
    pending_ = true;
    return 1;
  }

  Recordset Open(const SqlText& text) override {
    Send(text.Text());
    const auto answer = answers_.find(std::string(text.Text()));
    if (answer == answers_.end())
      throw DatabaseError(208, "Invalid object name: " + std::string(text.Text()));
    return Recordset(answer->second);
  }

  void OpenAll(const SqlText&, const std::function<void(const BatchPart&)>&) override {}
  const std::string& ConnectionString() const override { return name_; }
  void BeginHandler() override { ++depth_; }
  void EndHandler() override {
    if (--depth_ == 0) CommitHandler();
  }
  void CommitHandler() override {
    if (pending_) log_.emplace_back("COMMIT");
    pending_ = false;
  }
  void SetTraceHook(TraceHook) override {}

 private:
  void Send(std::string_view text) {
    log_.emplace_back(text);
    if (text == refused_) throw DatabaseError(245, "Conversion failed.");
  }

  inline static int made_ = 0;
  std::string name_ = "fake" + std::to_string(++made_);
  std::map<std::string, RowSet> answers_;
  std::string refused_;
  std::vector<std::string> log_;
  int depth_ = 0;
  bool pending_ = false;
};

}  // namespace tarvoni::test
