// Stands in for quillon-convert where its threads cannot be built: one conversion in the main
// thread, with the same options.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>
#include <vector>

#include "app/console/interrupt.h"
#include "app/headless/options.h"
#include "convert/driver.h"
#include "support/conversion.h"

bool quillon::console::interrupted() { return false; }

namespace {

int convert(const quillon::headless::Options& options) {
  quillon::convert::ConversionJob job = options.job;
  job.dxfFile = options.inputs.at(0);
  job.scriptFile = options.output.value();
  job.report = true;
  const std::filesystem::path drawing = job.dxfFile;
  job.drawingName = options.name.value_or(drawing.stem().string());

  quillon::convert::Surroundings surroundings;
  surroundings.languageOffset = options.languageOffset;
  surroundings.frame.mustExist = options.frame.has_value();
  surroundings.frame.path = options.frame.value_or("");
  surroundings.refuseWithoutSections = true;
  surroundings.refuseUnreadableFiles = true;

  quillon::testing::RecordingHost host;
  const auto result = quillon::convert::convertDXF(job, host, surroundings);
  for (const auto& message : host.messages) {
    std::fprintf(stderr, "%s\n", message.detail.c_str());
  }
  std::ofstream(options.report.value(), std::ios::binary) << result.report;
  return result.outcome == quillon::convert::Outcome::Converted ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  std::optional<int> exitCode;
  const auto options =
      quillon::headless::parseOptions(std::vector<std::string>(argv + 1, argv + argc), exitCode);
  return exitCode ? *exitCode : convert(options);
}
