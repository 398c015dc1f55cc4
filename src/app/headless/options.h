#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "convert/driver.h"
#include "convert/job.h"
#include "preview/palette.h"

namespace quillon::headless {

/// The parsed command line.
struct Options {
  std::vector<std::string> inputs;
  std::optional<std::string> output;  ///< script, or folder for scripts
  std::optional<std::string> name;    ///< drawing name; defaults to the file's name
  std::optional<std::string> frame;
  std::optional<std::string> report;   ///< report, or folder for reports
  std::optional<std::string> preview;  ///< picture, or folder for pictures
  preview::Theme previewTheme = preview::Theme::Light;
  bool discardScript = false;  ///< the picture alone
  convert::ConversionJob job;  ///< settings shared by all conversions
  int languageOffset = 0;
  unsigned jobs = 1;
  rules::WorkLimits limits = convert::kUsualLimits;  ///< for each conversion
  dxf::InputLimits input = convert::kUsualInput;     ///< for each drawing
  bool keepPartial = false;              ///< keep the script of a conversion that a limit ends
  bool recursive = false;                ///< folders are searched with their subfolders
  std::optional<std::string> filesFrom;  ///< list of further drawings, "-" from standard input
  bool nulSeparated = false;             ///< the names in that list end with NUL characters
  bool newer = false;                    ///< skip drawings that are older than their scripts
  std::optional<std::string> config;     ///< the configuration file to read
  bool noConfig = false;                 ///< read no configuration file
  bool quiet = false;
  bool json = false;
};

/// Parses the arguments (of the process, without its name, UTF-8). When there is nothing more to do
/// (help, version, usage error), it has printed the output and `exitCode` is set. Options that the
/// arguments do not give are those of the configuration file: the one that they name, else that in
/// `configFolder` if there is one. An empty folder stands for none.
Options parseOptions(const std::vector<std::string>& arguments, std::optional<int>& exitCode,
                     const std::filesystem::path& configFolder = {});

/// Prints a usage error and returns the exit code.
int usageError(const std::string& message);

inline constexpr int kAllConverted = 0;
inline constexpr int kSomeNotConverted = 1;
inline constexpr int kWrongUsage = 2;
inline constexpr int kCancelled = 130;

}  // namespace quillon::headless
