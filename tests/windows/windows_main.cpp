// The tests of the windows share one application, which needs no display except
// where Qt knows only the system's own windows.
#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryFile>
#include <string_view>

#include "app/window/application.h"
#include "platform.h"

namespace {

/// A screen of the size that QUILLON_SCREEN names, such as "1024x600", where Qt draws without a
/// display.
void useScreen(QFile& description) {
  const QList<QByteArray> size = qgetenv("QUILLON_SCREEN").split('x');
  description.write("{\"screens\": [{\"name\": \"screen\", \"x\": 0, \"y\": 0, \"width\": " +
                    size.value(0) + ", \"height\": " + size.value(1) +
                    ", \"logicalDpi\": 96, \"logicalBaseDpi\": 96, \"dpr\": 1}]}");
  description.flush();
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + description.fileName().toUtf8());
}

}  // namespace

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", quillon::testing::kQtPlatform);
  QTemporaryFile screen;  // as long as the application lives
  const bool offscreen = std::string_view(quillon::testing::kQtPlatform) == "offscreen";
  if (offscreen && qEnvironmentVariableIsSet("QUILLON_SCREEN") && screen.open()) useScreen(screen);
  if (qEnvironmentVariableIsSet("QUILLON_DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QUILLON_DISPLAY"));
  }
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
