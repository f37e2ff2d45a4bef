#pragma once

#include <string>
#include <string_view>

#include "src/context/data/sql_text.h"

namespace tarvoni {

// A statement that a test puts together itself, or that is wrong on purpose.
inline SqlText Sql(std::string_view text) {
  return SqlText::Verbatim(std::string(text));
}

}  // namespace tarvoni
