#include "app/unattended/main.h"

#include "app/console/console.h"
#include "app/console/interrupt.h"
#include "app/unattended/batch.h"
#include "app/unattended/unattended_host.h"
#include "convert/command_line.h"
#include "convert/driver.h"
#include "convert/messages.h"
#include "convert/paths.h"
#include "ui/settings/settings.h"

namespace quillon::unattended {
namespace {

using convert::CommandLine;
using convert::ConversionResult;
using convert::Outcome;
using convert::quotable;

enum ExitCode : int { kAllConverted = 0, kSomeNotConverted = 1, kNoWindow = 2, kCancelled = 130 };

class UnattendedRun {
 public:
  UnattendedRun(const settings::SettingsStore& store, const CommandLine& line)
      : store_(store),
        line_(line),
        texts_(settings::loadLanguage(store)),
        settings_(settings::LoadSettings(store, line, texts_)),
        console_(console::errorIsTerminal()) {}

  const resources::Texts& texts() const { return texts_; }
  console::Console& console() { return console_; }

  /// One conversion with the loaded settings.
  int convertOne() {
    const Outcome outcome = convert();
    if (cancelled(outcome)) return kCancelled;
    return outcome == Outcome::Converted ? kAllConverted : kSomeNotConverted;
  }

  /// Every drawing of a folder; only a cancel ends the batch before its last file.
  int convertBatch() {
    const Batch batch = listBatch(settings_, store_);
    if (batch.reason != 0) {
      const convert::Messages messages(texts_);
      const std::string reason = messages.reasonText(batch.reason);
      console_.printError("quillon: " + messages.unreadableText(batch.folder, reason) + "\n");
      return kSomeNotConverted;
    }
    std::size_t converted = 0;
    std::size_t failed = 0;
    for (const BatchFile& file : batch.files) {
      settings_.dxfFile = file.dxfFile;
      settings_.scriptFile = file.scriptFile;
      const Outcome outcome = convert();
      ++(outcome == Outcome::Converted ? converted : failed);
      if (cancelled(outcome)) break;
    }
    console_.printError(texts_(3121, {std::to_string(converted), std::to_string(failed)}) + "\n");
    if (console::interrupted()) return kCancelled;
    return failed == 0 ? kAllConverted : kSomeNotConverted;
  }

 private:
  static bool cancelled(Outcome outcome) {
    return outcome == Outcome::Cancelled || console::interrupted();
  }

  Outcome convert() {
    convert::Surroundings surroundings;
    surroundings.languageOffset = texts_.languageOffset();
    surroundings.frame.path = convert::fromPath(store_.programFolder() / "quillon.cfh");
    surroundings.frame.create = true;
    const convert::ConversionJob job = settings::jobOf(settings_, line_);
    UnattendedHost host(console_, texts_, quotable(convert::lastComponent(job.dxfFile)));
    const ConversionResult result = convert::convertDXF(job, host, surroundings);
    console_.clearProgress();
    if (result.outcome == Outcome::Converted) {
      console_.printError(
          texts_(3106, {quotable(result.scriptFile), std::to_string(result.commandCount)}) + "\n");
    }
    return result.outcome;
  }

  const settings::SettingsStore& store_;
  const CommandLine& line_;
  resources::Texts texts_;
  settings::Settings settings_;
  console::Console console_;
};

/// A single argument that names a file is a drawing to open, although its path may begin with "/".
bool namesDrawing(const std::vector<std::string>& arguments) {
  return arguments.size() == 1 && convert::namesFile(convert::toPath(arguments.front()));
}

}  // namespace

int Main(const std::vector<std::string>& arguments, const std::filesystem::path& programFolder) {
  const CommandLine line = namesDrawing(arguments)
                               ? CommandLine{}
                               : convert::parseCommandLine(convert::joinArguments(arguments));
  const settings::SettingsStore store(programFolder);
  UnattendedRun run(store, line);
  if (!line.autoRun && !line.autoRunExit) {
    run.console().printError("quillon: " + std::string(run.texts()(3122)) + "\n");
    return kNoWindow;
  }
  console::catchInterrupt();
  return line.autoRunExit ? run.convertBatch() : run.convertOne();
}

}  // namespace quillon::unattended
