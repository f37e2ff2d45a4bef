#pragma once

#include <map>
#include <string>
#include <vector>

#include "platform/tsql/bound.h"
#include "platform/tsql/public/compile.h"
#include "platform/tsql/public/lexer.h"

namespace tarvoni::tsql {

// The tables a statement can see: those of the database and those its batch has created before it.
class BatchCatalogue {
 public:
  explicit BatchCatalogue(const Catalogue& database, std::string suffix)
      : database_(&database), suffix_(std::move(suffix)) {}

  std::shared_ptr<const TableDefinition> Find(std::string_view name) const;
  // The name under which the table stands in the file, with its schema, ready to be written.
  std::string StoredName(std::string_view name) const;
  bool CreatedHere(std::string_view name) const { return FindCreated(name) != nullptr; }
  // How many temporary tables the batch has made, dropped or not.
  int Temporaries() const { return temporaries_; }

  void Create(TableDefinition table);
  void Drop(std::string_view name);
  // The table has one more unique key from here on.
  void AddKey(std::string_view name, std::vector<int> columns);

 private:
  struct Created {
    std::shared_ptr<const TableDefinition> table;
    std::string stored_name;
  };
  const Created* FindCreated(std::string_view name) const;

  const Catalogue* database_;
  std::string suffix_;
  std::vector<Created> created_;
  int temporaries_ = 0;
};

// What is shared by everything that binds one batch.
struct BindState {
  const LexedBatch* lexed;
  BatchCatalogue* tables;
  std::vector<PinnedLiteral> pinned;
  std::string identity_insert;
  int next_source = 1;
  std::vector<bool> is_pinned = {};  // by the place of the literal
  int repeated = 0;                  // NULLIFs around the current one whose first argument is bound twice
  std::vector<std::shared_ptr<const TableDefinition>> read =
      {};  // the tables that queries of a statement name

  const std::string& LiteralText(int index) const { return lexed->literals[static_cast<size_t>(index)].text; }
  // INT, the smallest DECIMAL that holds it, FLOAT, or text.
  Type NaturalType(const BoundParameter& parameter) const;
  // Makes the literal's value part of the plan.
  BoundConstant Pin(const BoundParameter& parameter);
};

inline bool IsTemporary(std::string_view table) {
  return !table.empty() && table.front() == '#';
}

// "NAME" with its quotes doubled, as SQLite reads a name.
std::string QuoteName(std::string_view name);

}  // namespace tarvoni::tsql
