#pragma once

#include <fstream>
#include <string>

#include "src/context/data/database.h"

namespace tarvoni::host {

// A text file with every statement sent: its time, the rows it affected or the number of its error, and its words. A
// connection string is never written, so no password is.
class TraceFile {
 public:
  // Throws CallError if the file can't be written.
  explicit TraceFile(const std::string& file);

  void Heading(const std::string& text);
  // Listens to the connection; the file has to outlive it.
  void Follow(Connection& connection);
  // Throws CallError unless all of it is written.
  void Finish();

 private:
  void Write(const TraceEvent& event);

  std::string file_;
  std::ofstream out_;
};

}  // namespace tarvoni::host
