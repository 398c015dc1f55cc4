#include "app/headless/plan.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <utility>

#include "base/encoding.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::headless {

namespace fs = std::filesystem;
using files::fromPath;
using files::toPath;

namespace {

bool isDrawingName(const fs::path& path) {
  return base::equalsUpperCased(fromPath(path.extension()), ".DXF");
}

/// A drawing to be converted, and where it comes from.
struct Drawing {
  fs::path path;
  bool listed = false;
};

/// The drawings in a folder, sorted by name. Pipes and devices are skipped.
std::vector<Drawing> drawingsIn(const fs::path& folder, int& reason,
                                std::vector<std::string>& leftOut) {
  std::vector<Drawing> drawings;
  std::vector<fs::path> found = files::listFolder(folder, reason);
  std::sort(found.begin(), found.end());
  for (fs::path& path : found) {
    if (!isDrawingName(path)) continue;
    const files::FileKind kind = files::fileKind(path);
    if (kind == files::FileKind::Folder) continue;
    if (kind == files::FileKind::Other) {
      leftOut.push_back(fromPath(path));
    } else {
      drawings.push_back({std::move(path), true});
    }
  }
  return drawings;
}

/// A folder as typed by the user; it may not exist yet.
fs::path folderNamed(const std::string& typed) {
  const fs::path found = files::findExisting(typed);
  return files::namesFolder(found) ? found : files::findForCreation(typed);
}

/// Decides where the results go. All its paths are exact.
class PathRules {
 public:
  PathRules(const Options& options, bool several) : options_(options), several_(several) {}

  std::string scriptOf(const fs::path& drawing) const {
    fs::path name = drawing.filename();
    name.replace_extension(".scr");
    return fromPath(options_.output ? resultOf(*options_.output, name)
                                    : drawing.parent_path() / name);
  }

  std::string reportOf(const fs::path& drawing) const {
    return besideOf(options_.report, drawing, ".txt");
  }
  std::string previewOf(const fs::path& drawing) const {
    return besideOf(options_.preview, drawing, ".svg");
  }

 private:
  std::string besideOf(const std::optional<std::string>& typed, const fs::path& drawing,
                       const char* extension) const {
    if (!typed) return {};
    fs::path name = drawing.filename();
    name.replace_extension(extension);
    return fromPath(resultOf(*typed, name));
  }

  /// A typed path is the result itself, or a folder for results.
  fs::path resultOf(const std::string& typed, const fs::path& name) const {
    const fs::path folder = folderNamed(typed);
    return several_ || files::namesFolder(folder) ? folder / name : files::findForCreation(typed);
  }

  const Options& options_;
  bool several_;
};

void planStandardInput(const Options& options, Plan& plan) {
  PlannedConversion planned;
  planned.job = options.job;
  planned.job.drawingName = options.name.value_or("");
  planned.job.literalPaths = true;
  planned.readStandardInput = true;
  planned.discardScript = options.discardScript;
  planned.writeStandardOutput =
      !planned.discardScript && (!options.output || *options.output == "-");
  if (!planned.writeStandardOutput && !planned.discardScript) {
    planned.job.scriptFile = fromPath(files::findForCreation(*options.output));
  }
  planned.reportFile = fromPath(files::findForCreation(options.report.value_or("")));
  planned.previewFile = fromPath(files::findForCreation(options.preview.value_or("")));
  planned.job.report = !planned.reportFile.empty();
  plan.conversions.push_back(std::move(planned));
}

PlannedConversion planDrawing(const Options& options, const PathRules& paths,
                              const Drawing& source) {
  const fs::path& drawing = source.path;
  PlannedConversion planned;
  planned.listed = source.listed;
  planned.job = options.job;
  planned.job.literalPaths = true;
  planned.job.dxfFile = fromPath(drawing);
  planned.job.drawingName = options.name ? *options.name : nameFromFile(fromPath(drawing.stem()));
  planned.writeStandardOutput = options.output && *options.output == "-";
  planned.discardScript = options.discardScript;
  if (!planned.writeStandardOutput && !planned.discardScript) {
    planned.job.scriptFile = paths.scriptOf(drawing);
  }
  planned.reportFile = paths.reportOf(drawing);
  planned.previewFile = paths.previewOf(drawing);
  planned.job.report = !planned.reportFile.empty();
  return planned;
}

/// One spelling for all paths to a file.
fs::path fileKey(const std::string& file) { return files::uniquePath(toPath(file)); }
fs::path typedFileKey(const std::string& file) {
  return files::uniquePath(files::findExisting(file));
}

/// Makes sure that no result replaces an input or another result.
class Collisions {
 public:
  Collisions(const Options& options, const Plan& plan) {
    if (options.frame) inputs_.insert(typedFileKey(*options.frame));
    if (!options.job.layerFile.empty()) inputs_.insert(typedFileKey(options.job.layerFile));
    for (const PlannedConversion& planned : plan.conversions) {
      if (!planned.readStandardInput) inputs_.insert(fileKey(planned.job.dxfFile));
    }
  }

