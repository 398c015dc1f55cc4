// A whole conversion of any bytes with any options, by the classic and by the exact rules: the
// script contains only lines that Quillon writes, and the cost is bounded by its input and output.
#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "conversion_input.h"
#include "convert/driver.h"
#include "cost.h"
#include "exact_lines.h"
#include "memory_file.h"
#include "parts.h"
#include "support/script_grammar.h"

namespace {

using quillon::convert::Outcome;
using quillon::fuzz::ConversionInput;
using quillon::fuzz::MemoryFile;
using quillon::fuzz::require;

/// Polls after which an endless conversion is cancelled.
constexpr std::uint64_t kMostPolls = 300;
/// Polls allowed after a cancel: open items are closed, nothing new is started.
constexpr std::uint64_t kMostPollsAfterCancel = 16;
/// Most entities, dashes or pieces of curves between two polls.
constexpr std::uint64_t kStepsPerPoll = 64;
/// Lines allowed past a limit: those of one entity or part.
constexpr std::uint64_t kMostLinesAfterLimit = 32;

/// The exact rules hold what they draw until all of it is known, and look at pairs of edges. A
/// script may be long after few steps: a step may be a dimension or a text of plain letters.
constexpr quillon::fuzz::CostBounds kExactCosts{.bytesInUse = {8 << 20, 4096.0},
                                                .bytesInUsePerStep = 4096.0,
                                                .bytesAllocated = {16 << 20, 65536.0},
                                                .seconds = {1.0, 200e-6}};
/// A drawing without a limit of its own ends here with the exact rules.
constexpr std::uint64_t kMostExactSteps = 20000;

/// Counts the polls and cancels at a given one.
class FuzzHost : public quillon::convert::ConversionHost {
 public:
  explicit FuzzHost(std::uint64_t cancelAtPoll) : cancelAt_(cancelAtPoll) {}

  void setStatus(std::string_view) override {}
  void setProgress(bool, int) override {}
  void processEvents() override {}
  bool cancelRequested() override {
    ++polls_;
    if (!cancelled_ && (polls_ == cancelAt_ || polls_ == kMostPolls)) {
      cancelled_ = true;
      pollsAtCancel_ = polls_;
    }
    return cancelled_;
  }
  bool hasCancelButton() const override { return false; }
  bool ask(const quillon::convert::Message&) override { return false; }
  void tell(const quillon::convert::Message& message) override { messages_ += message.detail; }
  std::string chooseDxfFile(const quillon::convert::FileQuestion&) override { return {}; }
  void showReport(std::string_view) override {}

  std::uint64_t polls() const { return polls_; }
  bool cancelled() const { return cancelled_; }
  std::uint64_t pollsAfterCancel() const { return cancelled_ ? polls_ - pollsAtCancel_ : 0; }
  const std::string& messages() const { return messages_; }

