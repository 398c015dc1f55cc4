#include "app/headless/plan.h"

#include <algorithm>
#include <filesystem>
#include <set>
#include <utility>

#include "convert/file_system.h"
#include "convert/paths.h"
#include "dxf/encoding.h"

namespace quillon::headless {

namespace fs = std::filesystem;
using convert::fromPath;
using convert::toPath;

namespace {

bool isDrawingName(const fs::path& path) {
  return dxf::equalsUpperCased(fromPath(path.extension()), ".DXF");
}

std::vector<fs::path> drawingsIn(const fs::path& folder, int& reason) {
  std::vector<fs::path> drawings;
  for (fs::path& path : convert::listFolder(folder, reason)) {
    if (isDrawingName(path) && !convert::namesFolder(path)) drawings.push_back(std::move(path));
  }
  std::sort(drawings.begin(), drawings.end());
  return drawings;
}

/// Where the files of a plan go.
class PathRules {
 public:
  PathRules(const Options& options, bool several) : options_(options), several_(several) {}

  std::string scriptOf(const fs::path& drawing) const {
    fs::path name = drawing.filename();
    name.replace_extension(".scr");
    if (!options_.output) return fromPath(drawing.parent_path() / name);
    const fs::path output = toPath(*options_.output);
    const bool folder = several_ || convert::namesFolder(output);
    return folder ? fromPath(output / name) : *options_.output;
  }

  std::string reportOf(const fs::path& drawing) const {
    if (!options_.report) return {};
    const fs::path report = toPath(*options_.report);
    if (!several_ && !convert::namesFolder(report)) return *options_.report;
    fs::path name = drawing.filename();
    name.replace_extension(".txt");
    return fromPath(report / name);
  }

 private:
  const Options& options_;
  bool several_;
};

void planStandardInput(const Options& options, Plan& plan) {
  PlannedConversion planned;
  planned.job = options.job;
  planned.job.drawingName = options.name.value_or("");
  planned.readStandardInput = true;
  planned.writeStandardOutput = !options.output || *options.output == "-";
  if (!planned.writeStandardOutput) planned.job.scriptFile = *options.output;
  planned.reportFile = options.report.value_or("");
  planned.job.report = !planned.reportFile.empty();
  plan.conversions.push_back(std::move(planned));
}

PlannedConversion planDrawing(const Options& options, const PathRules& paths,
                              const fs::path& drawing) {
  PlannedConversion planned;
  planned.job = options.job;
  planned.job.dxfFile = fromPath(drawing);
  planned.job.drawingName = options.name ? *options.name : nameFromFile(fromPath(drawing.stem()));
  planned.writeStandardOutput = options.output && *options.output == "-";
  if (!planned.writeStandardOutput) planned.job.scriptFile = paths.scriptOf(drawing);
  planned.reportFile = paths.reportOf(drawing);
  planned.job.report = !planned.reportFile.empty();
  return planned;
}

/// One spelling for all paths of a file.
fs::path fileKey(const std::string& file) {
  return convert::uniquePath(convert::findForCreation(file));
}

/// No result may replace a file that is read, nor another result.
std::string checkCollisions(const Options& options, const Plan& plan) {
  std::set<fs::path> inputs;
  if (options.frame) inputs.insert(fileKey(*options.frame));
  if (!options.job.layerFile.empty()) inputs.insert(fileKey(options.job.layerFile));
  for (const PlannedConversion& planned : plan.conversions) {
    if (!planned.readStandardInput) inputs.insert(fileKey(planned.job.dxfFile));
  }
  std::set<fs::path> written;
  for (const PlannedConversion& planned : plan.conversions) {
    if (!planned.job.scriptFile.empty() && planned.job.scriptFile == planned.job.dxfFile) {
      return planned.job.scriptFile + " is the drawing itself";
    }
    for (const std::string* const result : {&planned.job.scriptFile, &planned.reportFile}) {
      const std::string& file = *result;
      if (file.empty()) continue;
      const fs::path key = fileKey(file);
      // A script over its own drawing by another name is the conversion's to refuse.
      const bool own = result == &planned.job.scriptFile && !planned.readStandardInput &&
                       key == fileKey(planned.job.dxfFile);
      if (own) continue;
      if (inputs.contains(key)) return file + " would replace a file that is read";
      const convert::FileKind kind = convert::fileKind(convert::findForCreation(file));
      const bool isDevice = kind == convert::FileKind::Other || kind == convert::FileKind::Folder;
      if (!isDevice && !written.insert(key).second) {
        return "two results would be written to " + file;
      }
    }
  }
  return {};
}

/// Folders for the results of several drawings are made when they are missing.
std::string makeFolders(const Options& options) {
  for (const auto& folder : {options.output, options.report}) {
    if (!folder) continue;
    if (!convert::makeFolders(toPath(*folder))) {
      return *folder + " is no folder and cannot be made one; several drawings need a folder";
    }
  }
  return {};
}

}  // namespace

std::string nameFromFile(const std::string& stem) {
  std::string name;
  for (const char c : stem) {
    if ((static_cast<unsigned char>(c) & 0xC0) == 0x80) continue;  // inside a character
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
  std::vector<fs::path> drawings;
  plan.several = options.inputs.size() > 1;
  for (const std::string& input : options.inputs) {
    const fs::path path = convert::findExisting(input);
    if (!convert::namesFolder(path)) {
      drawings.push_back(path);
      continue;
    }
    plan.several = true;
    int reason = 0;
    const std::vector<fs::path> found = drawingsIn(path, reason);
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
  for (const fs::path& drawing : drawings) {
    plan.conversions.push_back(planDrawing(options, paths, drawing));
  }
  plan.usageError = checkCollisions(options, plan);
  if (plan.usageError.empty() && plan.several) plan.usageError = makeFolders(options);
  return plan;
}

}  // namespace quillon::headless