  /// The usage error caused by a conversion's results, or "". When two drawings found in folders
  /// have the same result, the second one is marked instead.
  std::string check(PlannedConversion& planned) {
    if (!planned.job.scriptFile.empty() && planned.job.scriptFile == planned.job.dxfFile) {
      return planned.job.scriptFile + " is the drawing itself";
    }
    for (const std::string* const result :
         {&planned.job.scriptFile, &planned.reportFile, &planned.previewFile}) {
      const std::string& file = *result;
      if (file.empty()) continue;
      const fs::path key = fileKey(file);
      // A script that would replace its own drawing via another path is refused by the conversion.
      const bool own = result == &planned.job.scriptFile && !planned.readStandardInput &&
                       key == fileKey(planned.job.dxfFile);
      if (own) continue;
      if (inputs_.contains(key)) return file + " would replace a file that is read";
      const files::FileKind kind = files::fileKind(toPath(file));
      if (kind == files::FileKind::Other || kind == files::FileKind::Folder) continue;
      const auto [before, isNew] = written_.try_emplace(key, &planned);
      if (isNew) continue;
      const PlannedConversion& first = *before->second;
      const bool listed = first.listed || planned.listed;
      if (!listed || &first == &planned) return "two results would be written to " + file;
      planned.sameResultAs = first.job.dxfFile;
      break;
    }
    return {};
  }

 private:
  std::set<fs::path> inputs_;
  std::map<fs::path, const PlannedConversion*> written_;
};

std::string checkCollisions(const Options& options, Plan& plan) {
  Collisions collisions(options, plan);
  for (PlannedConversion& planned : plan.conversions) {
    std::string error = collisions.check(planned);
    if (!error.empty()) return error;
  }
  return {};
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

}  // namespace

std::string nameFromFile(const std::string& stem) {
  std::string name;
  for (const char c : stem) {
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;  // continuation byte
    const bool allowed = (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                         (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
    name += allowed ? c : '_';
  }
  return name;
}

Plan makePlan(const Options& options) {
  Plan plan;
  if (options.inputs.front() == "-") {
    planStandardInput(options, plan);
    plan.usageError = checkCollisions(options, plan);
    return plan;
  }
  std::vector<Drawing> drawings;
  plan.several = options.inputs.size() > 1;
  for (const std::string& input : options.inputs) {
    const fs::path path = files::findExisting(input);
    if (!files::namesFolder(path)) {
      drawings.push_back({path});
      continue;
    }
    plan.several = true;
    int reason = 0;
    const std::vector<Drawing> found = drawingsIn(path, reason, plan.leftOut);
    if (reason != 0) {
      plan.unreadableFolders.push_back(input);
    } else if (found.empty()) {
      plan.emptyFolders.push_back(input);
    }
    drawings.insert(drawings.end(), found.begin(), found.end());
  }
  if (plan.several && options.name) plan.usageError = "--name takes one drawing only";
  if (plan.several && options.output && *options.output == "-") {
    plan.usageError = "-o - takes one drawing only";
  }
  if (!plan.usageError.empty()) return plan;
  const PathRules paths(options, plan.several);
  for (const Drawing& drawing : drawings) {
    plan.conversions.push_back(planDrawing(options, paths, drawing));
  }
  plan.usageError = checkCollisions(options, plan);
  if (plan.usageError.empty() && plan.several) plan.usageError = makeFolders(options);
  return plan;
}

}  // namespace quillon::headless
