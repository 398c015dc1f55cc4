#include "app/headless/plan.h"

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string_view>
#include <utility>

#include "app/headless/collisions.h"
#include "app/headless/path_list.h"
#include "batch/drawing_files.h"
#include "files/file_name.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::headless {

namespace fs = std::filesystem;
using files::fromPath;
using files::toPath;

namespace {

/// A folder as typed by the user; it may not exist yet.
fs::path folderNamed(const std::string& typed) {
  const fs::path found = files::findExisting(typed);
  return files::namesFolder(found) ? found : files::findForCreation(typed);
}

/// The path of a drawing from the folder that was searched with its subfolders.
std::string_view belowRoot(const PlannedDrawing& drawing) {
  std::string_view below = drawing.path;
  below.remove_prefix(drawing.rootLength);
  below.remove_prefix(std::min(below.find_first_not_of(files::kSeparators), below.size()));
  return below;
}

/// The folder of a drawing, from the one that was searched with its subfolders.
fs::path subfolderOf(const PlannedDrawing& drawing) {
  if (drawing.rootLength == 0) return {};
  return toPath(belowRoot(drawing)).parent_path();
}

std::string stemOfDrawing(const std::string& path) {
  const std::optional<files::FileName> cut = files::cutFileName(path);
  return cut ? std::string(files::stemOf(cut->name)) : fromPath(toPath(path).stem());
}

/// Creates missing folders for the results of several drawings.
std::string makeFolders(const Options& options) {
  for (const auto& folder : {options.output, options.report, options.preview}) {
    if (!folder) continue;
    if (!files::makeFolders(folderNamed(*folder))) {
      return *folder +
             " is not a folder and could not be created; converting several drawings needs an "
             "output folder";
    }
  }
  return {};
}

/// Collects the drawings of the options in a plan.
class Collector {
 public:
  Collector(const Options& options, Plan& plan) : options_(options), plan_(plan) {}

  void addTyped(const std::string& typed) { add(typed, files::findExisting(typed), false); }
  /// A name from a list is taken literally: where it comes from, there are no typing errors.
  void addListed(const std::string& name) { add(name, toPath(name), true); }

 private:
  void add(const std::string& name, const fs::path& path, bool listed) {
    if (!files::namesFolder(path)) {
      plan_.drawings.push_back({fromPath(path), 0, listed, false});
      return;
    }
    plan_.several = true;
    batch::FolderDrawings found = batch::drawingsIn(path, options_.recursive);
    for (const fs::path& folder : found.unreadable) {
      plan_.unreadableFolders.push_back(folder == path ? name : fromPath(folder));
    }
    if (found.unreadable.empty() && found.drawings.empty()) plan_.emptyFolders.push_back(name);
    const auto rootLength = static_cast<std::uint32_t>(fromPath(path).size());
    for (auto& drawing : found.drawings) {
      plan_.drawings.push_back(
          {std::move(drawing.path), options_.recursive ? rootLength : 0, true, drawing.isRegular});
    }
    for (std::string& other : found.others) plan_.leftOut.push_back(std::move(other));
  }

  const Options& options_;
  Plan& plan_;
};

/// The drawings of arguments and lists; a usage error in the plan when a list cannot be read.
void collectDrawings(const Options& options, Plan& plan) {
  plan.several = options.inputs.size() > 1 || options.filesFrom;
  Collector collector(options, plan);
  for (const std::string& input : options.inputs) collector.addTyped(input);
  if (!options.filesFrom) return;
  plan.usageError =
      readPathList(*options.filesFrom, options.nulSeparated,
                   [&collector](const std::string& path) { collector.addListed(path); });
}

void placeResults(const Options& options, Plan& plan) {
  plan.writeStandardOutput =
      !options.discardScript && (options.output ? *options.output == "-" : plan.readsStandardInput);
  const bool toFile = !plan.writeStandardOutput && !plan.discardScript;
  if (plan.readsStandardInput) {
    if (toFile) plan.scripts = ResultPlace::atFile(options.output);
    plan.reports = ResultPlace::atFile(options.report);
    plan.previews = ResultPlace::atFile(options.preview);
    return;
  }
  if (toFile) plan.scripts = {options.output, ".scr", true, plan.several};
  plan.reports = {options.report, ".txt", false, plan.several};
  plan.previews = {options.preview, ".svg", false, plan.several};
}

}  // namespace

