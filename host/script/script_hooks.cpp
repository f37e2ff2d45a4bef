#include "host/script/script_hooks.h"

#include <charconv>

#include "host/demo/demo.h"
#include "host/methods.h"
#include "src/context/call_error.h"
#include "src/entry/screen_runs.h"

namespace tarvoni::host {
namespace {

int ScaleOf(const std::string& text) {
  int scale = 1;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), scale);
  const bool whole = error == std::errc() && end == text.data() + text.size() && scale >= 1;
  if (!text.empty() && !whole) throw CallError("\"" + text + "\" ist keine Größe des Musterbetriebs.");
  return scale;
}

}  // namespace

ScriptHooks MakeScriptHooks() {
  return {.demo =
              [](Connection& connection, const std::string& scale) {
                demo::BuildDemo(connection, {.scale = ScaleOf(scale), .progress = {}});
              },
          .call = [](const std::string& method, const ScriptHooks::Values& arguments,
                     TvnVar_Dll& context) { return CallMethod(MethodNamed(method), arguments, context); },
          .run = RunScreen};
}

}  // namespace tarvoni::host
