#include "host/desktop/main_window.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHeaderView>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSettings>
#include <QStatusBar>
#include <QTabWidget>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <filesystem>
#include <set>
#include <utility>

#include "host/demo_database.h"
#include "host/desktop/server_dialog.h"
#include "host/desktop/settings_dialog.h"
#include "host/open_database.h"
#include "host/own_enterprise.h"
#include "platform/qt/public/look.h"
#include "src/context/values/call_error.h"
#include "tests/support/passwords.h"
#include "tests/support/sql.h"

namespace tarvoni::host {
namespace {

using ::testing::ElementsAre;

// A folder of the test's own, with the demo enterprise.
class Desktop : public ::testing::Test {
 protected:
  static void SetUpTestSuite() {
    folder_ = new QTemporaryDir;
    MakeDemoDatabase(DemoFile().toStdString(), {});
  }
  static void TearDownTestSuite() {
    delete folder_;
    folder_ = nullptr;
  }
  static QString DemoFile() { return folder_->filePath("demo.db"); }

  Desktop() {
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, folder_->path());
    QSettings("Tarvoni", "Lohn").clear();
    watch_.callOnTimeout([this] { CloseWhatOpened(); });
    watch_.start(10);
  }

  template <typename Widget>
  static Widget* Named(const QWidget& window, const QString& name) {
    for (auto* const widget : window.findChildren<Widget*>()) {
      if (widget->accessibleName() == name) return widget;
    }
    return nullptr;
  }

  static QPushButton* Button(const QWidget& window, const QString& text) {
    for (auto* const button : window.findChildren<QPushButton*>()) {
      if (button->text() == text) return button;
    }
    return nullptr;
  }

  static void Shot(QWidget& window, const std::string& name) {
    std::filesystem::create_directories(SHOTS_FOLDER);
    QApplication::processEvents();
    window.grab().save(QString::fromStdString(SHOTS_FOLDER "/desktop_" + name + ".png"));
  }

  static QListWidget* Screens(const MainWindow& window) { return Named<QListWidget>(window, "Bildschirme"); }

  // Chooses a method by its place in c_Lohn and opens it.
  static void Open(MainWindow& window, int method) {
    Screens(window)->setCurrentRow(method);
    Button(window, "Ö&ffnen")->click();
  }

  // Does what is to be done with each page of the tabs.
  static void EachPage(const QWidget& screen, const std::function<void()>& look) {
    auto* const tabs = screen.findChild<QTabWidget*>();
    for (int page = 0; page < (tabs ? tabs->count() : 1); ++page) {
      if (tabs) tabs->setCurrentIndex(page);
      QTest::qWait(50);
      look();
    }
  }

  // The Screens behind the buttons of a Screen.
  void OpenInner(QWidget& screen) {
    for (auto* const button : screen.findChildren<QPushButton*>()) {
      const QString caption = button->text().remove('&');
      const bool opens = QStringList{"Vorgaben", "Stunden", "Positionen", "Naturalvollzug"}.contains(caption);
      if (opens && button->isEnabled()) button->click();
    }
  }

  // A word, not the name of a column, and room for all of it.
  static void LookAtHeads(const QTableView& table, const std::string& screen, std::set<std::string>& heads) {
    constexpr int kHeadMargin = 3;
    const QHeaderView& header = *table.horizontalHeader();
    for (int i = 0; i < header.count(); ++i) {
      if (header.isSectionHidden(i)) continue;
      const QString head = table.model()->headerData(i, Qt::Horizontal).toString();
      EXPECT_FALSE(head.size() > 4 && head == head.toUpper()) << screen << ": " << head.toStdString();
      EXPECT_GE(header.sectionSize(i), header.fontMetrics().horizontalAdvance(head) + kHeadMargin)
          << screen << ": " << head.toStdString();
      heads.insert(head.toStdString());
    }
  }

  // For a test that closes its dialogs by itself, though events go on while one is open.
  void CloseNothing() { watch_.stop(); }

  QStringList opened_;                     // what opened and was closed, boxes with their text
  std::function<void(QWidget&)> look_at_;  // each window before it is closed

 private:
  // Each window in an event of its own: looking at it may open another.
  void CloseWhatOpened() {
    QWidget* const window = QApplication::activeModalWidget();
    if (!window || window == looked_at_) return;
    QWidget* const around = std::exchange(looked_at_, window);
    QTimer::singleShot(0, window, [this, window, around] {
      LookAndClose(window);
      looked_at_ = around;
    });
  }

