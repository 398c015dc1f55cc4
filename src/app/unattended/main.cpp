#include "app/unattended/main.h"

#include "app/console/interrupt.h"
#include "app/unattended/console_progress.h"
#include "app/unattended/start_up.h"
#include "app/unattended/unattended_run.h"

namespace quillon::unattended {

int Main(const std::vector<std::string>& arguments, const std::filesystem::path& programFolder) {
  const StartUp start = readArguments(arguments);
  const settings::SettingsStore store(programFolder);
  const resources::Texts texts(settings::loadLanguage(store));
  console::Console console(console::errorIsTerminal());
  if (!start.unattended()) {
    console.printError("quillon: " + std::string(texts(3122)) + "\n");
    return kNoWindow;
  }
  console::catchInterrupt();
  ConsoleProgress progress(console);
  const settings::Settings settings = settings::LoadSettings(store, start.line, texts);
  return UnattendedRun(store, start.line, settings, texts, console, progress).run();
}

}  // namespace quillon::unattended
