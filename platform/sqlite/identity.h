#pragma once

#include <cstdint>
#include <list>
#include <optional>
#include <string>
#include <string_view>

#include "platform/sqlite/statement.h"
#include "platform/tsql/public/catalogue.h"

namespace tarvoni::sqlite {

// The values that identity columns give. A value once given is not given again, even if its row never came to
// be or is deleted. Within a transaction the last values are kept here, since no other process can write
// then; Flush notes them in the file before the commit.
class IdentityValues {
 public:
  explicit IdentityValues(Handle& handle) : handle_(handle) {}

  // Notes the identity column of a new table, if it has one; Forget removes the note.
  void Note(const tsql::TableDefinition& table);
  void Forget(const std::string& table);
  // The same for a temporary table, of which nothing is kept in the file.
  void NoteTemporary(const tsql::TableDefinition& table);
  void ForgetTemporary(std::string_view name);

  // The next value of a table within a write transaction; nothing when it has no identity or runs out of
  // numbers.
  std::optional<std::int64_t> Next(std::string_view table);
  // The last value given, the seed before the first; nothing for a table without an identity.
  std::optional<std::int64_t> Current(std::string_view table);
  // Takes an explicit value beyond the last one as the last.
  void RaiseTo(std::string_view table, std::int64_t value);

  // Writes the values of this transaction to the file.
  void Flush();
  // What is kept ends with its transaction.
  void EndTransaction(bool rolled_back);

 private:
  struct Sequence {
    std::string table;
    std::int64_t seed = 1;
    std::int64_t step = 1;
    std::optional<std::int64_t> last;
    bool changed = false;
    bool temporary = false;
  };
  using Sequences = std::list<Sequence>;

  Sequence* Find(std::string_view table);
  std::optional<Sequence> Read(std::string_view table);
  bool HasNotes();

  Handle& handle_;
  Sequences kept_;
  Sequences temporary_;
  Statement read_;
  Statement write_;
};

}  // namespace tarvoni::sqlite
