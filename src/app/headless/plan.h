#pragma once

#include <string>
#include <vector>

#include "app/headless/options.h"
#include "convert/job.h"

namespace quillon::headless {

/// One conversion to be made. Its paths are exact.
struct PlannedConversion {
  convert::ConversionJob job;
  bool listed = false;  ///< the drawing was found in a folder
  /// The drawing before this one that has the same script or report: this one cannot be converted.
  std::string sameResultAs;
  bool readStandardInput = false;
  bool writeStandardOutput = false;
  std::string reportFile;  ///< "" for none
};

struct Plan {
  std::vector<PlannedConversion> conversions;
  bool several = false;                        ///< several inputs or a folder
  std::vector<std::string> leftOut;            ///< pipes and devices named like drawings in folders
  std::vector<std::string> emptyFolders;       ///< folders without a drawing
  std::vector<std::string> unreadableFolders;  ///< folders that cannot be listed
  std::string usageError;                      ///< "" when the plan holds
};

/// Decides which drawings are converted to where. Folders are listed here, not recursively, sorted
/// by name.
Plan makePlan(const Options& options);

/// A drawing's name as a script can hold it: characters other than letters, digits, "_", "-" and
/// "." become "_".
std::string nameFromFile(const std::string& stem);

}  // namespace quillon::headless
