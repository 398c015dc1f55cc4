#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "convert/job.h"

namespace quillon::headless {

/// The options of the exact rules. With the classic ones they are errors.
class ExactOptions {
 public:
  /// Both have to outlive this object.
  ExactOptions(CLI::App& app, convert::ConversionJob& job) : app_(app), job_(job) {}
  ExactOptions(const ExactOptions&) = delete;
  ExactOptions& operator=(const ExactOptions&) = delete;

  /// Adds the choice between both sets of rules to the command line.
  void addRules();
  /// Adds the options proper, below a heading of their own.
  void addOptions();

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
