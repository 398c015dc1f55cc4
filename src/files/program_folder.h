#pragma once

#include <filesystem>

namespace quillon::files {

/// The folder for the program's own files: that of the executable if it is writable and not within
/// a system folder, else this program's folder in the user's configuration. The folder need not
/// exist. Empty when there is neither.
std::filesystem::path programFolder();

/// Name of the frame file.
inline constexpr const char* kFrameFile = "quillon.cfh";

/// The frame file in the program folder.
std::filesystem::path frameFilePath();

}  // namespace quillon::files
