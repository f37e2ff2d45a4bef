#pragma once

#include <atomic>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace tarvoni::odbc {

// The tokens of one answer as a T-SQL server sends them, so that the FreeTDS driver can be tested without a
// server.
class TdsAnswer {
 public:
  enum class Type {
    kBit,
    kTinyInt,
    kSmallInt,
    kInt,
    kBigInt,
    kReal,
    kFloat,
    kMoney,
    kDecimal,
    kDateTime,
    kVarChar,
    kNVarChar,
    kNVarCharMax
  };
  struct Column {
    std::string name;
    Type type;
    int size = 0;  // of texts in characters, of decimals the precision
    int scale = 0;
  };

  TdsAnswer& Columns(const std::vector<Column>& columns);
  // Every row is begun once, then filled with its values in order.
  TdsAnswer& Row();
  TdsAnswer& Null();
  // Whole numbers, flags, money in ten-thousandths and decimals without their point.
  TdsAnswer& Whole(std::int64_t value);
  TdsAnswer& Float(double value);
  TdsAnswer& DateTime(std::int32_t days, std::uint32_t three_hundredths);
  TdsAnswer& Text(std::string_view utf8);
  TdsAnswer& Error(int number, int severity, std::string_view message, int line);
  // Ends one statement; `count` below zero: none is reported.
  TdsAnswer& Done(long long count = -1, bool failed = false);

  // The bytes, with the last end marked as the answer's.
  std::string Bytes() const;

 private:
  void NextCell();
  const Column& Cell() const { return columns_[cell_]; }

  std::string bytes_;
  std::vector<Column> columns_;
  std::size_t cell_ = 0;
  std::size_t last_done_ = 0;
};

// Listens on the local machine, accepts every login and answers each batch, and each call of a procedure by its name, by a
// function, each client in a thread of
// its own. An empty answer hangs up; without an answer (kSilence) the client waits for its time limit, and what it
// cancels then is acknowledged. With kGone the server has gone without a word: nothing is answered any more.
class TdsServer {
 public:
  using Answer = std::function<std::string(const std::string& batch)>;
  // The same for a session, which is counted from 1.
  using SessionAnswer = std::function<std::string(const std::string& batch, int session)>;
  enum class Login { kAccept, kRefuse, kIgnore };
  static const std::string kHangUp;
  static const std::string kSilence;
  static const std::string kGone;

  explicit TdsServer(Answer answer, Login login = Login::kAccept);
  explicit TdsServer(SessionAnswer answer, Login login = Login::kAccept);
  ~TdsServer();

  int Port() const { return port_; }
  std::vector<std::string> Batches() const;
  int Cancellations() const { return cancellations_; }

 private:
  void Serve();
  void Converse(int client, int session);
  bool Reply(int client, int session, int type, const std::string& request);

  SessionAnswer answer_;
  Login login_;
  int listener_ = -1;
  int port_ = 0;
  std::atomic<int> cancellations_{0};
  std::atomic<bool> gone_{false};
  std::atomic<bool> stopping_{false};
  mutable std::mutex mutex_;
  std::vector<std::string> batches_;
  std::vector<std::thread> clients_;
  std::thread thread_;
};

}  // namespace tarvoni::odbc
