#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "app/headless/exact_options.h"
#include "app/headless/options.h"

namespace quillon::headless {

/// All options of the program, bound to the values that they set. Parses one command line.
class OptionSet {
 public:
  OptionSet();
  OptionSet(const OptionSet&) = delete;
  OptionSet& operator=(const OptionSet&) = delete;

  /// Takes the values of the arguments; throws CLI::ParseError, also for --help and --version.
  void parse(std::vector<std::string> arguments);

  /// Once parsed: completes the options. Says which rule between them is broken, or "".
  std::string finish();

  /// What an option is, by its long name without "--": one that a configuration file may have; a
  /// switch, which has no value; one that the arguments gave.
  bool isConfigurable(const std::string& name) const;
  bool isSwitch(const std::string& name) const;
  bool isGiven(const std::string& name) const;

  CLI::App& app() { return app_; }
  Options& options() { return options_; }
  const Options& options() const { return options_; }

 private:
  void addInputs();
  void addResults();
  void addDrawing();
  void addEntities();
  void addLimits();
  void addProgram();
  void addHelp();
  /// Options added from now on are listed below this heading.
  void heading(const char* text) { app_.option_defaults()->group(text); }

  Options options_;
  // Texts that become numbers once parsed.
  std::string offsetX_ = "0";
  std::string offsetY_ = "0";
  std::string polyWidth_ = "0";
  CLI::App app_;
  std::optional<ExactOptions> exact_;
};

}  // namespace quillon::headless
