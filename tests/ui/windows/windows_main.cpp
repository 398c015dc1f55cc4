// The tests of the windows share one application, which needs no display except
// where Qt knows only the system's own windows.
#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>

#include "app/window/application.h"
#include "platform.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", quillon::testing::kQtPlatform);
  // A variable of our own: Wine keeps those of Qt to itself.
  if (qEnvironmentVariableIsSet("QUILLON_SCALE")) {
    qputenv("QT_SCALE_FACTOR", qgetenv("QUILLON_SCALE"));
  }
  // Tests choose in Qt's own file dialog; those of the system have tests of their own.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  qputenv("QT_LOGGING_RULES", "*.debug=false");
  const quillon::window::Application app(argc, argv);
  // Out of the way: what opens below the pointer would take it for a user's.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
  return RUN_ALL_TESTS();
}
