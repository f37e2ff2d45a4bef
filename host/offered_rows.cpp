#include "host/offered_rows.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "host/methods.h"
#include "src/context/data/database_error.h"

namespace tarvoni::host {
namespace {

const OfferedRows* Find(const std::vector<OfferedRows>& lists, std::string_view statement) {
  const auto found = std::ranges::find(lists, statement, &OfferedRows::statement);
  return found == lists.end() ? nullptr : &*found;
}

void Add(std::vector<OfferedRows>& lists, const Workplace& workplace, const ArgumentField& field,
         const ChoiceScope& scope) {
  const SqlText statement = field.choices(scope);
  if (Find(lists, statement.Text())) return;
  OfferedRows list{
      .label = scope.plan ? "Plan" : field.label, .statement = std::string(statement.Text()), .rows = {}};
  try {
    list.rows = workplace.Choices(statement);
  } catch (const DatabaseError&) {
    return;
  }
  lists.push_back(std::move(list));
}

}  // namespace

std::vector<OfferedRows> AllOffered(const Workplace& workplace, const ChoiceScope& scope) {
  std::vector<OfferedRows> lists;
  for (const bool plan : {false, true}) {
    ChoiceScope of_kind = scope;
    of_kind.plan = plan;
    for (const Method& method : Methods()) {
      for (const ArgumentField& field : FieldsOf(method.name)) {
        if (field.choices) Add(lists, workplace, field, of_kind);
      }
    }
  }
  return lists;
}

std::vector<OfferedRows> NewlyOffered(const std::vector<OfferedRows>& before,
                                      const std::vector<OfferedRows>& after) {
  std::vector<OfferedRows> made;
  for (const OfferedRows& list : after) {
    const OfferedRows* const old = Find(before, list.statement);
    if (!old) continue;
    OfferedRows fresh{.label = list.label, .statement = list.statement, .rows = {}};
    std::ranges::copy_if(list.rows, std::back_inserter(fresh.rows), [&](const Choice& row) {
      return std::ranges::find(old->rows, row.id, &Choice::id) == old->rows.end();
    });
    if (!fresh.rows.empty()) made.push_back(std::move(fresh));
  }
  return made;
}

}  // namespace tarvoni::host
