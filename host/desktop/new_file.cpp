#include "host/desktop/new_file.h"

#include <QFileDialog>
#include <QFileInfo>

#include "host/desktop/report.h"

namespace tarvoni::host {
namespace {

bool IsFree(const QString& file) {
  const QFileInfo there(file);
  return !there.exists() || there.size() == 0;
}

QString FreeName(const QString& name) {
  QString file = name + ".db";
  for (int number = 2; !IsFree(file); ++number) file = name + QString::number(number) + ".db";
  return file;
}

}  // namespace

QString ChooseNewFile(QWidget* parent, const QString& title, const QString& name) {
  QString file = FreeName(name);
  while (true) {
    file = QFileDialog::getSaveFileName(parent, title, file, "Datenbanken (*.db);;Alle Dateien (*)", nullptr,
                                        QFileDialog::DontConfirmOverwrite);
    // Without an ending the list of databases to open would not show it.
    if (!file.isEmpty() && QFileInfo(file).suffix().isEmpty()) file += ".db";
    if (file.isEmpty() || IsFree(file)) return file;
    ShowError(parent, "Die Datei " + file +
                          " gibt es schon, und sie ist nicht leer. Bitte einen anderen Namen wählen.");
  }
}

}  // namespace tarvoni::host