  void LookAndClose(QWidget* window) {
    if (look_at_) look_at_(*window);
    if (const auto* const box = qobject_cast<QMessageBox*>(window))
      opened_ << box->text() + " | " + box->informativeText();
    else
      opened_ << window->windowTitle();
    window->close();
  }

  static inline QTemporaryDir* folder_ = nullptr;
  QTimer watch_;
  QWidget* looked_at_ = nullptr;
};

TEST_F(Desktop, BeginsWithAPageThatOffersWhatWasOpenBefore) {
  {
    MainWindow window;
    window.Open(DemoFile());
  }
  MainWindow window;
  window.show();
  Shot(window, "start");
  const auto* const recent = Named<QListWidget>(window, "Zuletzt geöffnete Datenbanken");
  ASSERT_EQ(recent->count(), 1);
  EXPECT_EQ(recent->item(0)->text(), DemoFile());
  EXPECT_TRUE(recent->isVisible());
}

TEST_F(Desktop, ListsTheClientsAndWhichScreensThereAre) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  Shot(window, "clients");
  const auto* const clients = Named<QTreeWidget>(window, "Mandanten");
  ASSERT_EQ(clients->topLevelItemCount(), 3);
  EXPECT_EQ(clients->currentItem()->text(1), "Forstbetrieb Kaltenwald");

  const QListWidget* const screens = Screens(window);
  ASSERT_EQ(screens->count(), 10);
  for (int i = 0; i < screens->count(); ++i) {
    Screens(window)->setCurrentRow(i);
    EXPECT_TRUE(Button(window, "Ö&ffnen")->isEnabled()) << i;
  }
}

TEST_F(Desktop, OpensAScreenWithTheChosenClient) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  Open(window, 2);
  Open(window, 0);
  EXPECT_THAT(opened_, ElementsAre(QString("Maschine-Stammdaten – Kostenarten der Maschinen"),
                                   testing::Property(&QString::toStdString,
                                                     testing::StartsWith("Arbeitsaufträge – "))));
}

TEST_F(Desktop, FormsOfferTheRowsOfTheClientAndTheForestYear) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  for (const char* name : {"Maschinenbuch", "PA_Gruppe", "BruttoLohn", "Arbeitsauftrag"}) {
    const Method& method = MethodNamed(name);
    Screens(window)->setCurrentRow(static_cast<int>(&method - Methods().data()));
    const auto* const box = window.findChild<QComboBox*>();
    ASSERT_NE(box, nullptr) << name;
    EXPECT_GT(box->count(), 1) << name;
    Shot(window, name);
  }
  auto* const clients = Named<QTreeWidget>(window, "Mandanten");
  const QString before = window.findChild<QComboBox*>()->itemText(1);
  clients->setCurrentItem(clients->topLevelItem(1));
  EXPECT_NE(window.findChild<QComboBox*>()->itemText(1), before);
  EXPECT_THAT(opened_, ElementsAre());
}

// The journals' hours, which have no amounts, are no place to begin.
TEST_F(Desktop, BeginsWithTheOrderOnWhichACostWasBookedLast) {
  MainWindow window;
  window.Open(DemoFile());
  Screens(window)->setCurrentRow(7);
  const auto* const box = window.findChild<QComboBox*>();
  EXPECT_TRUE(box->currentText().startsWith("2010202411700003")) << qPrintable(box->currentText());
  EXPECT_GT(box->currentIndex(), 1) << "the list is in the order of the numbers";
}

