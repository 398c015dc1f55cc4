#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "convert/driver.h"
#include "convert/job.h"

namespace quillon::headless {

/// What the command line asks for.
struct Options {
  std::vector<std::string> inputs;
  std::optional<std::string> output;  ///< script, or folder of scripts
  std::optional<std::string> name;    ///< drawing name; without it the file's name
  std::optional<std::string> frame;
  std::optional<std::string> report;  ///< report, or folder of reports
  convert::ConversionJob job;         ///< settings that all conversions share
  int languageOffset = 0;
  unsigned jobs = 1;
  rules::WorkLimits limits = convert::kUsualLimits;  ///< of each conversion
  dxf::InputLimits input = convert::kUsualInput;     ///< of each drawing
  bool keepPartial = false;  ///< keeps the script of a conversion that a limit ends
  bool newer = false;        ///< drawings older than their scripts are left out
  bool quiet = false;
  bool json = false;
};

/// Reads the arguments (of the process, without its name, UTF-8). When the program has nothing more
/// to do (help, version, a usage error), it has printed that and `exitCode` is set.
Options parseOptions(std::vector<std::string> arguments, std::optional<int>& exitCode);

/// Prints a usage error; the result is the exit code.
int usageError(const std::string& message);

inline constexpr int kAllConverted = 0;
inline constexpr int kSomeNotConverted = 1;
inline constexpr int kWrongUsage = 2;
inline constexpr int kCancelled = 130;

}  // namespace quillon::headless
