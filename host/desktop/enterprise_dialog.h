#pragma once

#include <QString>
#include <QWidget>

namespace tarvoni::host {

// Asks for client, forest year, districts, persons, objects and codes of a new enterprise and for its file, and makes it.
// The file's name, or "" if there is none: on cancel, or after an error, which the user has been told.
QString MakeEnterpriseFile(QWidget* parent);

}  // namespace tarvoni::host
