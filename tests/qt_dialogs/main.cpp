#include <gtest/gtest.h>

#include <QApplication>
#include <clocale>

// Where the process is to speak German, it really does.
TEST(ProcessTest, WritesNumbersAsItIsTold) {
  const char* expected = qEnvironmentVariableIsSet("TARVONI_COMMA") ? "," : ".";
  EXPECT_STREQ(localeconv()->decimal_point, expected);
}

int main(int argc, char** argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&argc, argv);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
