// Any words are arguments of the headless program: it either reports what is wrong, or returns
// options that are valid for a conversion.
#include <cmath>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "app/headless/options.h"
#include "app/headless/plan.h"
#include "base/number_text.h"
#include "batch/drawing_files.h"
#include "parts.h"
#include "run_once.h"
#include "silence.h"

namespace {

using quillon::fuzz::require;
using quillon::headless::Options;

bool within(int value, int least, int most) { return value >= least && value <= most; }

void check(const Options& options) {
  require(!options.inputs.empty() || options.filesFrom, "there is a drawing or a list");
  for (const std::string& input : options.inputs) {
    require(!input.empty(), "a drawing has a name");
    for (const char c : quillon::batch::nameFromFile(input)) {
      require(std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || c == '-' || c == '.',
              "a name from a file's name is plain");
    }
  }
  require(options.jobs >= 1 && options.jobs <= 256, "1 to 256 conversions run at once");
  require(options.limits.lines > 0 && options.limits.steps > 0 && options.input.file > 0 &&
              options.input.pipe > 0,
          "limits leave room");
  const quillon::convert::ConversionJob& job = options.job;
  require(std::isfinite(job.scale) && job.scale != 0.0, "the scale is a number other than 0");
  require(std::isfinite(job.offsetX) && std::isfinite(job.offsetY) && std::isfinite(job.polyWidth),
          "offsets and widths are numbers");
  require(job.unit != quillon::base::Unit::None && within(job.targetKind, 0, 3) &&
              within(job.version, 0, 2) && within(job.poly, -1, 2) && within(job.blocks, 0, 2),
          "choices are within their lists");
  if (job.rules != quillon::convert::Rules::Exact) return;
  require(job.version > 0, "the exact rules can draw for this version");
  require(job.blocks == 0 || job.targetKind <= 1, "boards and schematics alone can have parts");
  require(job.exact.curveTolerance >= 0.0001 && job.exact.curveTolerance <= 1.0 &&
              job.exact.joinTolerance >= 0.0 && job.exact.joinTolerance <= 1.0 &&
              job.exact.lineWidth >= 0.0 && job.exact.fillWidth >= 0.0 &&
              std::isfinite(job.exact.pointDrill),
          "lengths are within their ranges");
}

}  // namespace

void quillon::fuzz::runOnce(std::string_view data) {
  std::vector<std::string> words;
  while (!data.empty()) words.emplace_back(quillon::fuzz::takePart(data));
  std::optional<int> exitCode;
  Options options;
  {
    const quillon::fuzz::Silence silence;
    options = quillon::headless::parseOptions(words, exitCode);
  }
  if (exitCode) {
    require(*exitCode == 0 || *exitCode == quillon::headless::kWrongUsage, "an exit code is known");
  } else {
    check(options);
  }
}
