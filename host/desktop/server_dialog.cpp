#include "host/desktop/server_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tarvoni::host {
namespace {

// Drivers know braces only where a semicolon needs them.
QString Braced(const QString& value) {
  return value.contains(';') ? "{" + value + "}" : value;
}

}  // namespace

QString AskForServer(QWidget* parent) {
  QDialog dialog(parent);
  dialog.setWindowTitle("Mit einem Server verbinden");
  auto* const server = new QLineEdit(&dialog);
  auto* const database = new QLineEdit(&dialog);
  auto* const user = new QLineEdit(&dialog);
  auto* const password = new QLineEdit(&dialog);
  password->setEchoMode(QLineEdit::Password);
  auto* const driver = new QLineEdit("FreeTDS", &dialog);
  auto* const port = new QLineEdit("1433", &dialog);
  server->setMinimumWidth(server->fontMetrics().averageCharWidth() * 40);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  buttons->button(QDialogButtonBox::Ok)->setText("&Verbinden");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

  auto* const form = new QFormLayout(&dialog);
  form->addRow("&Server:", server);
  form->addRow("&Datenbank:", database);
  form->addRow("&Benutzer:", user);
  form->addRow("&Kennwort:", password);
  form->addRow("&Treiber:", driver);
  form->addRow("P&ort:", port);
  form->addRow(buttons);
  if (dialog.exec() != QDialog::Accepted || server->text().trimmed().isEmpty()) return {};
  QString connection = "odbc:Driver=" + driver->text().trimmed() + ";Server=" + server->text().trimmed() +
                       ";Port=" + port->text().trimmed() + ";Database=" + database->text().trimmed();
  if (!user->text().isEmpty()) connection += ";UID=" + user->text().trimmed();
  if (!password->text().isEmpty()) connection += ";PWD=" + Braced(password->text());
  return connection;
}

}  // namespace tarvoni::host
