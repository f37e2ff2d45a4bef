#pragma once

#include <functional>
#include <random>
#include <string>
#include <vector>

namespace tarvoni::torture {

// One way to attack the embedded database: a try in a folder of its own, and what it found, a sentence each.
struct Attack {
  std::string name;
  std::function<std::vector<std::string>(const std::string& folder, std::minstd_rand& chance)> run;
};

const std::vector<Attack>& Attacks();

}  // namespace tarvoni::torture
