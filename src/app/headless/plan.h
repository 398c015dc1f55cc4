#pragma once

#include <string>
#include <vector>

#include "app/headless/options.h"
#include "convert/job.h"

namespace quillon::headless {

/// A planned conversion. Its paths are exact.
struct PlannedConversion {
  convert::ConversionJob job;
  bool listed = false;  ///< found in a folder
  /// An earlier drawing with the same script or report: this one cannot be converted.
  std::string sameResultAs;
  bool readStandardInput = false;
  bool writeStandardOutput = false;
  bool discardScript = false;
  std::string reportFile;   ///< "" for none
  std::string previewFile;  ///< "" for none
};

struct Plan {
  std::vector<PlannedConversion> conversions;
  bool several = false;              ///< several inputs, or a folder
  std::vector<std::string> leftOut;  ///< pipes and devices in folders that are named like drawings
  std::vector<std::string> emptyFolders;       ///< folders without a drawing
  std::vector<std::string> unreadableFolders;  ///< folders that cannot be listed
  std::string usageError;                      ///< "" if the plan is valid
};

/// Decides which drawings are converted and where the results go. Folders are listed here, sorted
/// by name, without subfolders.
Plan makePlan(const Options& options);

/// A drawing's name made fit for a script: characters other than letters, digits, "_", "-" and "."
/// become "_".
std::string nameFromFile(const std::string& stem);

}  // namespace quillon::headless
