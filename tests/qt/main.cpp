#include <gmock/gmock.h>

#include <QApplication>

#include "platform/qt/public/look.h"

// One QApplication for all tests, without a screen unless one is named.
int main(int argc, char** argv) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleMock(&argc, argv);
  QApplication application(argc, argv);
  tarvoni::qt::UseHouseStyle(application);
  return RUN_ALL_TESTS();
}
