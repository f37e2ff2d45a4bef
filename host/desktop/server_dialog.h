#pragma once

#include <QString>
#include <QWidget>

namespace tarvoni::host {

// Asks for a connection to a server, the password apart and unseen. "odbc:…", or "" on cancel.
QString AskForServer(QWidget* parent);

}  // namespace tarvoni::host
