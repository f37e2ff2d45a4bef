#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "src/context/data/sql_text.h"

// The statements of F_PA_Gruppe. Arguments called `category` and `product` are Tags of code boxes.
namespace tarvoni::pa_gruppe_sql {

// Makes a group unless the client has one of this name; gives its id, 0 for a name that is taken.
SqlText CreateGroup(std::string_view name, int year, std::int32_t client);
SqlText GroupShown(std::int32_t group);
SqlText IsCentral(std::string_view category);
// The highest number of the client's groups in the category plus one; the first is the range's begin plus one.
SqlText NextNumber(std::int32_t client, std::string_view category);
SqlText RangeOfCategory(std::string_view category);
// How many other groups of the client have this number.
SqlText CountOfNumber(std::string_view number, std::int32_t client, std::int32_t group);

// A group as it is typed.
struct Group {
  std::string product;   // Tag
  std::string category;  // Tag
  std::string number;
  std::string year;
  std::string description;
};
SqlText UpdateGroup(std::int32_t group, const Group& typed);
// Takes back a group that was never saved.
SqlText TakeBackGroup(std::int32_t group);

SqlText NameOfGroup(std::int32_t group);
SqlText CountOfOrders(std::int32_t group);
SqlText DeleteGroup(std::int32_t group);

}  // namespace tarvoni::pa_gruppe_sql