// What a Screen writes is written here while it is open.
TEST_F(Desktop, WhatACallMadeIsToldAndChosen) {
  const QString file = DemoFile() + ".neu";
  std::filesystem::copy(DemoFile().toStdString(), file.toStdString());
  MainWindow window;
  window.show();
  window.Open(file);
  const auto call = [&](int method, const char* meanwhile) {
    look_at_ = [&](QWidget&) { OpenDatabase(file.toStdString())->Execute(Sql(meanwhile)); };
    Open(window, method);
    return window.findChild<QComboBox*>()->currentText().toStdString();
  };
  const auto told = [&] { return window.statusBar()->currentMessage().toStdString(); };

  EXPECT_EQ(
      call(
          7,
          "INSERT INTO ARBEITSAUFTRAG_KOPF (NAME, PERSONAL_ID, NAME_FWJ, BESCHREIBUNG) VALUES ('2010202411000009', 1, "
          "'2024', 'Neu') INSERT INTO PA_GRUPPE (BEZEICHNUNG, FWJ, ID_PERSONAL) VALUES ('Zuletzt', '2019', 1)"),
      "2010202411000009 · Neu");
  EXPECT_EQ(told(), "Neu angelegt: PA-Gruppe Zuletzt · 2019, Auftrag 2010202411000009 · Neu");
  Screens(window)->setCurrentRow(3);
  EXPECT_EQ(window.findChild<QComboBox*>()->currentText(), "Zuletzt · 2019");
  call(3, "UPDATE ARBEITSAUFTRAG_KOPF SET BESCHREIBUNG = 'Anders' WHERE NAME = '2010202411000009'");
  EXPECT_EQ(told(), "") << "nothing is new";
  Screens(window)->setCurrentRow(7);
  EXPECT_EQ(window.findChild<QComboBox*>()->currentText(), "2010202411000009 · Anders");
}

TEST_F(Desktop, ANewMachineGetsTheNumberThatIsTyped) {
  const QString file = DemoFile() + ".maschine";
  std::filesystem::copy(DemoFile().toStdString(), file.toStdString());
  MainWindow window;
  window.show();
  window.activateWindow();
  window.Open(file);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  Screens(window)->setCurrentRow(1);
  auto* const box = window.findChild<QComboBox*>();
  EXPECT_FALSE(box->isEditable()) << "a number that no machine bears opens nothing";
  auto* const fresh = window.findChild<QCheckBox*>();
  fresh->setChecked(true);
  EXPECT_EQ(box->currentText(), "702") << "the next free number";
  box->setEditText("700");
  Named<QTreeWidget>(window, "Mandanten")
      ->setCurrentItem(Named<QTreeWidget>(window, "Mandanten")->topLevelItem(1));
  EXPECT_EQ(box->currentText(), "700") << "what was typed stays";
  box->setFocus();
  box->lineEdit()->selectAll();
  look_at_ = [&](QWidget&) {
    OpenDatabase(file.toStdString())
        ->Execute("INSERT INTO MASCHINENBUCH (NUMMER, BEZEICHNUNG) VALUES (812, 'Winde')");
  };
  for (const Qt::Key key : {Qt::Key_X, Qt::Key_8, Qt::Key_1, Qt::Key_2, Qt::Key_Return})
    QTest::keyClick(QApplication::focusWidget(), key);
  EXPECT_THAT(opened_,
              ElementsAre(testing::Property(&QString::toStdString, testing::HasSubstr("Maschine 812"))));
  EXPECT_FALSE(fresh->isChecked());
  EXPECT_EQ(box->currentText(), "812 · Winde");
}

TEST_F(Desktop, TellsWhyADatabaseDoesNotOpenAndKeepsTheOneBefore) {
  MainWindow window;
  window.Open(DemoFile());
  window.Open("/nirgends/lohn.db");
  ASSERT_EQ(opened_.size(), 1);
  EXPECT_TRUE(opened_[0].contains("/nirgends/lohn.db")) << opened_[0].toStdString();
  EXPECT_TRUE(window.windowTitle().contains("demo.db"));
  window.Close();
  EXPECT_EQ(window.windowTitle(), "Tarvoni Lohn");
}

TEST_F(Desktop, TakesNoDatabaseThatIsNotOurs) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  const QString empty = DemoFile() + ".fremd";
  OpenDatabase(empty.toStdString(), OpenMode::kCreate)->Execute("CREATE TABLE FREMD (A INT)");
  window.Open(empty);
  ASSERT_EQ(opened_.size(), 1);
  EXPECT_TRUE(opened_[0].contains("keine Datenbank von Tarvoni Lohn")) << qPrintable(opened_[0]);
  EXPECT_TRUE(window.windowTitle().contains("demo.db –")) << qPrintable(window.windowTitle());
  EXPECT_EQ(Named<QTreeWidget>(window, "Mandanten")->topLevelItemCount(), 3);
  EXPECT_FALSE(RecentDatabases().contains(empty));
  Open(window, 2);
  EXPECT_EQ(opened_.size(), 2) << "the one before answers";
}

