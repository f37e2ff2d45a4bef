#pragma once

#include <QWidget>
#include <optional>
#include <string>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Edits a text of several lines, as long as the request allows; Ctrl+Enter takes it. Line breaks stay of the kind the
// text had. Nothing on cancel, or if it may only be read.
std::optional<std::string> ShowTextEditor(QWidget* parent, const TextRequest& request);

}  // namespace tarvoni::qt
