#include "suite/description_editor.h"

#include "src/context/services/environment.h"
#include "src/context/services/toolkit.h"
#include "src/context/values/call_error.h"

namespace tarvoni::suite {
namespace {

// Before there is a row it may become the description of either.
std::string CaptionFor(const std::string& table, std::int32_t id) {
  if (table == "ARBEITSAUFTRAG_KOPF") return id == 0 ? "Beschreibung" : "Beschreibung des Arbeitsauftrags";
  if (table == "ARBEITSAUFTRAG_KOPF_PLANN") return id == 0 ? "Beschreibung" : "Beschreibung der Planung";
  throw CallError("Die Tabelle " + table + " hat keine Beschreibung.");
}

}  // namespace

void DescriptionEditor::EditText(const TvnVar_Dll&, std::int32_t id, bool read_only, const std::string& table,
                                 std::string& text) {
  const auto edited =
      CurrentToolkit().EditText({.caption = CaptionFor(table, id), .text = text, .read_only = read_only});
  if (edited && !read_only) text = *edited;
}

}  // namespace tarvoni::suite
