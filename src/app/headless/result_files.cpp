#include "app/headless/result_files.h"

#include <filesystem>
#include <system_error>

#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::headless {

namespace fs = std::filesystem;

bool isUpToDate(const PlannedConversion& planned) {
  std::error_code error;
  const fs::path script = files::toPath(planned.job.scriptFile);
  if (!fs::is_regular_file(script, error)) return false;
  const auto written = fs::last_write_time(script, error);
  if (error) return false;
  const auto drawn = fs::last_write_time(files::toPath(planned.job.dxfFile), error);
  return !error && written > drawn;
}

void dateAsIncomplete(const PlannedConversion& planned) {
  const fs::path script = files::toPath(planned.job.scriptFile);
  std::error_code ignored;
  if (!fs::is_regular_file(script, ignored)) return;
  const auto time = fs::last_write_time(files::toPath(planned.job.dxfFile), ignored);
  if (!ignored) fs::last_write_time(script, time, ignored);
}

void makeFoldersOf(const PlannedConversion& planned) {
  for (const std::string* const file :
       {&planned.job.scriptFile, &planned.reportFile, &planned.previewFile}) {
    const fs::path path = files::toPath(*file);
    if (path.has_parent_path()) files::makeFolders(path.parent_path());
  }
}

}  // namespace quillon::headless
