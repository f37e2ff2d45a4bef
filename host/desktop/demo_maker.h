#pragma once

#include <QString>
#include <QWidget>

namespace tarvoni::host {

// Asks for a new file and makes the demo enterprise in it, with a progress bar that can be cancelled. The file's name,
// or "" if there is none: on cancel, or after an error, which the user has been told.
QString MakeDemoFile(QWidget* parent);

}  // namespace tarvoni::host
