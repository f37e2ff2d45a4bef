#include "platform/sqlite/statement.h"

#include <utility>

#include "platform/sqlite/error_map.h"

namespace tarvoni::sqlite {

namespace {

// SQLite compares each constant of a statement with all before it, to work out equal ones once. That pays in the
// statements of Screens; in one with tens of thousands of constants it takes minutes.
class ConstantsAsTheyCome {
 public:
  ConstantsAsTheyCome(sqlite3* db, std::string_view sql) : db_(sql.size() > kLongStatement ? db : nullptr) {
    Switch(kBloomFilter | kFactorOutConstants);
  }
  ConstantsAsTheyCome(const ConstantsAsTheyCome&) = delete;
  ConstantsAsTheyCome& operator=(const ConstantsAsTheyCome&) = delete;
  ~ConstantsAsTheyCome() { Switch(kBloomFilter); }

 private:
  static constexpr std::size_t kLongStatement = std::size_t{32} * 1024;
  static constexpr int kFactorOutConstants = 0x00000008;  // SQLITE_FactorOutConst in SQLite's own sources

  void Switch(int switched_off) {
    if (db_ != nullptr) sqlite3_test_control(SQLITE_TESTCTRL_OPTIMIZATIONS, db_, switched_off);
  }

  sqlite3* db_;
};

}  // namespace

Statement::Statement(Handle& handle, std::string_view sql, Use use) : handle_(&handle) {
  handle.Functions().error.reset();
  const ConstantsAsTheyCome as_they_come(handle.Raw(), sql);
  const unsigned flags = use == Use::kOften ? SQLITE_PREPARE_PERSISTENT : 0;
  const int code =
      sqlite3_prepare_v3(handle.Raw(), sql.data(), static_cast<int>(sql.size()), flags, &statement_, nullptr);
  if (code != SQLITE_OK) handle.Fail(code);
}

Statement::Statement(Statement&& other) noexcept
    : handle_(other.handle_), statement_(std::exchange(other.statement_, nullptr)) {}

Statement& Statement::operator=(Statement&& other) noexcept {
  std::swap(handle_, other.handle_);
  std::swap(statement_, other.statement_);
  return *this;
}

Statement::~Statement() {
  sqlite3_finalize(statement_);
}

void Statement::Bind(int parameter, const StoredValue& value) {
  Check(BindStored(statement_, parameter, value));
}

void Statement::BindText(int parameter, std::string_view text) {
  Check(sqlite3_bind_text64(statement_, parameter, text.data(), text.size(), SQLITE_TRANSIENT, SQLITE_UTF8));
}

void Statement::BindInteger(int parameter, std::int64_t number) {
  Check(sqlite3_bind_int64(statement_, parameter, number));
}

bool Statement::Step() {
  handle_->Functions().error.reset();
  const int code = sqlite3_step(statement_);
  if (code == SQLITE_ROW) return true;
  if (code == SQLITE_DONE) {
    Reset();
    return false;
  }
  Check(code);
  return false;
}

void Statement::Run() {
  while (Step()) {
  }
}

void Statement::Reset() {
  if (statement_ != nullptr) sqlite3_reset(statement_);
}

std::string Statement::Text(int column) const {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
  return text == nullptr
             ? std::string()
             : std::string(text, static_cast<std::size_t>(sqlite3_column_bytes(statement_, column)));
}

void Statement::Check(int code) {
  if (code == SQLITE_OK) return;
  try {
    handle_->Fail(code);
  } catch (...) {
    Reset();
    throw;
  }
}

}  // namespace tarvoni::sqlite
