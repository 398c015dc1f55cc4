#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

#include "app/headless/exact_options.h"
#include "app/headless/option_adder.h"
#include "app/headless/options.h"

namespace quillon::headless {

/// The options of the program, bound to the values that they set. Parses one command line.
class OptionSet {
 public:
  /// All options.
  OptionSet();
  /// Only the options that these arguments may name. Arguments that such a set refuses are to be
  /// parsed by one of all options, which knows help and version.
  explicit OptionSet(const std::vector<std::string>& arguments);
  OptionSet(const OptionSet&) = delete;
  OptionSet& operator=(const OptionSet&) = delete;

  /// Takes the values of the arguments; throws CLI::ParseError, also for --help and --version.
  void parse(std::vector<std::string> arguments);

  /// Once parsed: completes the options. Says which rule between them is broken, or "".
  std::string finish();

  /// Of a set of all options: what an option is, by its long name without "--": one that a
  /// configuration file may have; a switch, which has no value.
  bool isConfigurable(const std::string& name) const;
  bool isSwitch(const std::string& name) const;
  /// Whether the arguments gave an option.
  bool isGiven(const std::string& name) const;

  CLI::App& app() { return app_; }
  Options& options() { return options_; }
  const Options& options() const { return options_; }

 private:
  explicit OptionSet(const std::vector<std::string>* arguments);
  void addInputs(OptionAdder& adder);
  void addResults(OptionAdder& adder);
  void addDrawing(OptionAdder& adder);
  void addEntities(OptionAdder& adder);
  void addLimits(OptionAdder& adder);
  void addProgram(OptionAdder& adder);
  void addHelp(OptionAdder& adder);

  Options options_;
  // Texts that become numbers once parsed.
  std::string offsetX_ = "0";
  std::string offsetY_ = "0";
  std::string polyWidth_ = "0";
  AddedOption unit_;
  CLI::App app_;
  ExactOptions exact_{options_.job};
};

}  // namespace quillon::headless
