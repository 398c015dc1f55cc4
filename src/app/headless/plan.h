#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/headless/options.h"
#include "convert/job.h"

namespace quillon::headless {

/// A planned conversion. Its paths are exact.
struct PlannedConversion {
  convert::ConversionJob job;
  /// An earlier drawing with the same script or report: this one cannot be converted.
  std::string sameResultAs;
  bool readStandardInput = false;
  bool writeStandardOutput = false;
  bool discardScript = false;
  std::string reportFile;   ///< "" for none
  std::string previewFile;  ///< "" for none
  /// The folder below those for results that this drawing's results go to; it is made when needed.
  bool inSubfolder = false;
};

/// A drawing to be converted. There may be a million of them, so what follows from it and the
/// options is not kept.
struct PlannedDrawing {
  std::string path;  ///< exact; "" for standard input
  /// Bytes of the path up to the folder that was searched with its subfolders; 0 without one.
  std::uint32_t rootLength = 0;
  bool listed = false;     ///< found in a folder or a list
  bool isRegular = false;  ///< certainly neither a link nor anything else
};

/// Where the results of one kind go.
class ResultPlace {
 public:
  ResultPlace() = default;
  /// `typed` is a result, or a folder for results; without it there are none, or if `beside`, they
  /// are beside their drawings. With `several` drawings it is a folder.
  ResultPlace(const std::optional<std::string>& typed, const char* extension, bool beside,
              bool several);
  /// The file of that name.
  static ResultPlace atFile(const std::optional<std::string>& typed);

  /// The path of a drawing's result; "" for none.
  std::string of(const PlannedDrawing& drawing) const;

 private:
  const char* extension_ = "";
  bool beside_ = false;
  std::filesystem::path folder_;
  std::string prefix_;  ///< of the paths to the files of that folder
  std::string file_;
};

/// Which drawings are converted, and where the results go.
class Plan {
 public:
  std::size_t size() const { return drawings.size(); }
  /// What is to be done with one of the drawings.
  PlannedConversion conversion(std::size_t index) const;

  std::vector<PlannedDrawing> drawings;
  /// For a drawing that cannot be converted, the earlier one with the same result.
  std::unordered_map<std::size_t, std::size_t> sameResultAs;
  bool readsStandardInput = false;   ///< the only drawing comes from there
  bool several = false;              ///< several inputs, a folder or a list
  std::vector<std::string> leftOut;  ///< pipes and devices in folders that are named like drawings
  std::vector<std::string> emptyFolders;       ///< folders without a drawing
  std::vector<std::string> unreadableFolders;  ///< folders that cannot be listed
  std::string usageError;                      ///< "" if the plan is valid
  /// The folders that get results.
  std::set<std::filesystem::path::string_type> resultFolders;

  // What all conversions share.
  convert::ConversionJob job;
  std::optional<std::string> name;
  bool writeStandardOutput = false;
  bool discardScript = false;
  ResultPlace scripts;
  ResultPlace reports;
  ResultPlace previews;
};

/// Decides which drawings are converted and where the results go. Lists are read and folders listed
/// here, the latter sorted by name, and with their subfolders if the options say so.
Plan makePlan(const Options& options);

}  // namespace quillon::headless
