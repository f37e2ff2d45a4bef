#include "host/desktop/settings_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

namespace tarvoni::host {
namespace {

// Shows texts for values.
QComboBox* Choice(QWidget* parent, const std::vector<std::pair<QString, QString>>& items,
                  const QString& value) {
  auto* const box = new QComboBox(parent);
  for (const auto& [text, data] : items) box->addItem(text, data);
  box->setCurrentIndex(std::max(0, box->findData(value)));
  return box;
}

// A folder's box with a button that lets the user choose one.
QWidget* WithChoice(QLineEdit* directory) {
  auto* const both = new QWidget(directory->parentWidget());
  auto* const choose = new QPushButton("&Wählen …", both);
  choose->setAutoDefault(false);
  auto* const line = new QHBoxLayout(both);
  line->setContentsMargins(0, 0, 0, 0);
  line->addWidget(directory, 1);
  line->addWidget(choose);
  both->setFocusProxy(directory);
  QObject::connect(choose, &QPushButton::clicked, both, [directory] {
    const QString folder =
        QFileDialog::getExistingDirectory(directory, "Arbeitsordner wählen", directory->text());
    if (!folder.isEmpty()) directory->setText(folder);
  });
  return both;
}

}  // namespace

bool EditSettings(QWidget* parent, Settings& settings) {
  QDialog dialog(parent);
  dialog.setWindowTitle("Einstellungen");
  auto* const locale =
      Choice(&dialog, {{"mit Komma (1234,56)", "de"}, {"mit Punkt (1234.56)", "en"}}, settings.locale);
  auto* const date_format =
      Choice(&dialog, {{"'20240315'  (yyyymmdd)", "yyyymmdd"}, {"'2024-03-15'  (yyyy-mm-dd)", "yyyy-mm-dd"}},
             settings.date_format);
  auto* const currency = new QLineEdit(settings.currency, &dialog);
  currency->setMaxLength(3);
  currency->setToolTip("gilt, wo die Datenbank selbst keine nennt");
  auto* const directory = new QLineEdit(settings.work_directory, &dialog);
  directory->setMinimumWidth(directory->fontMetrics().averageCharWidth() * 40);

  auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &dialog);
  buttons->button(QDialogButtonBox::Ok)->setText("&Übernehmen");
  buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
  QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

  auto* const form = new QFormLayout(&dialog);
  form->addRow("&Zahlen:", locale);
  form->addRow("&Datum in Anweisungen:", date_format);
  form->addRow("&Landeswährung:", currency);
  form->addRow("A&rbeitsordner:", WithChoice(directory));
  form->addRow(buttons);
  if (dialog.exec() != QDialog::Accepted) return false;
  settings = {.locale = locale->currentData().toString(),
              .date_format = date_format->currentData().toString(),
              .currency = currency->text().trimmed().toUpper(),
              .work_directory = directory->text().trimmed()};
  return true;
}

}  // namespace tarvoni::host
