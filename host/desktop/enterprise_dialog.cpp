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
#include <QVBoxLayout>
#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "host/desktop/digits.h"
#include "host/desktop/new_file.h"
#include "host/desktop/report.h"
#include "host/desktop/told_line.h"
#include "host/own_enterprise.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/values/clock.h"

namespace tarvoni::host {
namespace {

constexpr int kNameLength = 50;  // as the tables hold it
constexpr int kDigits = 9;
constexpr int kDigitsOfYear = 4;
constexpr int kDigitsOfCompartments = 3;

constexpr int kBoxWidth = 30;  // characters
constexpr int kBoxHeight = 4;  // lines

// Asks for the enterprise, then for its file; a file not chosen leads back to what was typed.
class EnterpriseDialog : public QDialog {
 public:
  explicit EnterpriseDialog(QWidget* parent)
      : QDialog(parent),
        name_(new QLineEdit(this)),
        number_(new QLineEdit("1000", this)),
        year_(new QLineEdit(QString::number(Clock::Today().year), this)),
        compartments_(new QLineEdit(QString::number(OwnEnterprise().compartments), this)),
        districts_(MakeList("districts", "je Zeile ein Revier; sonst „Revier 1“")),
        workers_(MakeList("workers", "je Zeile Nachname und Vorname; Lohngruppe LG 1")),
        objects_(MakeList("objects", "je Zeile eine; sonst Betriebsgebäude, Schlepper, Geländewagen")),
        payees_(MakeList("payees", "je Zeile einer; sonst „Diverse Lieferanten“")),
        codes_(new QCheckBox("&Codes und Sätze des Musterbetriebs mitgeben: Leistungen, Lohnarten, Tarife …",
                             this)),
        told_(new ToldLine(this)) {
    setWindowTitle("Eigenen Betrieb anlegen");
    number_->setObjectName("number");
    TakeDigits(*number_, kDigits);
    TakeDigits(*year_, kDigitsOfYear);
    TakeDigits(*compartments_, kDigitsOfCompartments);
    name_->setObjectName("name");
    name_->setMaxLength(kNameLength);
    codes_->setChecked(true);
    LayOut();
    name_->setFocus();
  }

  void accept() override {
    if (const auto fault = FindFault()) return told_->Tell(fault->text, fault->field);
    if (MakeFile()) QDialog::accept();
  }

  const QString& File() const { return file_; }

 private:
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
    column->addWidget(told_);
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
    buttons->button(QDialogButtonBox::Ok)->setText("&Weiter …");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  struct Fault {
    QString text;
    QWidget* field;
  };
  std::optional<Fault> FindFault() const {
    if (name_->text().trimmed().isEmpty()) return Fault{"Der Name des Mandanten fehlt.", name_};
    if (number_->text().isEmpty()) return Fault{"Die Nummer des Mandanten fehlt.", number_};
    const int year = year_->text().toInt();
    if (year < FirstForestYear() || year > kLastForestYear)
      return Fault{QString("Das Forstjahr muss zwischen %1 und %2 liegen.")
                       .arg(FirstForestYear())
                       .arg(kLastForestYear),
                   year_};
    for (auto* const list : {districts_, workers_, objects_, payees_}) {
      const QString fault = FaultOf(Names(*list));
      if (!fault.isEmpty()) return Fault{fault, list};
    }
    return std::nullopt;
  }

  // "" if each name fits its column and stands once.
  static QString FaultOf(QStringList names) {
    for (const QString& name : names) {
      if (name.size() > kNameLength)
        return QString("„%1“ ist länger als %2 Zeichen.").arg(name).arg(kNameLength);
    }
    names.sort(Qt::CaseInsensitive);
    const auto same = [](const QString& a, const QString& b) {
      return a.compare(b, Qt::CaseInsensitive) == 0;
    };
    const auto twice = std::adjacent_find(names.begin(), names.end(), same);
    return twice == names.end() ? QString() : "„" + *twice + "“ steht zweimal in der Liste.";
  }

  // Line by line, without the empty ones.
  static QStringList Names(const QPlainTextEdit& list) {
    QStringList names;
    for (const QString& line : list.toPlainText().split('\n')) names << line.simplified();
    names.removeAll(QString());
    return names;
  }

  static std::vector<std::string> Texts(const QPlainTextEdit& list) {
    std::vector<std::string> texts;
    for (const QString& name : Names(list)) texts.push_back(qt::FromQt(name));
    return texts;
  }

  OwnEnterprise Enterprise() const {
    return {.number = qt::FromQt(number_->text()),
            .name = qt::FromQt(name_->text().trimmed()),
            .forest_year = year_->text().toInt(),
            .with_codes = codes_->isChecked(),
            .districts = Texts(*districts_),
            .objects = Texts(*objects_),
            .payees = Texts(*payees_),
            .workers = Texts(*workers_),
            .compartments = compartments_->text().toInt()};
  }

  bool MakeFile() {
    file_ = ChooseNewFile(this, "Datei des Betriebs", "betrieb");
    return !file_.isEmpty() && Reported(this, [this] { MakeOwnEnterprise(qt::FromQt(file_), Enterprise()); });
  }

  QLineEdit* name_;
  QLineEdit* number_;
  QLineEdit* year_;
  QLineEdit* compartments_;
  QPlainTextEdit* districts_;
  QPlainTextEdit* workers_;
  QPlainTextEdit* objects_;
  QPlainTextEdit* payees_;
  QCheckBox* codes_;
  ToldLine* told_;
  QString file_;
};

}  // namespace

QString MakeEnterpriseFile(QWidget* parent) {
  EnterpriseDialog dialog(parent);
  return dialog.exec() == QDialog::Accepted ? dialog.File() : QString();
}

}  // namespace tarvoni::host
