#include "app/window/main.h"

#include <QApplication>
#include <QScreen>

#include "app/console/console.h"
#include "app/console/interrupt.h"
#include "app/unattended/main.h"
#include "app/unattended/start_up.h"
#include "app/unattended/unattended_run.h"
#include "app/window/dialog_progress.h"
#include "app/window/display.h"
#include "ui/windows/app_icon.h"
#include "ui/windows/main_window.h"
#include "ui/windows/splash.h"

namespace quillon::window {
namespace {

void centre(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  window.move(screen.left() + (screen.width() - window.width()) / 2,
              screen.top() + (screen.height() - window.height()) / 2);
}

int runUnattended(ui::AppContext& context, const ui::MainWindow& window) {
  console::catchInterrupt();
  console::Console console(false);
  DialogProgress progress(context);
  const resources::Texts texts = context.texts();
  return unattended::UnattendedRun(context.store, context.line, window.settings(), texts, console,
                                   progress)
      .run();
}

}  // namespace

int Main(int& argc, char** argv, const std::filesystem::path& programFolder) {
  const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
  const unattended::StartUp start = unattended::readArguments(arguments);
  if (!hasDisplay(argc, argv)) {
    if (start.unattended()) return unattended::Main(arguments, programFolder);
    const settings::SettingsStore store(programFolder);
    const resources::Texts texts(settings::loadLanguage(store));
    console::Console(false).printError("quillon: " + std::string(texts(3154)) + "\n");
    return unattended::kNoWindow;
  }
  QApplication app(argc, argv);
  QApplication::setApplicationName("Quillon");
  QApplication::setDesktopFileName("quillon");
  QApplication::setWindowIcon(ui::appIcon());
  ui::AppContext context{settings::SettingsStore(programFolder), start.line, resources::kGerman};
  if (!(start.line.autoRun && start.line.autoRunExit)) ui::Splash().exec();
  context.LanguageOffset = settings::loadLanguage(context.store);
  ui::MainWindow window(context);
  window.LoadSettings();
  if (start.unattended()) return runUnattended(context, window);
  if (!start.drawing.empty()) window.setDrawing(ui::toQt(start.drawing));
  window.resize(window.sizeHint());
  centre(window);
  window.show();
  return QApplication::exec();
}

}  // namespace quillon::window
