#include "host/desktop/application.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <array>
#include <cstdio>

#include "platform/qt/public/look.h"
#include "src/context/values/call_error.h"

namespace tarvoni::host {
namespace {

// Where no windows are seen, Qt warns at each of them of what they can't do there.
void TellUnlessUnseen(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith("This plugin does not support")) std::fprintf(stderr, "%s\n", qPrintable(text));
}

QApplication* MakeApplication() {
  static std::array<char, 8> name = {"tarvoni"};
  static std::array<char*, 2> arguments = {name.data(), nullptr};
  static int count = 1;
  auto* const application = new QApplication(count, arguments.data());
  if (QGuiApplication::platformName() == "offscreen") qInstallMessageHandler(TellUnlessUnseen);
  qt::UseHouseStyle(*application);
  // The words of Qt's own dialogs, where the machine has them.
  static QTranslator german;
  if (german.load("qtbase_de", QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&german);
  return application;
}

}  // namespace

bool HasDisplay() {
  return !qEnvironmentVariableIsEmpty("DISPLAY") || !qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY") ||
         !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM");
}

void EnsureApplication(NoDisplay no_display) {
  if (QCoreApplication::instance()) return;
  if (!HasDisplay()) {
    if (no_display == NoDisplay::kFail)
      throw CallError("Es ist keine grafische Oberfläche erreichbar (DISPLAY ist leer).");
    qputenv("QT_QPA_PLATFORM", "offscreen");
  }
  // Never destroyed: windows of other statics may end after this one.
  [[maybe_unused]] static auto* const application = MakeApplication();
}

}  // namespace tarvoni::host
