// The window tests share one application. It needs no display, except where Qt only has the
// system's own platform plugin.
#include <gtest/gtest.h>

#include <QCursor>
#include <QGuiApplication>
#include <QScreen>
#include <QTemporaryFile>
#include <string_view>

#include "app/window/application.h"
#include "platform.h"

namespace {

/// Sets the screen size from QUILLON_SCREEN, such as "1024x600", where Qt draws without a display.
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
  QTemporaryFile screen;  // must outlive the application
  const bool offscreen = std::string_view(quillon::testing::kQtPlatform) == "offscreen";
  if (offscreen && qEnvironmentVariableIsSet("QUILLON_SCREEN") && screen.open()) useScreen(screen);
  if (qEnvironmentVariableIsSet("QUILLON_DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", qgetenv("QUILLON_DISPLAY"));
  }
  // Not one of Qt's variables, which Wine does not pass on.
  if (qEnvironmentVariableIsSet("QUILLON_SCALE")) {
    qputenv("QT_SCALE_FACTOR", qgetenv("QUILLON_SCALE"));
  }
  // Tests use Qt's own file dialog; the system's dialogs have separate tests.
  QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  qputenv("QT_LOGGING_RULES", "*.debug=false");
  const quillon::window::Application app(argc, argv);
  // Keep the pointer away from windows that open, which would react to it.
  QCursor::setPos(QGuiApplication::primaryScreen()->geometry().bottomRight());
  return RUN_ALL_TESTS();
}
