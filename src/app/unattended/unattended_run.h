#pragma once

#include "app/console/console.h"
#include "app/unattended/progress_view.h"
#include "app/unattended/unattended_host.h"
#include "convert/command_line.h"
#include "convert/driver.h"
#include "errors/fault_scribe.h"
#include "settings/settings.h"

namespace quillon::unattended {

enum ExitCode : int { kAllConverted = 0, kSomeNotConverted = 1, kNoWindow = 2, kCancelled = 130 };

/// A run without questions: one drawing, or every drawing of a folder.
class UnattendedRun {
 public:
  /// `settings` are those of the window after loading; unexpected errors go to `faults`.
  UnattendedRun(const settings::SettingsStore& store, const convert::CommandLine& line,
                const settings::Settings& settings, const texts::Texts& texts,
                console::Console& console, ProgressView& progress, errors::FaultScribe& faults)
      : store_(store),
        line_(line),
        settings_(settings),
        texts_(texts),
        console_(console),
        progress_(progress),
        faults_(faults) {}

  /// Carries out the command line and returns the exit code.
  int run();

 private:
  void warn(const std::string& text);
  int convertOne();
  int convertBatch();
  /// `listed`: the paths in the settings come from a folder listing, not from a user.
  convert::Outcome convert(bool listed);
  convert::Outcome convertTrapped(bool listed);
  convert::ConversionResult convertShown(const convert::ConversionJob& job, UnattendedHost& host);

  const settings::SettingsStore& store_;
  const convert::CommandLine& line_;
  settings::Settings settings_;
  const texts::Texts& texts_;
  console::Console& console_;
  ProgressView& progress_;
  errors::FaultScribe& faults_;
  bool cancelled_ = false;
  bool clearAbandoned_ = true;
};

}  // namespace quillon::unattended
