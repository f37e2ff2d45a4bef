#pragma once

#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>
#include <QWidget>
#include <functional>

namespace tarvoni::host {

// What the window shows while no database is open.
class StartPage : public QWidget {
 public:
  struct Actions {
    std::function<void()> open_file;
    std::function<void()> connect_server;
    std::function<void()> make_enterprise;
    std::function<void()> make_demo;
    std::function<void(const QString&)> open;
  };
  explicit StartPage(Actions actions);

  void ShowRecent(const QStringList& databases);
  // To the database opened last, else to what a new user needs.
  void FocusStart();

 private:
  void AddLinks(QVBoxLayout& column);

  Actions actions_;
  QLabel* recent_label_;
  QListWidget* recent_;
  QWidget* own_ = nullptr;
};

}  // namespace tarvoni::host
