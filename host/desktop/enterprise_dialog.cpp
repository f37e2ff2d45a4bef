#include "host/desktop/enterprise_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include "host/desktop/report.h"
#include "host/own_enterprise.h"
#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"

namespace tarvoni::host {
namespace {

class EnterpriseDialog : public QDialog {
 public:
  explicit EnterpriseDialog(QWidget* parent)
      : QDialog(parent),
        number_(new QLineEdit("1000", this)),
        name_(new QLineEdit(this)),
        year_(new QSpinBox(this)),
        codes_(new QCheckBox("&Codes mitgeben: Leistungsarten, Lohnarten, Einheiten, Tarife", this)) {
    setWindowTitle("Eigenen Betrieb anlegen");
    number_->setObjectName("number");
    name_->setObjectName("name");
    name_->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    year_->setRange(1900, 2099);
    year_->setValue(Clock::Today().year);
    codes_->setChecked(true);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setText("&Weiter …");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const form = new QFormLayout(this);
    form->addRow("&Mandant:", name_);
    form->addRow("&Nummer:", number_);
    form->addRow("&Forstjahr:", year_);
    form->addRow(codes_);
    form->addRow(buttons);
    for (const QLineEdit* edit : {number_, name_})
      connect(edit, &QLineEdit::textChanged, this, [this] { ShowState(); });
    ShowState();
    name_->setFocus();
  }

  OwnEnterprise Enterprise() const {
    return {.number = qt::FromQt(number_->text().trimmed()),
            .name = qt::FromQt(name_->text().trimmed()),
            .forest_year = year_->value(),
            .with_codes = codes_->isChecked()};
  }

 private:
  void ShowState() {
    ok_->setEnabled(!number_->text().trimmed().isEmpty() && !name_->text().trimmed().isEmpty());
  }

  QLineEdit* number_;
  QLineEdit* name_;
  QSpinBox* year_;
  QCheckBox* codes_;
  QPushButton* ok_;
};

}  // namespace

QString MakeEnterpriseFile(QWidget* parent) {
  EnterpriseDialog dialog(parent);
  if (dialog.exec() != QDialog::Accepted) return {};
  const QString file = QFileDialog::getSaveFileName(parent, "Datei des Betriebs", "betrieb.db",
                                                    "Datenbanken (*.db);;Alle Dateien (*)");
  if (file.isEmpty()) return {};
  // The dialog has asked whether to replace the file.
  if (QFile::exists(file) && !QFile::remove(file)) {
    ShowError(parent, "Die Datei " + file + " lässt sich nicht ersetzen.");
    return {};
  }
  const bool made = Reported(parent, [&] { MakeOwnEnterprise(qt::FromQt(file), dialog.Enterprise()); });
  return made ? file : QString();
}

}  // namespace tarvoni::host
