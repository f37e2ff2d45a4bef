#pragma once

#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

namespace tarvoni::dbtest {

inline std::string BytesOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

inline void WriteBytes(const std::string& path, std::string_view bytes) {
  std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace tarvoni::dbtest