TEST_F(Desktop, FindsAClientByWhatIsTyped) {
  MainWindow window;
  window.show();
  window.activateWindow();
  window.Open(DemoFile());
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto type = [](const char* keys) { QTest::keyClicks(QApplication::focusWidget(), keys); };
  const auto current = [&] { return Named<QTreeWidget>(window, "Mandanten")->currentItem()->text(0); };
  type("auen");
  EXPECT_EQ(current(), "2020");
  QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
  type("203");
  EXPECT_EQ(current(), "2030");
  type("x");
  EXPECT_EQ(Named<QTreeWidget>(window, "Mandanten")->currentItem(), nullptr);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backspace);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_THAT(opened_, ElementsAre(testing::Property(&QString::toStdString, testing::HasSubstr("2030"))));
}

TEST_F(Desktop, TabGoesRoundAllBoxes) {
  MainWindow window;
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  const auto round = [] {
    QWidget* const first = QApplication::focusWidget();
    QStringList stops;
    do {
      QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
      const auto* const button = qobject_cast<QAbstractButton*>(QApplication::focusWidget());
      stops << (button ? button->text() : QApplication::focusWidget()->accessibleName());
    } while (QApplication::focusWidget() != first && stops.size() < 10);
    return stops.join(", ").toStdString();
  };
  EXPECT_EQ(round(),
            "&Musterbetrieb anlegen, Datenbank &öffnen, Mit &Server verbinden, Ei&genen Betrieb anlegen");
  window.Open(DemoFile());
  EXPECT_EQ(round(), "Bildschirme, Ö&ffnen, Mandanten suchen, Mandanten");
}

TEST_F(Desktop, ShowsTheErrorThatAMethodReturns) {
  const QString file = DemoFile() + ".kaputt";
  std::filesystem::copy(DemoFile().toStdString(), file.toStdString());
  MainWindow window;
  window.Open(file);
  OpenDatabase(file.toStdString())->Execute("DROP TABLE MASCHINE_STAMM");
  Open(window, 2);
  ASSERT_EQ(opened_.size(), 1);
  EXPECT_TRUE(opened_[0].contains("MASCHINE_STAMM")) << opened_[0].toStdString();
  EXPECT_TRUE(opened_[0].contains("_c_Lohn F_MaschineStamm")) << opened_[0].toStdString();
}

TEST_F(Desktop, FitsASmallScreen) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  EXPECT_LE(window.minimumSizeHint().width(), 1366);
  EXPECT_LE(window.minimumSizeHint().height(), 720);
}

// 1366x768 at 150 % leaves a Screen this room within the frame of its window.
TEST_F(Desktop, NoScreenScrollsSidewaysOnASmallScaledScreen) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  look_at_ = [this](QWidget& screen) {
    screen.resize(903, 485);
    EachPage(screen, [&] {
      for (const auto* const area : screen.findChildren<QScrollArea*>()) {
        if (!area->isVisible()) continue;
        EXPECT_EQ(area->horizontalScrollBar()->maximum(), 0) << screen.windowTitle().toStdString();
      }
    });
    OpenInner(screen);
  };
  for (int i = 0; i < 8; ++i) Open(window, i);
  EXPECT_EQ(opened_.size(), 11) << opened_.join('\n').toStdString();
}

// On a laptop's screen a head is a word, told whole in a table that has just opened.
TEST_F(Desktop, HeadsOfTablesAreWholeWords) {
  MainWindow window;
  window.show();
  window.Open(DemoFile());
  std::set<std::string> heads;
  look_at_ = [&](QWidget& screen) {
    screen.resize(1340, 700);
    EachPage(screen, [&] {
      for (const auto* const table : screen.findChildren<QTableView*>()) {
        if (table->isVisible()) LookAtHeads(*table, screen.windowTitle().toStdString(), heads);
      }
    });
    OpenInner(screen);
  };
  for (int i = 0; i < 8; ++i) Open(window, i);
  EXPECT_GT(heads.size(), 60);
}

