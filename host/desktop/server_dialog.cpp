#include "host/desktop/server_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <optional>

#include "host/desktop/digits.h"
#include "host/desktop/settings.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"
#include "src/context/data/password.h"

namespace tarvoni::host {
namespace {

constexpr int kFieldWidth = 40;  // characters
constexpr int kToldWidth = 60;
constexpr int kDigitsOfPort = 5;

// Drivers know braces only where a semicolon needs them.
QString Braced(const QString& value) {
  return value.contains(';') ? "{" + value + "}" : value;
}

class ServerDialog : public QDialog {
 public:
  ServerDialog(QWidget* parent, const std::function<void(const QString&)>& connect_to)
      : QDialog(parent), connect_to_(connect_to), told_(new QLabel(this)) {
    setWindowTitle("Mit einem Server verbinden");
    auto* const form = new QFormLayout(this);
    const ServerSettings last = ServerSettings::Load();
    server_ = AddField(*form, "&Server:", "server", last.server);
    server_->setMinimumWidth(qt::CharactersWide(*this, kFieldWidth));
    database_ = AddField(*form, "&Datenbank:", "database", last.database);
    user_ = AddField(*form, "&Benutzer:", "user", last.user);
    password_ = AddField(*form, "&Kennwort:", "password", {});
    password_->setEchoMode(QLineEdit::Password);
    driver_ = AddField(*form, "&Treiber:", "driver", last.driver);
    port_ = AddField(*form, "P&ort:", "port", last.port);
    TakeDigits(*port_, kDigitsOfPort);
    told_->setObjectName("told");
    told_->setTextFormat(Qt::PlainText);
    told_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    told_->setWordWrap(true);
    told_->setMinimumWidth(fontMetrics().averageCharWidth() * kToldWidth);
    told_->hide();
    form->addRow(told_);
    form->addRow(MakeButtons());
    if (!last.server.isEmpty()) password_->setFocus();
  }

  void accept() override {
    for (auto* const edit : {server_, database_, driver_}) {
      if (edit->text().trimmed().isEmpty())
        return Refuse("Server, Datenbank und Treiber müssen angegeben sein.", edit);
    }
    // It would begin a part of its own in the connection text, a password too, and be kept with the field.
    if (HasSemicolon()) return Refuse("Ein Strichpunkt kann nur im Kennwort stehen.");
    if (TryToConnect()) QDialog::accept();
  }

  // However it ends: who gives up to look a name up finds the rest again.
  void done(int result) override {
    if (!HasSemicolon()) Remembered().Save();
    QDialog::done(result);
  }

 private:
  QLineEdit* AddField(QFormLayout& form, const QString& label, const QString& name, const QString& text) {
    auto* const edit = new QLineEdit(text, this);
    edit->setObjectName(name);
    form.addRow(label, edit);
    return edit;
  }

  QDialogButtonBox* MakeButtons() {
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setText("&Verbinden");
    buttons->button(QDialogButtonBox::Cancel)->setText("&Abbrechen");
    connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    return buttons;
  }

  // Tells why there is none.
  bool TryToConnect() {
    std::optional<QString> fault;
    Tell("Die Verbindung wird aufgebaut …");
    repaint();  // to be seen while it lasts
    QApplication::setOverrideCursor(Qt::WaitCursor);
    try {
      connect_to_(Connection());
    } catch (const std::exception& error) {
      fault = qt::ToQt(error.what());
    }
    QApplication::restoreOverrideCursor();
    if (fault) RefuseConnection(*fault);
    return !fault;
  }

  void RefuseConnection(const QString& fault) {
    const bool no_driver = fault.contains("Can't open lib");
    const QString reason = no_driver ? "Der Treiber „" + driver_->text().trimmed() +
                                           "“ ist auf diesem Rechner nicht installiert."
                                     : "Die Verbindung zum Server „" + server_->text().trimmed() +
                                           "“ ist nicht zustande gekommen. Bitte die Angaben prüfen.";
    // Behind this word stand the driver's own; what comes before it says less than ours.
    const QString detail = fault.section("Meldung: ", -1);
    Refuse(reason + "\n\nEinzelheiten: " + detail, no_driver ? driver_ : nullptr);
  }

  // Tells the fault; the focus goes to the field that is wrong, if one is known.
  void Refuse(const QString& fault, QLineEdit* field = nullptr) {
    Tell(qt::ToQt(WithoutPassword(qt::FromQt(fault))));
    if (field) field->setFocus();
  }

  void Tell(const QString& text) {
    told_->setText(text);
    told_->show();
    adjustSize();
  }

  bool HasSemicolon() const {
    const ServerSettings to = Remembered();
    return (to.server + to.database + to.user + to.driver + to.port).contains(';');
  }

  ServerSettings Remembered() const {
    return {.server = server_->text().trimmed(),
            .database = database_->text().trimmed(),
            .user = user_->text().trimmed(),
            .driver = driver_->text().trimmed(),
            .port = port_->text().trimmed()};
  }

  QString Connection() const {
    const ServerSettings to = Remembered();
    QString connection =
        "odbc:Driver=" + to.driver + ";Server=" + to.server + ";Port=" + to.port + ";Database=" + to.database;
    if (!to.user.isEmpty()) connection += ";UID=" + to.user;
    if (!password_->text().isEmpty()) connection += ";PWD=" + Braced(password_->text());
    return connection;
  }

  const std::function<void(const QString&)>& connect_to_;
  QLabel* told_;
  QLineEdit* server_;
  QLineEdit* database_;
  QLineEdit* user_;
  QLineEdit* password_;
  QLineEdit* driver_;
  QLineEdit* port_;
};

}  // namespace

void ConnectToServer(QWidget* parent, const std::function<void(const QString&)>& connect) {
  ServerDialog(parent, connect).exec();
}

}  // namespace tarvoni::host
