#include "host/desktop/enterprise_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFile>
#include <QFileDialog>
#include <QFormLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRegularExpressionValidator>
#include <QSpinBox>

#include "host/desktop/report.h"
#include "host/own_enterprise.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"

namespace tarvoni::host {
namespace {

constexpr int kNameLength = 50;  // as the tables hold it
constexpr int kDigits = 9;

// Asks for the enterprise, then for its file; a file not chosen leads back to what was typed.
class EnterpriseDialog : public QDialog {
 public:
  explicit EnterpriseDialog(QWidget* parent)
      : QDialog(parent),
        name_(new QLineEdit(this)),
        number_(new QLineEdit("1000", this)),
        year_(new QSpinBox(this)),
        codes_(new QCheckBox("&Codes mitgeben: Leistungen, Lohnarten, Einheiten, Tarife", this)),
        workers_(new QPlainTextEdit(this)) {
    setWindowTitle("Eigenen Betrieb anlegen");
    number_->setObjectName("number");
    number_->setValidator(
        new QRegularExpressionValidator(QRegularExpression(QString("\\d{1,%1}").arg(kDigits)), number_));
    name_->setObjectName("name");
    name_->setMaxLength(kNameLength);
    name_->setMinimumWidth(qt::CharactersWide(*this, 40));
    year_->setRange(1900, 2099);
    year_->setValue(Clock::Today().year);
    codes_->setChecked(true);
    workers_->setObjectName("workers");
    workers_->setPlaceholderText("je Zeile Nachname und Vorname; Lohngruppe LG 1");
    workers_->setTabChangesFocus(true);
    workers_->setFixedHeight(qt::LinesHigh(*this, 6));
    LayOut();
    for (const QLineEdit* edit : {number_, name_})
      connect(edit, &QLineEdit::textChanged, this, [this] { ShowState(); });
    ShowState();
    name_->setFocus();
  }

  void accept() override {
    if (MakeFile()) QDialog::accept();
  }

  const QString& File() const { return file_; }

 private:
  void LayOut() {
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
    form->addRow("A&rbeiter:", workers_);
    form->addRow(QString(), codes_);
    form->addRow(buttons);
    QWidget::setTabOrder(year_, workers_);
    QWidget::setTabOrder(workers_, codes_);
    QWidget::setTabOrder(codes_, buttons);
  }

  void ShowState() { ok_->setEnabled(number_->hasAcceptableInput() && !name_->text().trimmed().isEmpty()); }

  OwnEnterprise Enterprise() const {
    OwnEnterprise enterprise{.number = qt::FromQt(number_->text()),
                             .name = qt::FromQt(name_->text().trimmed()),
                             .forest_year = year_->value(),
                             .with_codes = codes_->isChecked()};
    for (const QString& line : workers_->toPlainText().split('\n', Qt::SkipEmptyParts)) {
      const QString name = line.simplified().left(kNameLength);
      if (!name.isEmpty()) enterprise.workers.push_back(qt::FromQt(name));
    }
    return enterprise;
  }

  bool MakeFile() {
    const QString file = QFileDialog::getSaveFileName(this, "Datei des Betriebs", "betrieb.db",
                                                      "Datenbanken (*.db);;Alle Dateien (*)");
    if (file.isEmpty()) return false;
    // The dialog has asked whether to replace the file.
    if (QFile::exists(file) && !QFile::remove(file)) {
      ShowError(this, "Die Datei " + file + " lässt sich nicht ersetzen.");
      return false;
    }
    file_ = file;
    return Reported(this, [&] { MakeOwnEnterprise(qt::FromQt(file), Enterprise()); });
  }

  QLineEdit* name_;
  QLineEdit* number_;
  QSpinBox* year_;
  QCheckBox* codes_;
  QPlainTextEdit* workers_;
  QPushButton* ok_ = nullptr;
  QString file_;
};

}  // namespace

QString MakeEnterpriseFile(QWidget* parent) {
  EnterpriseDialog dialog(parent);
  return dialog.exec() == QDialog::Accepted ? dialog.File() : QString();
}

}  // namespace tarvoni::host
