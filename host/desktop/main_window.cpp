#include "host/desktop/main_window.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>
#include <QSplitter>
#include <QStatusBar>

#include "host/desktop/demo_maker.h"
#include "host/desktop/digits.h"
#include "host/desktop/enterprise_dialog.h"
#include "host/desktop/report.h"
#include "host/desktop/server_dialog.h"
#include "host/desktop/settings_dialog.h"
#include "host/open_database.h"
#include "platform/qt/public/look.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {

using qt::FromQt;
using qt::ToQt;

namespace {

constexpr int kFirstWidth = 120;  // characters
constexpr int kFirstHeight = 34;  // lines
constexpr double kShareOfScreen = 0.9;
constexpr int kClientWidth = 30;
constexpr int kStatusTime = 15000;
constexpr int kDigitsOfYear = 4;

}  // namespace

MainWindow::MainWindow()
    : environment_{.toolkit = &toolkit_, .suite = &suite_, .connect = [](const std::string& database) {
                     return OpenDatabase(database);
                   }} {
  UseSettings();
  toolkit_.SetOwner(this);
  start_ = new StartPage({.open_file = [this] { OpenFile(); },
                          .connect_server = [this] { ConnectServer(); },
                          .make_enterprise = [this] { OpenMade(MakeEnterpriseFile(this)); },
                          .make_demo = [this] { OpenMade(MakeDemoFile(this)); },
                          .open = [this](const QString& database) { Open(database); }});
  pages_ = new QStackedWidget;
  pages_->addWidget(start_);
  pages_->addWidget(MakeWorkPage());
  setCentralWidget(pages_);
  MakeMenus();
  statusBar();
  const QSize wanted(qt::CharactersWide(*this, kFirstWidth), qt::LinesHigh(*this, kFirstHeight));
  resize(wanted.boundedTo(screen()->availableSize() * kShareOfScreen));
  ShowState();
}

QWidget* MainWindow::MakeWorkPage() {
  auto* const page = new QWidget;
  auto* const splitter = new QSplitter;
  splitter->addWidget(MakeScopeSide());
  calls_ = new CallPane(
      workplace_,
      [this](const Method& method, const Arguments::Values& arguments) { Call(method, arguments); },
      [this](bool used) { year_row_->setVisible(used); });
  splitter->addWidget(calls_);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  (new QVBoxLayout(page))->addWidget(splitter);
  return page;
}

QWidget* MainWindow::MakeScopeSide() {
  clients_ = new ClientList([this] { ShowScope(); }, [this] { calls_->Open(); });
  forest_year_ = new QLineEdit;
  forest_year_->setObjectName("forest_year");
  TakeDigits(*forest_year_, kDigitsOfYear);
  connect(forest_year_, &QLineEdit::textChanged, this, [this] { ShowScope(); });
  year_row_ = new QWidget;
  auto* const row = new QFormLayout(year_row_);
  row->setContentsMargins(0, 0, 0, 0);
  row->addRow("Forst&jahr:", forest_year_);

  auto* const side = new QWidget;
  side->setMinimumWidth(qt::CharactersWide(*this, kClientWidth));
  auto* const column = new QVBoxLayout(side);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(clients_);
  column->addWidget(year_row_);
  return side;
}

void MainWindow::MakeMenus() {
  MakeDatabaseMenu();
  QMenu* const screens = menuBar()->addMenu("&Bildschirme");
  for (const Method& method : Methods()) {
    needs_database_ << screens->addAction(ToQt(method.title), this,
                                          [this, &method] { calls_->Choose(method); });
  }
  QMenu* const extras = menuBar()->addMenu("&Extras");
  needs_database_ << extras->addAction("&Mandanten suchen", QKeySequence::Find, this,
                                       [this] { clients_->Search(); });
  extras->addAction("&Einstellungen …", this, [this] { ChangeSettings(); });
  QMenu* const help = menuBar()->addMenu("&Hilfe");
  help->addAction("&Tasten", QKeySequence(Qt::Key_F1), this, [this] { ShowKeys(); });
  help->addAction("Ü&ber Tarvoni Lohn", this, [this] { ShowAbout(); });
}

void MainWindow::MakeDatabaseMenu() {
  QMenu* const database = menuBar()->addMenu("&Datenbank");
  database->addAction("Ö&ffnen …", QKeySequence::Open, this, [this] { OpenFile(); });
  database->addAction("Mit &Server verbinden …", this, [this] { ConnectServer(); });
  recent_ = database->addMenu("&Zuletzt geöffnet");
  database->addAction("&Eigenen Betrieb anlegen …", this, [this] { OpenMade(MakeEnterpriseFile(this)); });
  database->addAction("&Musterbetrieb anlegen …", this, [this] { OpenMade(MakeDemoFile(this)); });
  needs_database_ << database->addAction("S&chließen", QKeySequence::Close, this, [this] { Close(); });
  database->addSeparator();
  database->addAction("&Beenden", QKeySequence(Qt::CTRL | Qt::Key_Q), this, [this] { close(); });
}

