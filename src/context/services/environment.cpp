#include "src/context/services/environment.h"

#include <utility>

#include "src/context/values/call_error.h"

namespace tarvoni {
namespace {

thread_local Environment* current = nullptr;

}  // namespace

Environment& Environment::Current() {
  if (!current) throw CallError("Es ist keine Umgebung eingerichtet.");
  return *current;
}

bool Environment::Installed() {
  return current != nullptr;
}

const Locale& CurrentLocale() {
  static constexpr Locale kGerman = Locale::German();
  return current ? current->locale : kGerman;
}

Toolkit& CurrentToolkit() {
  if (Toolkit* toolkit = Environment::Current().toolkit) return *toolkit;
  throw CallError("Es ist keine Oberfläche eingerichtet.");
}

Suite& CurrentSuite() {
  if (Suite* suite = Environment::Current().suite) return *suite;
  throw CallError("Die Dienste der Suite sind nicht eingerichtet.");
}

EnvironmentScope::EnvironmentScope(Environment& environment)
    : previous_(std::exchange(current, &environment)) {}

EnvironmentScope::~EnvironmentScope() {
  current = previous_;
}

}  // namespace tarvoni
