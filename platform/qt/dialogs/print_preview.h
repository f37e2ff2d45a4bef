#pragma once

#include <QWidget>

#include "src/context/services/toolkit.h"

namespace tarvoni::qt {

// Shows a document's pages; from there it goes to a PDF file, or to a printer where there is one.
void ShowPrintPreview(QWidget* parent, const PrintDocument& document);

}  // namespace tarvoni::qt
