#pragma once

#include "platform/script/script_run.h"
#include "src/context/services/print_document.h"

namespace tarvoni {

// A paper as rows of text: issuer and title, the facts, each table with its heading and captions, the remarks, and in one
// row who signs.
TextRows PaperRows(const PrintDocument& document);

}  // namespace tarvoni
