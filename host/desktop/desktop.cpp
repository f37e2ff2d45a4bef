#include "host/desktop/desktop.h"

#include <QApplication>

#include "host/desktop/application.h"
#include "host/desktop/main_window.h"
#include "platform/qt/public/text.h"

namespace tarvoni::host {

int RunDesktop(const std::string& database) {
  EnsureApplication();
  MainWindow window;
  window.show();
  if (!database.empty()) window.Open(qt::ToQt(database));
  return QApplication::exec();
}

}  // namespace tarvoni::host
