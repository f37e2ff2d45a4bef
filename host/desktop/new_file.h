#pragma once

#include <QString>
#include <QWidget>

namespace tarvoni::host {

// Asks where a new database goes and offers a name that is free: "betrieb.db", else "betrieb2.db" and so on. Gives the
// file's name, "" on cancel. One that is there already is refused with a sentence: no database is ever replaced.
QString ChooseNewFile(QWidget* parent, const QString& title, const QString& name);

}  // namespace tarvoni::host
