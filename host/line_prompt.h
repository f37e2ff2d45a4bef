#pragma once

#include <optional>
#include <string>

namespace tarvoni::host {

// A prompt with line editing; the lines entered are kept for the next time in a file of the user's own,
// those with a password not.
class LinePrompt {
 public:
  LinePrompt();
  LinePrompt(const LinePrompt&) = delete;
  LinePrompt& operator=(const LinePrompt&) = delete;
  ~LinePrompt();

  // The next line; nothing when the input ends.
  std::optional<std::string> Read(const std::string& prompt);

 private:
  std::string history_file_;  // empty when there is nowhere to keep it
};

}  // namespace tarvoni::host
