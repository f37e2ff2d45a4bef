#include "tests/odbc/tds_server.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <bit>
#include <cstring>
#include <stdexcept>

#include "platform/odbc/wide_text.h"

namespace tarvoni::odbc {
namespace {

constexpr std::size_t kPacketSize = 4096;
constexpr std::size_t kHeaderSize = 8;
constexpr int kSqlBatch = 0x01, kProcedure = 0x03, kReply = 0x04, kAttention = 0x06, kLogin = 0x10,
              kPrelogin = 0x12;
constexpr int kDoneMore = 0x01, kDoneError = 0x02, kDoneCount = 0x10, kDoneAttention = 0x20;
const std::string kLatinCollation("\x09\x04\xD0\x00\x34", 5);

template <typename T>
std::string Raw(T value) {
  static_assert(std::endian::native == std::endian::little);
  std::string bytes(sizeof value, '\0');
  std::memcpy(bytes.data(), &value, sizeof value);
  return bytes;
}

std::string Byte(int value) {
  return std::string(1, static_cast<char>(value));
}

std::string Ucs2(std::string_view utf8) {
  const std::u16string wide = ToWide(utf8);
  return std::string(reinterpret_cast<const char*>(wide.data()), wide.size() * 2);
}

std::string FromUcs2(std::string_view bytes) {
  std::u16string wide(bytes.size() / 2, u'\0');
  std::memcpy(wide.data(), bytes.data(), wide.size() * 2);
  return FromWide(wide);
}

std::string Named(std::string_view utf8) {
  const std::string text = Ucs2(utf8);
  return Byte(static_cast<int>(text.size() / 2)) + text;
}

std::string Latin1252(std::string_view utf8) {
  std::string text;
  for (const char16_t c : ToWide(utf8)) text += static_cast<char>(c == u'€' ? 0x80 : c);
  return text;
}

std::string DoneToken(int status, long long count = 0) {
  return "\xFD" + Raw<std::uint16_t>(static_cast<std::uint16_t>(status)) + std::string(2, '\0') +
         Raw<std::int64_t>(count);
}

std::string LoginAnswer() {
  const std::string body = Byte(1) + "\x74" + std::string("\0\0\x04", 3) + Named("Microsoft SQL Server") +
                           std::string("\x0F\0\0\0", 4);
  return "\xAD" + Raw(static_cast<std::uint16_t>(body.size())) + body + DoneToken(0);
}

// One option table entry for the version, one that refuses encryption.
std::string PreloginAnswer() {
  return std::string("\x00\x00\x0B\x00\x06\x01\x00\x11\x00\x01\xFF\x0F\x00\x00\x00\x00\x00\x02", 18);
}

bool ReadFully(int client, char* data, std::size_t size) {
  while (size > 0) {
    const ssize_t got = recv(client, data, size, 0);
    if (got <= 0) return false;
    data += got;
    size -= static_cast<std::size_t>(got);
  }
  return true;
}

void SendPackets(int client, std::string_view bytes) {
  do {
    const std::string_view part = bytes.substr(0, kPacketSize - kHeaderSize);
    bytes.remove_prefix(part.size());
    const std::size_t size = part.size() + kHeaderSize;
    std::string packet = Byte(kReply) + Byte(bytes.empty()) + Byte(static_cast<int>(size >> 8)) +
                         Byte(static_cast<int>(size & 255)) + std::string(4, '\0') + std::string(part);
    (void)send(client, packet.data(), packet.size(), MSG_NOSIGNAL);
  } while (!bytes.empty());
}

// A message of one or more packets; the type of the last, or -1 when the client has gone.
int ReadMessage(int client, std::string& message) {
  message.clear();
  for (;;) {
    unsigned char header[kHeaderSize];
    if (!ReadFully(client, reinterpret_cast<char*>(header), sizeof header)) return -1;
    const std::size_t size = static_cast<std::size_t>(header[2] << 8 | header[3]) - kHeaderSize;
    const std::size_t before = message.size();
    message.resize(before + size);
    if (!ReadFully(client, message.data() + before, size)) return -1;
    if (header[1] & 1) return header[0];
  }
}

// The batch's text behind the headers that precede it.
std::string BatchText(const std::string& message) {
  std::uint32_t headers = 0;
  std::memcpy(&headers, message.data(), sizeof headers);
  return FromUcs2(std::string_view(message).substr(headers));
}

// The name of the procedure that a message calls; its arguments stand behind.
std::string ProcedureName(const std::string& message) {
  std::uint32_t headers = 0;
  std::uint16_t length = 0;
  std::memcpy(&headers, message.data(), sizeof headers);
  std::memcpy(&length, message.data() + headers, sizeof length);
  return FromUcs2(std::string_view(message).substr(headers + sizeof length, std::size_t{2} * length));
}

int WidthOf(TdsAnswer::Type type) {
  using enum TdsAnswer::Type;
  switch (type) {
    case kBit:
    case kTinyInt:
      return 1;
    case kSmallInt:
      return 2;
    case kInt:
    case kReal:
      return 4;
    default:
      return 8;
  }
}

std::string TypeInfo(const TdsAnswer::Column& column) {
  using enum TdsAnswer::Type;
  const auto sized = [&](int token) { return Byte(token) + Byte(WidthOf(column.type)); };
  switch (column.type) {
    case kBit:
      return sized(0x68);
    case kReal:
    case kFloat:
      return sized(0x6D);
    case kMoney:
      return sized(0x6E);
    case kDateTime:
      return sized(0x6F);
    case kDecimal:
      return Byte(0x6A) + Byte(17) + Byte(column.size) + Byte(column.scale);
    case kVarChar:
      return Byte(0xA7) + Raw(static_cast<std::uint16_t>(column.size)) + kLatinCollation;
    case kNVarChar:
      return Byte(0xE7) + Raw(static_cast<std::uint16_t>(column.size * 2)) + kLatinCollation;
    case kNVarCharMax:
      return Byte(0xE7) + Raw<std::uint16_t>(0xFFFF) + kLatinCollation;
    default:
      return sized(0x26);
  }
}

}  // namespace

const std::string TdsServer::kHangUp = "(hang up)";
const std::string TdsServer::kSilence = "(silence)";
const std::string TdsServer::kGone = "gone";

TdsAnswer& TdsAnswer::Columns(const std::vector<Column>& columns) {
  columns_ = columns;
  cell_ = columns_.size();
  bytes_ += "\x81" + Raw(static_cast<std::uint16_t>(columns.size()));
  for (const Column& column : columns)
    bytes_ += Raw<std::uint32_t>(0) + Raw<std::uint16_t>(1) + TypeInfo(column) + Named(column.name);
  return *this;
}

TdsAnswer& TdsAnswer::Row() {
  cell_ = 0;
  bytes_ += "\xD1";
  return *this;
}

TdsAnswer& TdsAnswer::Null() {
  using enum Type;
  const Type type = columns_[cell_++].type;
  if (type == kVarChar || type == kNVarChar)
    bytes_ += Raw<std::uint16_t>(0xFFFF);
  else if (type == kNVarCharMax)
    bytes_ += Raw<std::uint64_t>(~0ULL);
  else
    bytes_ += Byte(0);
  return *this;
}

TdsAnswer& TdsAnswer::Whole(std::int64_t value) {
  const Column& column = columns_[cell_++];
  if (column.type == Type::kDecimal) {
    bytes_ += Byte(17) + Byte(value >= 0) + Raw(value < 0 ? -value : value) + Raw<std::int64_t>(0);
  } else if (column.type == Type::kMoney) {  // the high word comes first
    bytes_ += Byte(8) + Raw(static_cast<std::int32_t>(value >> 32)) + Raw(static_cast<std::uint32_t>(value));
  } else {
    const int width = WidthOf(column.type);
    bytes_ += Byte(width) + Raw(value).substr(0, static_cast<std::size_t>(width));
  }
  return *this;
}

TdsAnswer& TdsAnswer::Float(double value) {
  if (columns_[cell_++].type == Type::kReal)
    bytes_ += Byte(4) + Raw(static_cast<float>(value));
  else
    bytes_ += Byte(8) + Raw(value);
  return *this;
}

TdsAnswer& TdsAnswer::DateTime(std::int32_t days, std::uint32_t three_hundredths) {
  ++cell_;
  bytes_ += Byte(8) + Raw(days) + Raw(three_hundredths);
  return *this;
}

TdsAnswer& TdsAnswer::Text(std::string_view utf8) {
  const Type type = columns_[cell_++].type;
  const std::string text = type == Type::kVarChar ? Latin1252(utf8) : Ucs2(utf8);
  if (type == Type::kNVarCharMax)
    bytes_ += Raw<std::uint64_t>(text.size()) + Raw(static_cast<std::uint32_t>(text.size())) + text +
              (text.empty() ? "" : Raw<std::uint32_t>(0));
  else
    bytes_ += Raw(static_cast<std::uint16_t>(text.size())) + text;
  return *this;
}

TdsAnswer& TdsAnswer::Error(int number, int severity, std::string_view message, int line) {
  const std::string text = Ucs2(message);
  const std::string body = Raw<std::int32_t>(number) + Byte(1) + Byte(severity) +
                           Raw(static_cast<std::uint16_t>(text.size() / 2)) + text + Named("test") +
                           Named("") + Raw<std::uint32_t>(static_cast<std::uint32_t>(line));
  bytes_ += Byte(severity > 10 ? 0xAA : 0xAB) + Raw(static_cast<std::uint16_t>(body.size())) + body;
  return *this;
}

TdsAnswer& TdsAnswer::Done(long long count, bool failed) {
  last_done_ = bytes_.size();
  bytes_ +=
      DoneToken(kDoneMore | (failed ? kDoneError : 0) | (count >= 0 ? kDoneCount : 0), std::max(count, 0LL));
  return *this;
}

std::string TdsAnswer::Bytes() const {
  std::string bytes = bytes_;
  bytes[last_done_ + 1] = static_cast<char>(bytes[last_done_ + 1] & ~kDoneMore);
  return bytes;
}

TdsServer::TdsServer(Answer answer, Login login)
    : TdsServer([answer = std::move(answer)](const std::string& batch, int) { return answer(batch); },
                login) {}

TdsServer::TdsServer(SessionAnswer answer, Login login)
    : answer_(std::move(answer)), login_(login), listener_(socket(AF_INET, SOCK_STREAM, 0)) {
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t size = sizeof address;
  auto* const any = reinterpret_cast<sockaddr*>(&address);
  if (bind(listener_, any, size) != 0 || listen(listener_, 4) != 0 || getsockname(listener_, any, &size) != 0)
    throw std::runtime_error("no local port to listen on");
  port_ = ntohs(address.sin_port);
  thread_ = std::thread([this] { Serve(); });
}

TdsServer::~TdsServer() {
  stopping_ = true;
  thread_.join();
  close(listener_);
}

std::vector<std::string> TdsServer::Batches() const {
  const std::lock_guard lock(mutex_);
  return batches_;
}

void TdsServer::Serve() {
  while (!stopping_) {
    pollfd waiting{listener_, POLLIN, 0};
    if (poll(&waiting, 1, 20) <= 0) continue;
    const int client = accept(listener_, nullptr, nullptr);
    const int session = static_cast<int>(clients_.size()) + 1;
    clients_.emplace_back([this, client, session] {
      Converse(client, session);
      close(client);
    });
  }
  for (std::thread& client : clients_) client.join();
}

void TdsServer::Converse(int client, int session) {
  std::string message;
  while (!stopping_) {
    pollfd waiting{client, POLLIN, 0};
    if (poll(&waiting, 1, 20) == 0) continue;
    const int type = ReadMessage(client, message);
    if (type < 0 || !Reply(client, session, type, message)) return;
  }
}

bool TdsServer::Reply(int client, int session, int type, const std::string& request) {
  if (login_ == Login::kIgnore || gone_) return true;
  if (type == kPrelogin) return SendPackets(client, PreloginAnswer()), true;
  if (type == kLogin) {
    const std::string refusal =
        TdsAnswer().Error(18456, 14, "Login failed for user 'sa'.", 1).Done(-1, true).Bytes();
    SendPackets(client, login_ == Login::kAccept ? LoginAnswer() : refusal);
    return login_ == Login::kAccept;
  }
  if (type == kAttention) {
    ++cancellations_;
    return SendPackets(client, DoneToken(kDoneAttention)), true;
  }
  if (type != kSqlBatch && type != kProcedure) return false;
  const std::string text = type == kSqlBatch ? BatchText(request) : ProcedureName(request);
  {
    const std::lock_guard lock(mutex_);
    batches_.push_back(text);
  }
  std::string answer = answer_(text, session);
  if (answer == kGone) return gone_ = true;
  const bool hangs_up = answer.ends_with(kHangUp);
  if (hangs_up) answer.resize(answer.size() - kHangUp.size());
  if (answer != kSilence && !answer.empty()) SendPackets(client, answer);
  return !hangs_up;
}

}  // namespace tarvoni::odbc
