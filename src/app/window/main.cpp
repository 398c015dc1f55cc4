#include "app/window/main.h"

#include <QScreen>
#include <optional>

#include "app/console/console.h"
#include "app/console/interrupt.h"
#include "app/console/terminal.h"
#include "app/unattended/console_answer.h"
#include "app/unattended/main.h"
#include "app/unattended/start_up.h"
#include "app/unattended/unattended_run.h"
#include "app/window/application.h"
#include "app/window/dialog_progress.h"
#include "app/window/display.h"
#include "app/window/system_colours.h"
#include "errors/attempt.h"
#include "errors/crash.h"
#include "errors/fault_printer.h"
#include "errors/program.h"
#include "windows/app_icon.h"
#include "windows/dark_style.h"
#include "windows/main_window.h"
#include "windows/qt_texts.h"
#include "windows/screen_fit.h"
#include "windows/splash.h"
#include "windows/window_fault_view.h"

namespace quillon::window {
namespace {

using texts::TextId;

void centre(QWidget& window) {
  const QRect screen = window.screen()->availableGeometry();
  window.move(screen.left() + (screen.width() - window.width()) / 2,
              screen.top() + (screen.height() - window.height()) / 2);
  windows::keepOnScreen(window);
}

int runUnattended(windows::AppContext& context, const windows::MainWindow& window,
                  console::Console& console) {
  console::catchInterrupt();
  DialogProgress progress(context);
  const texts::Texts texts = context.texts();
  return unattended::UnattendedRun(context.store, context.line, window.settings(), texts, console,
                                   progress, *context.faults)
      .run();
}

/// Runs the program's windows, from the splash to the end.
int runWindows(windows::AppContext& context, const unattended::StartUp& start,
               console::Console& console) {
  // Only both together do without the splash.
  if (!(start.line.autoRun && start.line.autoRunExit)) windows::Splash().exec();
  context.LanguageOffset = settings::loadLanguage(context.store);
  windows::MainWindow window(context);
  window.LoadSettings();
  if (start.unattended()) return runUnattended(context, window, console);
  if (!start.drawing.empty()) window.setDrawing(windows::toQt(start.drawing));
  window.makeRoom();
  centre(window);
  window.show();
  window.warnOfSplitPath();
  return context.faults->ending() ? windows::kEndedByError : QApplication::exec();
}

}  // namespace

int Main(int& argc, char** argv, const std::filesystem::path& programFolder) {
  const std::vector<std::string> arguments = console::processArguments(argc, argv);
  const unattended::StartUp start = unattended::readArguments(arguments);
  const texts::Texts texts(settings::loadLanguage(settings::SettingsStore(programFolder)));
  const std::string answer = unattended::consoleAnswer(arguments, texts);
  if (!answer.empty()) return unattended::printAnswer(answer);
  if (!hasDisplay(argc, argv)) {
    if (start.unattended()) return unattended::Main(arguments, programFolder);
    console::Console(false).printError("quillon: " + std::string(texts(TextId::NoDisplay)) + "\n");
    return unattended::kNoWindow;
  }
  askForSystemColours();
  Application app(argc, argv);
  std::optional<windows::DarkStyle> darkStyle;
  if (kSystemStyleIsLight) darkStyle.emplace();
  QApplication::setApplicationName("Quillon");
  QApplication::setDesktopFileName("quillon");
  QApplication::setWindowIcon(windows::appIcon());
  windows::AppContext context{settings::SettingsStore(programFolder), start.line, texts::kGerman};
  context.viewerPage = QUILLON_VIEWER_PAGE;
  windows::QtTexts qtTexts(context);
  QApplication::installTranslator(&qtTexts);
  windows::ScreenFit screenFit;
  app.installEventFilter(&screenFit);
  console::Console console(false);
  const errors::ProgramIdentity program = errors::thisProgram("quillon", programFolder);
  windows::WindowFaultView shown(context, program);
  errors::FaultPrinter printed([&](std::string_view lines) { console.printError(lines); }, program,
                               context.LanguageOffset);
  errors::FaultView& view = start.unattended() ? static_cast<errors::FaultView&>(printed)
                                               : static_cast<errors::FaultView&>(shown);
  errors::FaultScribe faults(program, context.LanguageOffset, view);
  faults.SetProgInfo(errors::programVersion());
  context.faults = &faults;
  app.setFaults(&faults);
  // The windows load their language later, while the splash is showing.
  const errors::CrashReporting crashes(
      faults, errors::crashNotice(program, settings::loadLanguage(context.store)));
  int exitCode = windows::kEndedByError;
  const unsigned allowed =
      start.unattended() ? errors::kMayLeave : errors::kMayRetry | errors::kMayEnd;
  errors::attempt(
      faults, "Main", "Main", [&] { exitCode = runWindows(context, start, console); }, allowed);
  app.setFaults(nullptr);
  return exitCode;
}

}  // namespace quillon::window
