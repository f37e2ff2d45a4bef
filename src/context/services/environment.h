#pragma once

#include "src/context/data/database.h"
#include "src/context/values/locale.h"

namespace tarvoni {

class Suite;
class Toolkit;

// What surrounds the Screens: who shows them, the suite's services, the locale and how databases are opened.
// The clock stands beside it (clock.h). The pointers outlive every Screen.
struct Environment {
  tarvoni::Toolkit* toolkit = nullptr;
  tarvoni::Suite* suite = nullptr;
  Locale locale = {};
  ConnectionFactory connect = {};

  // The one in force on this thread; a CallError without one.
  static Environment& Current();
  static bool Installed();
};

// The locale in force; German without an environment.
const Locale& CurrentLocale();
Toolkit& CurrentToolkit();
Suite& CurrentSuite();

// Puts an environment in force for the length of a scope; they nest.
class EnvironmentScope {
 public:
  explicit EnvironmentScope(Environment& environment);
  EnvironmentScope(const EnvironmentScope&) = delete;
  EnvironmentScope& operator=(const EnvironmentScope&) = delete;
  ~EnvironmentScope();

 private:
  Environment* previous_;
};

}  // namespace tarvoni
