#include "host/desktop/settings_dialog.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <algorithm>
#include <utility>
#include <vector>

#include "platform/qt/public/look.h"

namespace tarvoni::host {
namespace {

constexpr int kFolderWidth = 40;  // characters

class SettingsDialog : public QDialog {
 public:
  SettingsDialog(QWidget* parent, const Settings& settings)
      : QDialog(parent),
        locale_(Choice({{"mit Komma (1234,56)", "de"}, {"mit Punkt (1234.56)", "en"}}, settings.locale)),
        date_format_(
            Choice({{"'20240315'  (yyyymmdd)", "yyyymmdd"}, {"'2024-03-15'  (yyyy-mm-dd)", "yyyy-mm-dd"}},
                   settings.date_format)),
        currency_(new QLineEdit(settings.currency, this)),
        folder_(new QLineEdit(settings.work_directory, this)),
        choose_(new QPushButton("&Wählen …", this)) {
    setWindowTitle("Einstellungen");
    currency_->setMaxLength(3);
    currency_->setToolTip("gilt, wo die Datenbank selbst keine nennt");
    folder_->setMinimumWidth(qt::CharactersWide(*this, kFolderWidth));
    choose_->setAutoDefault(false);
    connect(choose_, &QPushButton::clicked, this, [this] { ChooseFolder(); });
    LayOut();
  }

  Settings Chosen() const {
    return {.locale = locale_->currentData().toString(),
            .date_format = date_format_->currentData().toString(),
            .currency = currency_->text().trimmed().toUpper(),
            .work_directory = folder_->text().trimmed()};
  }

 private:
  // Shows texts for values.
  QComboBox* Choice(const std::vector<std::pair<QString, QString>>& items, const QString& value) {
    auto* const box = new QComboBox(this);
    for (const auto& [text, chosen] : items) box->addItem(text, chosen);
    box->setCurrentIndex(std::max(0, box->findData(value)));
    return box;
  }

  void LayOut() {
    auto* const folder = new QHBoxLayout;
    folder->addWidget(folder_, 1);
    folder->addWidget(choose_);
    auto* const folder_label = new QLabel("A&rbeitsordner:");
    folder_label->setBuddy(folder_);
    auto* const form = new QFormLayout(this);
    form->addRow("&Zahlen:", locale_);
    form->addRow("&Datum in Anweisungen:", date_format_);
    form->addRow("&Landeswährung:", currency_);
    form->addRow(folder_label, folder);
    form->addRow(MakeButtons());
  }

  QDialogButtonBox* MakeButtons() {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText("&Übernehmen");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  void ChooseFolder() {
    const QString folder = QFileDialog::getExistingDirectory(this, "Arbeitsordner wählen", folder_->text());
    if (!folder.isEmpty()) folder_->setText(folder);
  }

  // In the order of the keyboard.
  QComboBox* locale_;
  QComboBox* date_format_;
  QLineEdit* currency_;
  QLineEdit* folder_;
  QPushButton* choose_;
};

}  // namespace

bool EditSettings(QWidget* parent, Settings& settings) {
  SettingsDialog dialog(parent, settings);
  if (dialog.exec() != QDialog::Accepted) return false;
  settings = dialog.Chosen();
  return true;
}

}  // namespace tarvoni::host
