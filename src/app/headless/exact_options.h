#pragma once

#include <string>
#include <vector>

#include "app/headless/option_adder.h"
#include "convert/job.h"

namespace quillon::headless {

/// The options of the exact rules. With the classic ones they are errors.
class ExactOptions {
 public:
  /// The job has to outlive this object.
  explicit ExactOptions(convert::ConversionJob& job) : job_(job) {}
  ExactOptions(const ExactOptions&) = delete;
  ExactOptions& operator=(const ExactOptions&) = delete;

  /// Adds the choice between both sets of rules to the command line.
  void addRules(OptionAdder& adder);
  /// Adds the options proper, below a heading of their own.
  void addOptions(OptionAdder& adder);

  /// Once the command line is read: takes the options into the job, of which the unit was given or
  /// not. Says what is wrong, or "".
  std::string finish(bool unitIsGiven);

 private:
  void addLengths(OptionAdder& adder);
  void addChoices(OptionAdder& adder);
  void addTexts(OptionAdder& adder);
  void addSwitches(OptionAdder& adder);
  void track(AddedOption option) { exactOnly_.push_back(option); }
  std::string takeHoles();

  convert::ConversionJob& job_;
  std::vector<AddedOption> exactOnly_;
  int rules_ = 0;
  std::string drawingUnit_ = "auto";
  std::string points_ = "glyph";
  std::string holes_;
  std::string holeDiameters_;
};

}  // namespace quillon::headless