ResultPlace::ResultPlace(const std::optional<std::string>& typed, const char* extension,
                         bool beside, bool several)
    : extension_(extension), beside_(beside && !typed) {
  if (!typed) return;
  folder_ = files::findExisting(*typed);
  if (!files::namesFolder(folder_)) {
    folder_ = files::findForCreation(*typed);
    if (!several) file_ = fromPath(folder_);
  }
  prefix_ = files::prefixOf(folder_);
}

ResultPlace ResultPlace::atFile(const std::optional<std::string>& typed) {
  ResultPlace place;
  if (typed) place.file_ = fromPath(files::findForCreation(*typed));
  return place;
}

std::string ResultPlace::of(const PlannedDrawing& drawing) const {
  if (!file_.empty()) return file_;
  if (!beside_ && folder_.empty()) return {};
  const bool inSubfolder = !beside_ && drawing.rootLength != 0;
  const std::string_view path = inSubfolder ? belowRoot(drawing) : drawing.path;
  if (const std::optional<files::FileName> cut = files::cutFileName(path)) {
    std::string result = prefix_;
    if (beside_ || inSubfolder) result += cut->folder;
    return result.append(files::stemOf(cut->name)).append(extension_);
  }
  const fs::path whole = toPath(drawing.path);
  const fs::path folder = beside_ ? whole.parent_path() : folder_ / subfolderOf(drawing);
  fs::path name = whole.filename();
  return fromPath(folder / name.replace_extension(extension_));
}

PlannedConversion Plan::conversion(std::size_t index) const {
  const PlannedDrawing& drawing = drawings[index];
  PlannedConversion planned;
  planned.job = job;
  planned.job.literalPaths = true;
  planned.job.dxfFile = drawing.path;
  planned.readStandardInput = readsStandardInput;
  planned.writeStandardOutput = writeStandardOutput;
  planned.discardScript = discardScript;
  if (name || readsStandardInput) {
    planned.job.drawingName = name.value_or("");
  } else {
    planned.job.drawingName = batch::nameFromFile(stemOfDrawing(drawing.path));
  }
  planned.job.scriptFile = scripts.of(drawing);
  planned.reportFile = reports.of(drawing);
  planned.previewFile = previews.of(drawing);
  planned.job.report = !planned.reportFile.empty();
  planned.inSubfolder = drawing.rootLength != 0 && !subfolderOf(drawing).empty();
  const auto same = sameResultAs.find(index);
  if (same != sameResultAs.end()) planned.sameResultAs = drawings[same->second].path;
  return planned;
}

Plan makePlan(const Options& options) {
  Plan plan;
  plan.job = options.job;
  plan.name = options.name;
  plan.discardScript = options.discardScript;
  plan.readsStandardInput = !options.inputs.empty() && options.inputs.front() == "-";
  if (plan.readsStandardInput) {
    plan.drawings.emplace_back();
  } else {
    collectDrawings(options, plan);
  }
  if (plan.several && options.name) plan.usageError = "--name takes one drawing only";
  if (plan.several && options.output && *options.output == "-") {
    plan.usageError = "-o - takes one drawing only";
  }
  if (!plan.usageError.empty()) return plan;
  placeResults(options, plan);
  plan.usageError = checkCollisions(options, plan);
  if (plan.usageError.empty() && plan.several) plan.usageError = makeFolders(options);
  return plan;
}

}  // namespace quillon::headless