TEST_F(Desktop, FocusIsOnTheClientsAndEnterOpens) {
  MainWindow window;
  window.show();
  window.activateWindow();
  window.Open(DemoFile());
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  EXPECT_EQ(QApplication::focusWidget(), Named<QTreeWidget>(window, "Mandanten"));
  QTest::keyClick(window.windowHandle(), Qt::Key_Return);
  EXPECT_THAT(opened_,
              ElementsAre(testing::Property(&QString::toStdString,
                                            testing::StartsWith("Arbeitsaufträge – Forstbetrieb 2010"))));
}

TEST_F(Desktop, AnEnterpriseOfOnesOwnTakesOrdersAtOnce) {
  const std::string file = DemoFile().toStdString() + ".eigen";
  EXPECT_THROW(MakeOwnEnterprise(file, {.number = "77", .name = "", .forest_year = 2025}), CallError);
  MakeOwnEnterprise(file, {.number = "77", .name = "Hof' Wald", .forest_year = 2025});
  EXPECT_THROW(MakeOwnEnterprise(file, {.number = "77", .name = "Wald", .forest_year = 2025}), CallError);
  MainWindow window;
  window.show();
  window.Open(QString::fromStdString(file));
  EXPECT_EQ(Named<QTreeWidget>(window, "Mandanten")->currentItem()->text(1), "Hof' Wald");
  EXPECT_FALSE(window.findChild<QLineEdit*>("forest_year")->isVisible()) << "wage orders ask for none";
  Open(window, 0);
  EXPECT_THAT(opened_,
              ElementsAre(testing::Property(&QString::toStdString, testing::StartsWith("Arbeitsaufträge"))));
}

TEST_F(Desktop, ServerDialogKeepsWhatWasTypedAndTellsTheFault) {
  CloseNothing();
  MainWindow window;
  std::vector<std::string> tried;
  QTimer::singleShot(0, &window, [&] {
    auto& dialog = *QApplication::activeModalWidget();
    const auto field = [&](const char* name) { return dialog.findChild<QLineEdit*>(name); };
    const int title = dialog.fontMetrics().horizontalAdvance(dialog.windowTitle());
    EXPECT_GE(dialog.width(), title * 3 / 2) << "beside the buttons of its frame";
    field("server")->setText("db1");
    field("database")->setText("lohn");
    field("password")->setText("ge;heim");
    static_cast<QDialog&>(dialog).accept();
    EXPECT_TRUE(dialog.isVisible());
    EXPECT_TRUE(
        dialog.findChild<QLabel*>("told")->text().startsWith("Die Verbindung zum Server „db1“ ist nicht"));
    EXPECT_TRUE(dialog.findChild<QLabel*>("told")->text().endsWith("\n\nEinzelheiten: login failed"));
    EXPECT_EQ(field("password")->text(), "ge;heim");
    static_cast<QDialog&>(dialog).accept();
    EXPECT_TRUE(dialog.findChild<QLabel*>("told")->text().startsWith(
        "Bitte das Kennwort prüfen.\n\nEinzelheiten: 18456"));
    static_cast<QDialog&>(dialog).accept();
  });
  ConnectToServer(&window, [&](const QString& server) {
    tried.push_back(server.toStdString());
    EXPECT_EQ(window.findChild<QLabel*>("told")->text(), "Die Verbindung wird aufgebaut …");
    if (tried.size() == 2) throw CallError("Bitte das Kennwort prüfen. Meldung: 18456");
    if (tried.size() == 1)
      throw CallError("Die Verbindung zur Datenbank lässt sich nicht öffnen. Meldung: login failed");
  });
  EXPECT_EQ(tried, std::vector<std::string>(
                       3, "odbc:Driver=FreeTDS;Server=db1;Port=1433;Database=lohn;PWD={ge;heim}"));
  EXPECT_EQ(ServerSettings::Load().database, "lohn");
}

