#pragma once

#include <string>
#include <vector>

#include "tests/disk/faulty_disk.h"

namespace tarvoni::disktest {

// Saves that a script makes on Screens, played on a disk that fails: the file holds whole saves afterwards, never a
// part of one.
class ScreenSaves {
 public:
  // Lets the lines of `setup` make a database in `folder`, then plays `script` on it; both lie in tests. Throws
  // std::runtime_error when that fails. The folder is made and stays.
  ScreenSaves(const std::string& folder, const std::string& setup, std::string script);

  // The file at first and behind each commit that changed it.
  const std::vector<std::string>& States() const { return states_; }
  // What the disk did for that.
  long Operations() const { return operations_; }

  enum class Fault { kPowerCut, kFullDisk, kBrokenDisk };
  // Plays the script again and lets the disk fail at its nth operation. What is wrong with the file then, a sentence
  // each.
  std::vector<std::string> FaultsAfter(Fault fault, long n, FaultyDisk::Unsynced unsynced = {},
                                       unsigned seed = 0) const;

 private:
  // Plays the script; adds the states. What failed, empty if nothing did.
  std::string Play(FaultyDisk& disk, std::vector<std::string>& states) const;

  std::string path_;
  std::string script_;
  std::vector<std::string> states_;
  long operations_ = 0;
};

}  // namespace tarvoni::disktest
