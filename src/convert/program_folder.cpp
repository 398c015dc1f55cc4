#include "convert/program_folder.h"

#include <cstdlib>
#include <string>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#include <windows.h>
#else
#include <unistd.h>
#endif

namespace quillon::convert {

namespace fs = std::filesystem;

namespace {

fs::path executableFolder() {
#ifdef _WIN32
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return fs::path(path).parent_path();
#else
  std::error_code error;
  return fs::read_symlink("/proc/self/exe", error).parent_path();
#endif
}

bool isWritable(const fs::path& folder) {
#ifdef _WIN32
  return _waccess(folder.c_str(), 2) == 0;
#else
  return access(folder.c_str(), W_OK) == 0;
#endif
}

bool isBelow(const fs::path& folder, const char* root) {
  const std::string text = folder.string() + "/";
  return text.starts_with(std::string(root) + "/");
}

bool isSystemFolder(const fs::path& folder) {
#ifdef _WIN32
  for (const char* variable : {"ProgramFiles", "ProgramFiles(x86)", "ProgramW6432"}) {
    const char* const root = std::getenv(variable);
    if (root != nullptr && isBelow(folder, root)) return true;
  }
  return false;
#else
  return isBelow(folder, "/usr") || isBelow(folder, "/opt");
#endif
}

fs::path configurationFolder() {
#ifdef _WIN32
  const char* const home = std::getenv("APPDATA");
  return home == nullptr || *home == '\0' ? fs::path() : fs::path(home) / "Quillon";
#else
  const char* const configuration = std::getenv("XDG_CONFIG_HOME");
  if (configuration != nullptr && *configuration == '/') return fs::path(configuration) / "quillon";
  const char* const home = std::getenv("HOME");
  return home == nullptr || *home == '\0' ? fs::path() : fs::path(home) / ".config" / "quillon";
#endif
}

}  // namespace

fs::path programFolder() {
  const fs::path folder = executableFolder();
  const bool own = !folder.empty() && isWritable(folder) && !isSystemFolder(folder);
  return own ? folder : configurationFolder();
}

fs::path frameFilePath() {
  const fs::path folder = programFolder();
  return folder.empty() ? fs::path() : folder / kFrameFile;
}

}  // namespace quillon::convert
