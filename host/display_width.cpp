#include "host/display_width.h"

#include <utf8proc.h>

#include <algorithm>

namespace tarvoni::host {

int DisplayWidth(std::string_view text) {
  int width = 0;
  while (!text.empty()) {
    utf8proc_int32_t code = 0;
    const auto length = utf8proc_iterate(reinterpret_cast<const utf8proc_uint8_t*>(text.data()),
                                         static_cast<utf8proc_ssize_t>(text.size()), &code);
    width += length > 0 ? utf8proc_charwidth(code) : 1;
    text.remove_prefix(length > 0 ? static_cast<std::size_t>(length) : 1);
  }
  return width;
}

std::string Pad(std::string_view text, int width, bool right_aligned) {
  const std::string blanks(static_cast<std::size_t>(std::max(0, width - DisplayWidth(text))), ' ');
  return right_aligned ? blanks + std::string(text) : std::string(text) + blanks;
}

}  // namespace tarvoni::host
