#pragma once

#include <QString>
#include <QWidget>
#include <functional>

namespace tarvoni::host {

// Asks for a connection to a server, the password apart and unseen, and tries it: `connect` gets "odbc:…" and throws
// what failed. The dialog stays open with the reason until a connection comes about or the user gives up. In both cases
// all but the password is remembered.
void ConnectToServer(QWidget* parent, const std::function<void(const QString&)>& connect);

}  // namespace tarvoni::host
