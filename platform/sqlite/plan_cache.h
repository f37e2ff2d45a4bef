#pragma once

#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/sqlite/prepared_parts.h"
#include "platform/sqlite/temporary_tables.h"
#include "platform/tsql/public/lexer.h"
#include "platform/tsql/public/plan.h"

namespace tarvoni::sqlite {

// A plan with what its runs leave for the next: prepared statements and temporary tables.
class PreparedPlan {
 public:
  // `lexed` is the batch the plan was made from.
  PreparedPlan(Handle& handle, IdentityValues& identities, tsql::Plan plan, const tsql::LexedBatch& lexed);

  const tsql::Plan& Plan() const { return plan_; }
  TemporaryTables& Temporary() { return temporary_; }
  // The statement of a step, prepared at its first use: a table of the batch itself must be there by then.
  Statement& Prepared(std::size_t step, const tsql::Sql& sql);
  // Its parts, prepared with it.
  PreparedParts& PartsOf(std::size_t step) { return parts_[step]; }
  bool IsPrepared(std::size_t step) const { return static_cast<bool>(prepared_[step]); }
  // Where the step stands in `lexed`, a batch of the same shape.
  tsql::Position PositionOf(std::size_t step, const tsql::LexedBatch& lexed) const;
  bool IsTemporary(std::string_view table) const;
  // True when a step writes into the file.
  bool Writes() const { return writes_; }
  // True when the literals that are part of the plan are those of `lexed`.
  bool Serves(const tsql::LexedBatch& lexed) const;

 private:
  bool WritesFile(const tsql::Step& step) const;

  Handle& handle_;
  tsql::Plan plan_;
  std::vector<std::size_t> tokens_;  // the token at which a step begins
  std::vector<std::string> temporary_names_;
  bool writes_ = false;
  TemporaryTables temporary_;
  std::vector<Statement> prepared_;
  std::map<std::size_t, PreparedParts> parts_;  // few statements have any
};

using PreparedPlanPtr = std::shared_ptr<PreparedPlan>;

// The plans used last, by the shape of their text and the table of IDENTITY_INSERT.
class PlanCache {
 public:
  explicit PlanCache(std::size_t capacity) : capacity_(capacity) {}

  PreparedPlanPtr Find(const tsql::LexedBatch& lexed, std::string_view identity_insert);
  void Add(const tsql::LexedBatch& lexed, std::string_view identity_insert, PreparedPlanPtr plan);
  void Clear();
  std::size_t Size() const { return plans_.size(); }

 private:
  struct Entry {
    std::string key;
    PreparedPlanPtr plan;
  };
  using Entries = std::list<Entry>;
  struct TextHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return std::hash<std::string_view>()(text); }
  };

  PreparedPlanPtr FindKey(std::string_view key, const tsql::LexedBatch& lexed);
  void DropOldest();

  std::size_t capacity_;
  Entries plans_;  // the one used last in front
  std::unordered_map<std::string, std::vector<Entries::iterator>, TextHash, std::equal_to<>> by_key_;
};

}  // namespace tarvoni::sqlite
