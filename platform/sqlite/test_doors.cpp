#include <sqlite3.h>

#include "platform/sqlite/connection.h"
#include "platform/sqlite/error_map.h"

namespace tarvoni::sqlite {
namespace {

std::shared_ptr<Database> SharedOf(Connection& connection) {
  return dynamic_cast<SqliteConnection&>(connection).SharedOwner();
}

// SQLite turns the COMMIT that its hook refuses into a ROLLBACK, as on a disk that fails.
class CommitRefusal {
 public:
  CommitRefusal(std::shared_ptr<Database> database, int nth) : database_(std::move(database)), left_(nth) {
    sqlite3_commit_hook(database_->File().Raw(), Refuse, this);
  }
  CommitRefusal(const CommitRefusal&) = delete;
  CommitRefusal& operator=(const CommitRefusal&) = delete;
  ~CommitRefusal() { sqlite3_commit_hook(database_->File().Raw(), nullptr, nullptr); }

  bool Happened() const { return left_ <= 0; }

 private:
  static int Refuse(void* self) { return --static_cast<CommitRefusal*>(self)->left_ == 0 ? 1 : 0; }

  std::shared_ptr<Database> database_;
  int left_;
};

}  // namespace

std::function<bool()> FailCommit(Connection& connection, int nth) {
  return
      [refusal = std::make_shared<CommitRefusal>(SharedOf(connection), nth)] { return refusal->Happened(); };
}

}  // namespace tarvoni::sqlite
