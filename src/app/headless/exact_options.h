#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "convert/job.h"

namespace quillon::headless {

/// The options of the exact rules. With the classic ones they are errors.
class ExactOptions {
 public:
  /// Adds them to the command line; both have to outlive this object until finish().
  ExactOptions(CLI::App& app, convert::ConversionJob& job);

  /// Once the command line is read: takes the options into the job. Says what is wrong, or "".
  std::string finish();

 private:
  void addLengths();
  void addChoices();
  void addSwitches();
  CLI::Option* track(CLI::Option* option);
  std::string takeHoles();

  CLI::App& app_;
  convert::ConversionJob& job_;
  std::vector<CLI::Option*> exactOnly_;
  int rules_ = 0;
  std::string drawingUnit_ = "auto";
  std::string points_ = "glyph";
  std::string holes_;
  std::string holeDiameters_;
};

}  // namespace quillon::headless
