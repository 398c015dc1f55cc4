#include <unistd.h>

#include <array>
#include <climits>
#include <cstdlib>
#include <string>
#include <string_view>

#include "files/system_folders.h"

namespace quillon::files {

namespace fs = std::filesystem;

namespace {

bool isBelow(const fs::path& folder, const char* root) {
  const std::string text = folder.string() + "/";
  return text.starts_with(std::string(root) + "/");
}

}  // namespace

fs::path executableFolder() {
  std::array<char, PATH_MAX> path{};
  const ssize_t size = readlink("/proc/self/exe", path.data(), path.size());
  if (size < 0) return {};
  return fs::path(std::string_view(path.data(), static_cast<std::size_t>(size))).parent_path();
}

bool mayWriteIn(const fs::path& folder) { return access(folder.c_str(), W_OK) == 0; }

bool isSystemFolder(const fs::path& folder) {
  return isBelow(folder, "/usr") || isBelow(folder, "/opt");
}

fs::path configurationFolder() {
  const char* const configuration = std::getenv("XDG_CONFIG_HOME");
  if (configuration != nullptr && *configuration == '/') return fs::path(configuration) / "quillon";
  const char* const home = std::getenv("HOME");
  return home == nullptr || *home == '\0' ? fs::path() : fs::path(home) / ".config" / "quillon";
}

}  // namespace quillon::files
