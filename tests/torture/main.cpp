#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>

#include "tests/torture/attacks.h"

// torture SECONDS [SEED]: runs the attacks in turn until the time is over; prints what was tried and what was found.
namespace {

using tarvoni::torture::Attack;
using tarvoni::torture::Attacks;

struct Result {
  long tried = 0;
  long found = 0;
};

// One try in an empty folder; each finding is printed with the seed that brings it back.
void Try(const Attack& attack, const std::string& folder, unsigned seed, Result& result) {
  std::filesystem::remove_all(folder);
  std::filesystem::create_directories(folder);
  std::minstd_rand chance(seed);
  std::vector<std::string> found;
  try {
    found = attack.run(folder, chance);
  } catch (const std::exception& error) {
    found.emplace_back(error.what());
  }
  ++result.tried;
  if (!found.empty()) ++result.found;
  for (const std::string& sentence : found)
    std::printf("%s, seed %u: %s\n", attack.name.c_str(), seed, sentence.c_str());
}

}  // namespace

int main(int argc, char** argv) {
  const auto end =
      std::chrono::steady_clock::now() + std::chrono::seconds(argc > 1 ? std::atol(argv[1]) : 60);
  unsigned seed = argc > 2 ? static_cast<unsigned>(std::atol(argv[2])) : static_cast<unsigned>(getpid());
  const std::string folder =
      (std::filesystem::temp_directory_path() / ("torture-" + std::to_string(getpid()))).string();
  std::vector<Result> results(Attacks().size());
  while (std::chrono::steady_clock::now() < end) {
    ++seed;
    for (std::size_t i = 0; i < results.size(); ++i) Try(Attacks()[i], folder, seed, results[i]);
  }
  std::filesystem::remove_all(folder);
  long found = 0;
  for (std::size_t i = 0; i < results.size(); ++i) {
    std::printf("%-34s %8ld tried %6ld found\n", Attacks()[i].name.c_str(), results[i].tried,
                results[i].found);
    found += results[i].found;
  }
  return found == 0 ? 0 : 1;
}
