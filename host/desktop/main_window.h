#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenu>
#include <QStackedWidget>

#include "host/desktop/call_pane.h"
#include "host/desktop/client_list.h"
#include "host/desktop/settings.h"
#include "host/desktop/start_page.h"
#include "host/workplace.h"
#include "platform/qt/public/qt_toolkit.h"
#include "src/context/services/environment.h"
#include "suite/tarvoni_suite.h"

namespace tarvoni::host {

// The desktop host: opens a database, lists its clients, calls the ten methods. It is what any host of the component
// is; while it lives, its environment is in force on the thread.
class MainWindow : public QMainWindow {
 public:
  MainWindow();

  // Tells the user if the database does not open; that open before stays then.
  void Open(const QString& database);
  void Close();

 private:
  // A database is open now.
  void Opened(const QString& database);
  QWidget* MakeWorkPage();
  // Clients and forest year: for whom and for when Screens are opened.
  QWidget* MakeScopeSide();
  void MakeMenus();
  void MakeDatabaseMenu();
  void OpenFile();
  void ConnectServer();
  // Opens a file that was made; "" is none.
  void OpenMade(const QString& file);
  void ShowRecent();
  void ShowState();
  void ShowClients();
  // Client and forest year have changed.
  void ShowScope();
  void Call(const Method& method, const Arguments::Values& arguments);
  // What a method gives, to be read and copied.
  void ShowResult(const QString& label, const QString& result);
  void ChangeSettings();
  void UseSettings();
  void ShowKeys();
  void ShowAbout();

  qt::QtToolkit toolkit_;
  TarvoniSuite suite_;
  Environment environment_;
  EnvironmentScope in_force_{environment_};
  Settings settings_ = Settings::Load();
  Workplace workplace_;

  QStackedWidget* pages_;
  StartPage* start_;
  ClientList* clients_;
  QLineEdit* forest_year_;
  QWidget* year_row_;  // with its label; shown where the chosen Screen's arguments depend on it
  CallPane* calls_;
  QMenu* recent_ = nullptr;
  QList<QAction*> needs_database_;
};

}  // namespace tarvoni::host
