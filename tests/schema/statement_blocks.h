#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace tarvoni {

// One batch of the statement files (tests/tsql/statements) and what it asks.
struct StatementBlock {
  std::string file;
  int line = 0;  // of its title
  std::string title;
  std::string text;
};

inline std::vector<StatementBlock> ReadStatementFile(const std::filesystem::path& path) {
  std::ifstream file(path);
  if (!file) throw std::runtime_error(path.string() + " cannot be read");
  std::vector<StatementBlock> blocks;
  int number = 0;
  for (std::string line; std::getline(file, line);) {
    ++number;
    if (line.starts_with("-- ")) {
      blocks.push_back({path.filename().string(), number, line.substr(3), ""});
    } else if (!blocks.empty()) {
      blocks.back().text += line + '\n';
    }
  }
  return blocks;
}

// The blocks of all files of a folder, in the order of their names.
inline std::vector<StatementBlock> ReadStatementFolder(const std::filesystem::path& folder) {
  std::vector<std::filesystem::path> paths;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) paths.push_back(entry.path());
  std::ranges::sort(paths);
  std::vector<StatementBlock> blocks;
  for (const auto& path : paths) std::ranges::move(ReadStatementFile(path), std::back_inserter(blocks));
  return blocks;
}

}  // namespace tarvoni
