#include "host/desktop/enterprise_dialog.h"

#include <QCheckBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>
#include <string>
#include <vector>

#include "host/desktop/digits.h"
#include "host/desktop/new_file.h"
#include "host/desktop/report.h"
#include "host/own_enterprise.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"

namespace tarvoni::host {
namespace {

constexpr int kNameLength = 50;  // as the tables hold it
constexpr int kDigits = 9;

constexpr int kBoxWidth = 30;  // characters
constexpr int kBoxHeight = 4;  // lines
constexpr int kMostCompartments = 200;

// Asks for the enterprise, then for its file; a file not chosen leads back to what was typed.
class EnterpriseDialog : public QDialog {
 public:
  explicit EnterpriseDialog(QWidget* parent)
      : QDialog(parent),
        name_(new QLineEdit(this)),
        number_(new QLineEdit("1000", this)),
        year_(MakeSpin(FirstForestYear(), kLastForestYear, Clock::Today().year)),
        compartments_(MakeSpin(0, kMostCompartments, OwnEnterprise().compartments)),
        districts_(MakeList("districts", "je Zeile ein Revier; sonst „Revier 1“")),
        workers_(MakeList("workers", "je Zeile Nachname und Vorname; Lohngruppe LG 1")),
        objects_(MakeList("objects", "je Zeile eine; sonst Betriebsgebäude, Schlepper, Geländewagen")),
        payees_(MakeList("payees", "je Zeile einer; sonst „Diverse Lieferanten“")),
        codes_(new QCheckBox("&Codes und Sätze des Musterbetriebs mitgeben: Leistungen, Lohnarten, Tarife …",
                             this)) {
    setWindowTitle("Eigenen Betrieb anlegen");
    number_->setObjectName("number");
    TakeDigits(*number_, kDigits);
    name_->setObjectName("name");
    name_->setMaxLength(kNameLength);
    codes_->setChecked(true);
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
  QSpinBox* MakeSpin(int lowest, int highest, int value) {
    auto* const spin = new QSpinBox(this);
    spin->setRange(lowest, highest);
    spin->setValue(value);
    TellRefused(*spin->findChild<QLineEdit*>());
    return spin;
  }

  QPlainTextEdit* MakeList(const QString& name, const QString& hint) {
    auto* const list = new QPlainTextEdit(this);
    list->setObjectName(name);
    list->setPlaceholderText(hint);
    list->setTabChangesFocus(true);
    list->setMinimumWidth(qt::CharactersWide(*this, kBoxWidth));
    list->setFixedHeight(qt::LinesHigh(*this, kBoxHeight));
    return list;
  }

  void LayOut() {
    auto* const form = new QFormLayout;
    form->addRow("&Mandant:", name_);
    form->addRow("&Nummer:", number_);
    form->addRow("&Forstjahr:", year_);
    form->addRow("Abteilun&gen je Revier:", compartments_);
    auto* const lists = new QGridLayout;
    AddList(*lists, 0, 0, "&Reviere:", districts_);
    AddList(*lists, 0, 1, "Arb&eiter:", workers_);
    AddList(*lists, 1, 0, "Maschinen &und Gebäude:", objects_);
    AddList(*lists, 1, 1, "&Lieferanten:", payees_);
    auto* const column = new QVBoxLayout(this);
    column->addLayout(form);
    column->addLayout(lists);
    column->addWidget(codes_);
    column->addWidget(MakeButtons());
  }

  static void AddList(QGridLayout& lists, int row, int column, const QString& caption, QPlainTextEdit* list) {
    auto* const label = new QLabel(caption);
    label->setBuddy(list);
    lists.addWidget(label, 2 * row, column);
    lists.addWidget(list, 2 * row + 1, column);
  }

  QDialogButtonBox* MakeButtons() {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setText("&Weiter …");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  void ShowState() { ok_->setEnabled(number_->hasAcceptableInput() && !name_->text().trimmed().isEmpty()); }

  static std::vector<std::string> Lines(const QPlainTextEdit& list) {
    std::vector<std::string> lines;
    for (const QString& line : list.toPlainText().split('\n', Qt::SkipEmptyParts)) {
      const QString name = line.simplified().left(kNameLength);
      if (!name.isEmpty()) lines.push_back(qt::FromQt(name));
    }
    return lines;
  }

  OwnEnterprise Enterprise() const {
    return {.number = qt::FromQt(number_->text()),
            .name = qt::FromQt(name_->text().trimmed()),
            .forest_year = year_->value(),
            .with_codes = codes_->isChecked(),
            .districts = Lines(*districts_),
            .objects = Lines(*objects_),
            .payees = Lines(*payees_),
            .workers = Lines(*workers_),
            .compartments = compartments_->value()};
  }

  bool MakeFile() {
    file_ = ChooseNewFile(this, "Datei des Betriebs", "betrieb");
    return !file_.isEmpty() && Reported(this, [this] { MakeOwnEnterprise(qt::FromQt(file_), Enterprise()); });
  }

  QLineEdit* name_;
  QLineEdit* number_;
  QSpinBox* year_;
  QSpinBox* compartments_;
  QPlainTextEdit* districts_;
  QPlainTextEdit* workers_;
  QPlainTextEdit* objects_;
  QPlainTextEdit* payees_;
  QCheckBox* codes_;
  QPushButton* ok_ = nullptr;
  QString file_;
};

}  // namespace

QString MakeEnterpriseFile(QWidget* parent) {
  EnterpriseDialog dialog(parent);
  return dialog.exec() == QDialog::Accepted ? dialog.File() : QString();
}

}  // namespace tarvoni::host
