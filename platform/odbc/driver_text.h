#pragma once

#include <sql.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <string_view>

#include "platform/odbc/wide_text.h"

namespace tarvoni::odbc {

// The driver interface knows texts as mutable pointers and UTF-16 as an integer type.
inline SQLCHAR* AsNarrow(const char* text) {
  return reinterpret_cast<SQLCHAR*>(const_cast<char*>(text));
}
inline SQLWCHAR* AsWide(const char16_t* text) {
  static_assert(sizeof(SQLWCHAR) == sizeof(char16_t));
  return reinterpret_cast<SQLWCHAR*>(const_cast<char16_t*>(text));
}

// An attribute that is a number stands in the place of the pointer.
inline SQLPOINTER AsAttribute(std::chrono::seconds time) {
  return reinterpret_cast<SQLPOINTER>(static_cast<SQLULEN>(time.count()));
}

// Calls `narrow` with the text in UTF-8 or `wide` with it in UTF-16: pointer, then length in units.
template <typename Narrow, typename Wide>
SQLRETURN WithText(bool is_wide, std::string_view text, Narrow narrow, Wide wide) {
  if (!is_wide) return narrow(AsNarrow(text.data()), static_cast<SQLINTEGER>(text.size()));
  const std::u16string converted = ToWide(text);
  return wide(AsWide(converted.data()), static_cast<SQLINTEGER>(converted.size()));
}

// Room for a text that a driver writes in UTF-8 or in UTF-16.
class TextBuffer {
 public:
  TextBuffer(bool is_wide, SQLSMALLINT units) : units_(units) {
    is_wide ? wide_.resize(static_cast<std::size_t>(units)) : narrow_.resize(static_cast<std::size_t>(units));
  }

  // Gives the driver's answer to `narrow` or `wide`, called with pointer, room and where to leave the length.
  template <typename Narrow, typename Wide>
  SQLRETURN Fill(Narrow narrow, Wide wide) {
    length_ = 0;
    return wide_.empty() ? narrow(AsNarrow(narrow_.data()), units_, &length_)
                         : wide(AsWide(wide_.data()), units_, &length_);
  }

  // What was written; a text longer than the room is cut.
  std::string Text() const {
    const auto length = static_cast<std::size_t>(std::clamp<int>(length_, 0, units_ - 1));
    return wide_.empty() ? narrow_.substr(0, length) : FromWide(std::u16string_view(wide_).substr(0, length));
  }

 private:
  SQLSMALLINT units_;
  SQLSMALLINT length_ = 0;
  std::string narrow_;
  std::u16string wide_;
};

}  // namespace tarvoni::odbc
