#include "files/program_folder.h"

#include "files/system_folders.h"

namespace quillon::files {

namespace fs = std::filesystem;

fs::path programFolder() {
  const fs::path folder = executableFolder();
  const bool own = !folder.empty() && mayWriteIn(folder) && !isSystemFolder(folder);
  return own ? folder : configurationFolder();
}

fs::path frameFilePath() {
  const fs::path folder = programFolder();
  return folder.empty() ? fs::path() : folder / kFrameFile;
}

}  // namespace quillon::files