void MainWindow::OpenFile() {
  const QString file =
      QFileDialog::getOpenFileName(this, "Datenbank öffnen", {}, "Datenbanken (*.db);;Alle Dateien (*)");
  if (!file.isEmpty()) Open(file);
}

void MainWindow::ConnectServer() {
  ConnectToServer(this, [this](const QString& server) {
    workplace_.Open(FromQt(server));
    Opened(server);
  });
}

void MainWindow::OpenMade(const QString& file) {
  if (file.isEmpty()) return;
  Open(file);
  activateWindow();
  statusBar()->showMessage(
      "Angelegt: " + clients_->CurrentName().simplified() + ", Datei " + QFileInfo(file).fileName(),
      kStatusTime);
}

void MainWindow::Open(const QString& database) {
  const bool server = IsServer(FromQt(database));
  const QString name = server ? database : QFileInfo(database).absoluteFilePath();
  const bool opened = Reported(this, [&] { workplace_.Open(FromQt(name)); });
  if (!server && !QFileInfo::exists(name)) ForgetDatabase(name);
  if (opened) return Opened(name);
  ShowState();
}

void MainWindow::Opened(const QString& database) {
  RememberDatabase(database);
  calls_->ForgetChosen();
  ShowState();
  ShowClients();
}

void MainWindow::Close() {
  workplace_.Close();
  ShowState();
}

void MainWindow::ShowState() {
  const bool open = workplace_.IsOpen();
  pages_->setCurrentIndex(open ? 1 : 0);
  for (QAction* const action : needs_database_) action->setEnabled(open);
  setWindowTitle(open ? ToQt(workplace_.Name()) + " – Tarvoni Lohn" : QString("Tarvoni Lohn"));
  ShowRecent();
  if (!open) start_->FocusStart();
}

void MainWindow::ShowRecent() {
  const QStringList databases = RecentDatabases();
  start_->ShowRecent(databases);
  recent_->clear();
  for (const QString& database : databases) {
    recent_->addAction(QString(database).replace('&', "&&"), this, [this, database] { Open(database); });
  }
  recent_->setEnabled(!databases.isEmpty());
}

void MainWindow::ShowClients() {
  clients_->Show({}, 0);
  Reported(this, [this] {
    UseSettings();
    forest_year_->setText(ToQt(workplace_.StandardForestYear()));
    clients_->Show(workplace_.Clients(), workplace_.StandardClient());
    clients_->FocusList();
  });
}

void MainWindow::ShowScope() {
  if (!workplace_.IsOpen()) return;
  Reported(this, [this] {
    calls_->SetScope({.client = clients_->CurrentId(), .forest_year = FromQt(forest_year_->text())},
                     clients_->CurrentName());
  });
}

void MainWindow::Call(const Method& method, const Arguments::Values& arguments) {
  std::string result;
  const auto call = [&] {
    Reported(this, [&] {
      const Arguments::Values results = CallMethod(method, arguments, workplace_.Record());
      if (!method.result.empty()) result = results.at(method.result);
    });
  };
  Reported(this, [&] {
    const QStringList made = calls_->Watch(call);
    statusBar()->showMessage(made.isEmpty() ? QString() : "Neu angelegt: " + made.join(", "), kStatusTime);
  });
  if (!result.empty()) ShowResult(ToQt(method.result_label), ToQt(result));
}

void MainWindow::ShowResult(const QString& label, const QString& result) {
  QMessageBox box(QMessageBox::Information, label, label + ": " + result, QMessageBox::NoButton, this);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  const auto* const copy = box.addButton("&Kopieren", QMessageBox::AcceptRole);
  box.addButton("&Schließen", QMessageBox::RejectRole);
  box.exec();
  if (box.clickedButton() == copy) QApplication::clipboard()->setText(result);
}

void MainWindow::ChangeSettings() {
  if (!EditSettings(this, settings_)) return;
  settings_.Save();
  Reported(this, [this] { UseSettings(); });
}

// A database's own currency comes before that of the settings.
void MainWindow::UseSettings() {
  environment_.locale = settings_.FieldLocale();
  settings_.Fill(workplace_.Record());
  const std::string currency = workplace_.IsOpen() ? workplace_.LocalCurrency() : std::string();
  if (!currency.empty()) workplace_.Record().strLocalCurrency = currency;
}

void MainWindow::ShowKeys() {
  QMessageBox::information(this, "Tasten",
                           "Eingabe: den gewählten Bildschirm öffnen\n"
                           "Alt+M: Mandanten, Alt+L: Bildschirme\n"
                           "Strg+F oder Buchstaben in der Liste: Mandanten suchen\n"
                           "Strg+O: Datenbank öffnen\n"
                           "Strg+Q: beenden\n"
                           "Alt und der unterstrichene Buchstabe: ein Feld daneben\n"
                           "F1: diese Übersicht; in jedem Bildschirm nennt sie dessen Tasten");
}

void MainWindow::ShowAbout() {
  QMessageBox::about(this, "Über Tarvoni Lohn",
                     "Tarvoni Lohn " TARVONI_VERSION "\n\nLohn und Kostenrechnung eines Forstbetriebs.");
}

}  // namespace tarvoni::host
