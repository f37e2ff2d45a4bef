#include "host/desktop/application.h"

#include <QApplication>
#include <array>

namespace tarvoni::host {

void EnsureApplication() {
  if (QCoreApplication::instance()) return;
  static std::array<char, 8> name = {"tarvoni"};
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  static int count = 1;
  // Never destroyed: windows of other statics may end after this one.
  [[maybe_unused]] static auto* const application = new QApplication(count, arguments.data());
}

}  // namespace tarvoni::host
