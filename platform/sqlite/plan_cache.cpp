#include "platform/sqlite/plan_cache.h"

#include <algorithm>
#include <tuple>

namespace tarvoni::sqlite {
namespace {

bool Before(const tsql::Position& a, const tsql::Position& b) {
  return std::tie(a.line, a.column) < std::tie(b.line, b.column);
}

std::string KeyOf(const tsql::LexedBatch& lexed, std::string_view identity_insert) {
  return lexed.shape + '\n' + std::string(identity_insert);
}

template <typename Kind>
const Kind* As(const tsql::Step& step) {
  return std::get_if<Kind>(&step.action);
}

}  // namespace

PreparedPlan::PreparedPlan(Handle& handle, IdentityValues& identities, tsql::Plan plan,
                           const tsql::LexedBatch& lexed)
    : handle_(handle), plan_(std::move(plan)), temporary_(handle, identities), prepared_(plan_.steps.size()) {
  if (plan_.batch != nullptr) {
    for (const int literal : plan_.batch->pinned) {
      plan_.pinned.push_back({literal, lexed.literals[static_cast<std::size_t>(literal)].text});
    }
  }
  for (const tsql::Step& step : plan_.steps) {
    const auto token = std::ranges::lower_bound(lexed.tokens, step.at, Before, &tsql::Token::at);
    tokens_.push_back(static_cast<std::size_t>(token - lexed.tokens.begin()));
    const auto* create = As<tsql::CreateTableStep>(step);
    if (create != nullptr && create->temporary) temporary_names_.push_back(create->stored_name);
  }
  writes_ = std::ranges::any_of(plan_.steps, [this](const tsql::Step& step) { return WritesFile(step); });
}

bool PreparedPlan::WritesFile(const tsql::Step& step) const {
  if (const auto* write = As<tsql::WriteStep>(step)) return !IsTemporary(write->table);
  if (const auto* create = As<tsql::CreateTableStep>(step)) return !create->temporary;
  if (const auto* drop = As<tsql::DropTableStep>(step)) return !drop->temporary;
  return As<tsql::CreateIndexStep>(step) != nullptr;
}

bool PreparedPlan::IsTemporary(std::string_view table) const {
  return table.starts_with('#') || std::ranges::find(temporary_names_, table) != temporary_names_.end();
}

Statement& PreparedPlan::Prepared(std::size_t step, const tsql::Sql& sql) {
  Statement& statement = prepared_[step];
  if (!statement) {
    statement = Statement(handle_, sql.text, plan_.reusable ? Statement::Use::kOften : Statement::Use::kOnce);
    if (!sql.parts.empty()) parts_[step] = PreparedParts(handle_, sql);
  }
  return statement;
}

tsql::Position PreparedPlan::PositionOf(std::size_t step, const tsql::LexedBatch& lexed) const {
  const std::size_t token = tokens_[step];
  return token < lexed.tokens.size() ? lexed.tokens[token].at : plan_.steps[step].at;
}

bool PreparedPlan::Serves(const tsql::LexedBatch& lexed) const {
  return std::ranges::all_of(plan_.pinned, [&](const tsql::PinnedLiteral& pinned) {
    return lexed.literals[static_cast<std::size_t>(pinned.index)].text == pinned.text;
  });
}

PreparedPlanPtr PlanCache::Find(const tsql::LexedBatch& lexed, std::string_view identity_insert) {
  if (identity_insert.empty()) return FindKey(lexed.shape, lexed);
  return FindKey(KeyOf(lexed, identity_insert), lexed);
}

PreparedPlanPtr PlanCache::FindKey(std::string_view key, const tsql::LexedBatch& lexed) {
  const auto found = by_key_.find(key);
  if (found == by_key_.end()) return nullptr;
  for (const auto& entry : found->second) {
    if (!entry->plan->Serves(lexed)) continue;
    plans_.splice(plans_.begin(), plans_, entry);
    return entry->plan;
  }
  return nullptr;
}

void PlanCache::Add(const tsql::LexedBatch& lexed, std::string_view identity_insert, PreparedPlanPtr plan) {
  if (plans_.size() >= capacity_) DropOldest();
  std::string key = identity_insert.empty() ? lexed.shape : KeyOf(lexed, identity_insert);
  plans_.push_front({key, std::move(plan)});
  by_key_[std::move(key)].push_back(plans_.begin());
}

void PlanCache::DropOldest() {
  const auto oldest = std::prev(plans_.end());
  const auto variants = by_key_.find(oldest->key);
  std::erase(variants->second, oldest);
  if (variants->second.empty()) by_key_.erase(variants);
  plans_.erase(oldest);
}

void PlanCache::Clear() {
  by_key_.clear();
  plans_.clear();
}

}  // namespace tarvoni::sqlite
