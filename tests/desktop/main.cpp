// Runs the desktop's tests in one application, without a screen unless one is asked for.
#include <gtest/gtest.h>

#include <QApplication>

int main(int count, char** arguments) {
  if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  testing::InitGoogleTest(&count, arguments);
  const QApplication application(count, arguments);
  QApplication::setQuitOnLastWindowClosed(false);
  return RUN_ALL_TESTS();
}
