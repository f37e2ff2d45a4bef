#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "platform/sqlite/handle.h"

namespace tarvoni::sqlite {

// Gives a file the mark that tells it and its copies from all others, unless it has one.
void LayDownMark(Handle& handle);

// Where a file comes from and how far it has got.
struct Lineage {
  bool is_ours = false;
  std::string mark;  // empty for a file of an earlier release or of another program
  // How many identity values each table has given, which only grows.
  std::map<std::string, std::int64_t> given;

  // Whether this file is a copy of the other one, or of what it once was.
  bool IsOlderCopyOf(const Lineage& other) const;
};

Lineage LineageOf(Handle& handle);

}  // namespace tarvoni::sqlite
