#include "app/unattended/main.h"

#include "app/console/interrupt.h"
#include "app/console/terminal.h"
#include "app/unattended/console_answer.h"
#include "app/unattended/console_progress.h"
#include "app/unattended/start_up.h"
#include "app/unattended/unattended_run.h"
#include "errors/attempt.h"
#include "errors/crash.h"
#include "errors/fault_printer.h"
#include "errors/program.h"

namespace quillon::unattended {

using texts::TextId;

int Main(const std::vector<std::string>& arguments, const std::filesystem::path& programFolder) {
  const StartUp start = readArguments(arguments);
  const settings::SettingsStore store(programFolder);
  const int language = settings::loadLanguage(store);
  const texts::Texts texts(language);
  const std::string answer = consoleAnswer(arguments, texts);
  if (!answer.empty()) return printAnswer(answer);
  console::Console console(console::errorIsTerminal());
  if (!start.unattended()) {
    console.printError("quillon: " + std::string(texts(TextId::BuiltWithoutWindow)) + "\n");
    return kNoWindow;
  }
  console::catchInterrupt();
  const errors::ProgramIdentity program = errors::thisProgram("quillon", programFolder);
  errors::FaultPrinter printer([&](std::string_view lines) { console.printError(lines); }, program,
                               language);
  errors::FaultScribe faults(program, language, printer);
  faults.SetProgInfo(errors::programVersion());
  const errors::CrashReporting crashes(faults, errors::crashNotice(program, language));
  int exitCode = kSomeNotConverted;
  errors::attempt(
      faults, "Main", "Main",
      [&] {
        ConsoleProgress progress(console);
        const settings::Settings settings = settings::LoadSettings(store, start.line, texts);
        exitCode =
            UnattendedRun(store, start.line, settings, texts, console, progress, faults).run();
      },
      errors::kMayLeave);
  return exitCode;
}

}  // namespace quillon::unattended
