#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Edits a text of several lines, as long as the request allows; Ctrl+Enter takes it. Line breaks stay of the kind the
// text had. `typed` opened the editor and comes behind the text, as if typed there. Nothing on cancel, or if it may only
// be read.
std::optional<std::string> ShowTextEditor(QWidget* parent, const TextRequest& request,
                                          const QString& typed = {});

}  // namespace tarvoni::qt
