#pragma once

#include <algorithm>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "src/context/data/database.h"
#include "src/entry/c_lohn.h"

namespace tarvoni {

// What happens to the Screens and the connection, in order.
inline std::vector<std::string>& Journal() {
  static std::vector<std::string> journal;
  return journal;
}

template <typename... Parts>
void Note(const Parts&... parts) {
  std::ostringstream line;
  (line << ... << parts);
  Journal().push_back(line.str());
}

// Shows arguments as they arrive; the record by its work directory.
inline std::string Shown(const TvnVar_Dll& tvnvar) {
  return "{" + tvnvar.strWorkDirectory + "}";
}
inline std::string Shown(const std::string& text) {
  return "'" + text + "'";
}
inline std::string Shown(std::int32_t number) {
  return std::to_string(number);
}
inline std::string Shown(std::uint8_t number) {
  return std::to_string(number) + "b";
}
inline std::string Shown(bool flag) {
  return flag ? "true" : "false";
}

// A by-reference argument is changed, so that the test sees how far it reaches.
inline void Change(std::string& text) {
  text += "!";
}
inline void Change(std::int32_t& number) {
  ++number;
}
template <typename Other>
void Change(const Other&) {}

template <std::size_t kLength>
struct Name {
  consteval Name(const char (&name)[kLength]) { std::copy_n(name, kLength, text); }
  char text[kLength];
};

// A Screen that notes what is asked of it. The instances of a class are numbered.
template <Name kName>
class FakeScreen {
 public:
  FakeScreen() : label_(kName.text + ("#" + std::to_string(++made))) {}
  ~FakeScreen() { Note(label_, " gone"); }

  template <typename... Arguments>
  void Run(Arguments&&... arguments) {
    Note(label_, " Run", (" " + Shown(arguments))...);
    if (fails) throw std::runtime_error("Es geht nicht.");
    if (clears_itself) Slot<FakeScreen>::Clear();
    (Change(arguments), ...);
  }
  void Delete(std::int32_t id, const TvnVar_Dll& tvnvar) { Note(label_, " Delete ", id, " ", Shown(tvnvar)); }
  bool Unload() {
    Note(label_, " Unload");
    return true;
  }

  static void Reset() {
    Slot<FakeScreen>::Clear();
    made = 0;
    fails = clears_itself = false;
  }

  static inline int made = 0;
  static inline bool fails = false;
  static inline bool clears_itself = false;

 private:
  std::string label_;
};

struct FakeScreens {
  using F_ARA = FakeScreen<"F_ARA">;
  using F_Arbeitsauftrag = FakeScreen<"F_Arbeitsauftrag">;
  using F_Belege_New = FakeScreen<"F_Belege_New">;
  using F_Bruttolohn = FakeScreen<"F_Bruttolohn">;
  using F_Lager = FakeScreen<"F_Lager">;
  using F_MaschineStamm = FakeScreen<"F_MaschineStamm">;
  using F_Maschinenbuch = FakeScreen<"F_Maschinenbuch">;
  using F_NewRechnung = FakeScreen<"F_NewRechnung">;
  using F_PA_Gruppe = FakeScreen<"F_PA_Gruppe">;
};

class FakeConnection : public Connection {
 public:
  long long Execute(const SqlText&) override { return -1; }
  Recordset Open(const SqlText&) override { return {}; }
  void OpenAll(const SqlText&, const std::function<void(const BatchPart&)>&) override {}
  const std::string& ConnectionString() const override { return string_; }
  void BeginHandler() override { Note("begin"); }
  void EndHandler() override { Note("end"); }
  void CommitHandler() override {
    Note("commit");
    if (commit_fails) throw std::runtime_error("Die Platte ist voll.");
  }
  void SetTraceHook(TraceHook) override {}

  bool commit_fails = false;

 private:
  std::string string_;
};

}  // namespace tarvoni
