#include "files/file_state.h"

#include "files/paths.h"

namespace quillon::files {

std::optional<FileState> fileStateOf(const std::filesystem::path& path) {
  if (path.empty() || !namesFile(path)) return std::nullopt;
  std::error_code timeError;
  std::error_code sizeError;
  const FileState state{std::filesystem::last_write_time(path, timeError),
                        std::filesystem::file_size(path, sizeError)};
  if (timeError || sizeError) return std::nullopt;
  return state;
}

}  // namespace quillon::files