 private:
  std::uint64_t cancelAt_;
  std::uint64_t polls_ = 0;
  std::uint64_t pollsAtCancel_ = 0;
  bool cancelled_ = false;
  std::string messages_;
};

/// Where the conversion's files are.
struct Files {
  MemoryFile drawing;
  MemoryFile layers;
  MemoryFile frame;
  MemoryFile script;  ///< in place of standard output
};

struct Run {
  quillon::convert::ConversionResult result;
  std::string script;
  std::string messages;
  std::uint64_t polls = 0;
  std::uint64_t pollsAfterCancel = 0;
  bool cancelled = false;
};

Run convertOnce(const ConversionInput& input, const Files& files) {
  quillon::convert::ConversionJob job = input.job;
  job.dxfFile = files.drawing.path();
  if (!input.layerFile.empty()) job.layerFile = files.layers.path();
  quillon::convert::Surroundings surroundings;
  if (!input.frame.empty()) surroundings.frame.path = files.frame.path();
  surroundings.languageOffset = input.german ? quillon::texts::kGerman : quillon::texts::kEnglish;
  surroundings.refuseWithoutSections = input.refuseWithoutSections;
  surroundings.writeStandardOutput = true;
  surroundings.limits = input.limits;
  surroundings.keepPartial = input.keepPartial;
  surroundings.now = [] { return quillon::files::LocalTime{"1", "2"}; };
  Run run;
  std::optional<FuzzHost> host;
  const bool isExact = job.rules == quillon::convert::Rules::Exact;
  if (isExact) {
    surroundings.limits.steps = std::min(surroundings.limits.steps, kMostExactSteps);
  }
  quillon::fuzz::requireCost(isExact ? kExactCosts : quillon::fuzz::CostBounds{},
                             input.drawing.size() + input.layerFile.size() + input.frame.size(),
                             [&] {
                               files.script.set({});
                               host.emplace(input.cancelAtPoll);
                               run.result = quillon::convert::convertDXF(job, *host, surroundings);
                               return run.result.steps;
                             });
  run.script = files.script.get();
  run.messages = host->messages();
  run.polls = host->polls();
  run.pollsAfterCancel = host->pollsAfterCancel();
  run.cancelled = host->cancelled();
  return run;
}

void checkLines(const ConversionInput& input, const Run& run) {
  if (run.result.outcome == Outcome::Ended) return;
  if (input.job.rules == quillon::convert::Rules::Exact) {
    const std::string_view lines = run.script;
    const std::string fault = input.frame.empty() ? quillon::fuzz::faultOfExactLines(lines) : "";
    return require(fault.empty(), fault);
  }
  const std::string frame(input.frame.empty() ? quillon::convert::defaultFrameText() : input.frame);
  const quillon::convert::ScriptFrame lines = quillon::convert::parseFrame(frame);
  const quillon::testing::ScriptRules rules{input.job.version != 0, lines.startBlock,
                                            lines.endBlock};
  const quillon::testing::ScriptFacts facts = quillon::testing::checkScript(run.script, rules);
  require(facts.fault.empty(), facts.fault);
  require(run.result.commandCount == facts.lines + facts.namedPolygons,
          "the command count is " + std::to_string(run.result.commandCount) + ", the lines are " +
              std::to_string(facts.lines) + " and the polygons " +
              std::to_string(facts.namedPolygons));
}

/// A limit ends the work: open items are closed, and one entity may take more than a step.
void checkLimits(const ConversionInput& input, const Run& run, std::size_t inputBytes) {
  using quillon::rules::WorkLimits;
  const auto& [lines, steps] = input.limits;
  require(steps == WorkLimits::kNone || run.result.steps <= steps + 2 * inputBytes + kStepsPerPoll,
          "steps within their limit: " + std::to_string(run.result.steps));
  // The frame consists of the user's lines.
  require(lines == WorkLimits::kNone ||
              run.result.commandCount <= lines + inputBytes + kMostLinesAfterLimit,
          "lines within their limit: " + std::to_string(run.result.commandCount));
}

void checkPolls(const ConversionInput& input, const Run& run, std::size_t inputBytes) {
  require(run.pollsAfterCancel <= kMostPollsAfterCancel, "a cancel ends the conversion");
  if (input.job.rules == quillon::convert::Rules::Exact) return;
  // A dash may be too short to be visible, so dashes can take time without producing lines. They
  // can be cancelled.
  if (input.job.dotted) return;
  std::uint64_t steps = inputBytes + run.script.size();
  for (const std::uint64_t count : run.result.counts) steps += kStepsPerPoll * count;
  if (run.result.outcome != Outcome::Ended) {
    require(run.polls <= 16 + steps / kStepsPerPoll, "the work is that of input and output");
  }
}

void checkConversion(const ConversionInput& input, const Files& files, std::size_t size) {
  const Run first = convertOnce(input, files);
  checkLines(input, first);
  checkLimits(input, first, size);
  checkPolls(input, first, size);
  const Run second = convertOnce(input, files);
  require(second.script == first.script, "the same input gives the same script");
  require(second.result.report == first.result.report, "the same input gives the same report");
  require(second.messages == first.messages, "the same input gives the same messages");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
  static const Files files;
  static const bool redirected = dup2(files.script.descriptor(), STDOUT_FILENO) >= 0;
  require(redirected, "standard output is a file in memory");
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  ConversionInput input = quillon::fuzz::readConversionInput(bytes);
  files.drawing.set(input.drawing);
  files.layers.set(input.layerFile);
  files.frame.set(input.frame);

  checkConversion(input, files, size);
  input.job.rules = quillon::convert::Rules::Exact;
  input.job.version = input.isForEagle6 ? quillon::convert::kEagle6 : quillon::convert::kEagle4;
  checkConversion(input, files, size);
  return 0;
}
