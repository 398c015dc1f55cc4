// The tests of the windows share one application, which needs no display unless the
// environment asks for one.
#include <gtest/gtest.h>

#include <QApplication>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("QT_LOGGING_RULES", "*.debug=false");
  const QApplication app(argc, argv);
  return RUN_ALL_TESTS();
}