// Who gives up has failed at one field, seldom at all of them.
TEST_F(Desktop, ServerDialogRemembersAllButThePasswordWhenTheUserGivesUp) {
  CloseNothing();
  MainWindow window;
  const auto give_up = [](const QString& password) {
    auto& dialog = *QApplication::activeModalWidget();
    const auto field = [&](const char* name) { return dialog.findChild<QLineEdit*>(name); };
    EXPECT_EQ(field("password")->text(), "");
    if (!password.isEmpty()) field("server")->setText("db1");
    if (!password.isEmpty()) field("database")->setText("lohn");
    field("password")->setText(password);
    static_cast<QDialog&>(dialog).accept();
    EXPECT_EQ(field("server")->text(), "db1");
    EXPECT_EQ(dialog.focusWidget(), field("driver"));
    const QString fault = dialog.findChild<QLabel*>("told")->text();
    EXPECT_TRUE(fault.startsWith("Der Treiber „FreeTDS“ ist auf diesem Rechner nicht installiert."))
        << qPrintable(fault);
    dialog.close();
  };
  for (const QString password : {"geheim", ""}) {
    QTimer::singleShot(0, &window, [&] { give_up(password); });
    ConnectToServer(&window, [](const QString&) { throw CallError("Nichts. Meldung: Can't open lib"); });
  }
  EXPECT_EQ(ServerSettings::Load().database, "lohn");
  const QSettings store("Tarvoni", "Lohn");
  for (const QString& key : store.allKeys())
    EXPECT_FALSE(store.value(key).toString().contains("geheim")) << qPrintable(key);
}

TEST_F(Desktop, TabGoesThroughTheSettingsInTheirOrder) {
  MainWindow window;
  QStringList stops;
  QTimer::singleShot(0, &window, [&] {
    QWidget* const dialog = QApplication::activeModalWidget();
    for (QWidget* at = dialog->nextInFocusChain(); at != dialog; at = at->nextInFocusChain()) {
      if ((at->focusPolicy() & Qt::TabFocus) == 0) continue;
      const auto* const button = qobject_cast<QPushButton*>(at);
      const auto* const edit = qobject_cast<QLineEdit*>(at);
      if (button || edit) stops << (button ? button->text() : edit->text());
    }
    static_cast<QDialog*>(dialog)->reject();
  });
  Settings settings{.work_directory = "/tmp"};
  EXPECT_FALSE(EditSettings(&window, settings));
  EXPECT_THAT(stops, ElementsAre("ATS", "/tmp", "&Wählen …", "&Übernehmen", "&Abbrechen"));
}

TEST_F(Desktop, ServerDialogTakesNoSecondPassword) {
  MainWindow window;
  QTimer::singleShot(0, &window, [&] {
    auto& dialog = *QApplication::activeModalWidget();
    dialog.findChild<QLineEdit*>("server")->setText("db1;PWD=Fichte");
    dialog.findChild<QLineEdit*>("database")->setText("lohn");
    static_cast<QDialog&>(dialog).accept();
    EXPECT_TRUE(dialog.findChild<QLabel*>("told")->text().contains("Strichpunkt"));
    static_cast<QDialog&>(dialog).reject();
  });
  ConnectToServer(&window, [&](const QString&) { FAIL(); });
  EXPECT_EQ(ServerSettings::Load().server, "");
}

// Neither in what the windows show nor in what is kept for the next time, whether a text opens or not.
TEST_F(Desktop, ShowsAndRemembersNoPassword) {
  const std::string file = DemoFile().toStdString() + ".leer";
  std::filesystem::copy(DemoFile().toStdString(), file);
  const std::string driver = "odbc:Driver=" SQLITE_ODBC_DRIVER ";Database=" + file;
  std::vector<std::string> texts = passwords::ConnectionTexts();
  for (const std::string& attribute : passwords::Attributes()) texts.push_back(driver + ";" + attribute);
  MainWindow window;
  for (std::size_t i = 0; i < texts.size(); i += 7) {
    opened_.clear();
    window.Open(QString::fromStdString(texts[i]));
    RememberDatabase(QString::fromStdString(texts[i]));
    QStringList shown = opened_ + RecentDatabases();
    shown << window.windowTitle();
    for (const auto* const label : window.findChildren<QLabel*>()) shown << label->text();
    EXPECT_GE(opened_.size(), 1) << texts[i];
    EXPECT_FALSE(shown.join(' ').contains(passwords::kSecret)) << shown.join(' ').toStdString();
    EXPECT_EQ(window.windowTitle().contains("leer"), texts[i].starts_with(driver)) << texts[i];
    window.Close();
  }
  RememberDatabase("odbc:Driver=FreeTDS;Server=db1;Trusted=1");
  EXPECT_THAT(RecentDatabases(), ElementsAre("odbc:Driver=FreeTDS;Server=db1;Trusted=1"));
}

}  // namespace
}  // namespace tarvoni::host

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  QApplication application(argc, argv);
  tarvoni::qt::UseHouseStyle(application);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
