#pragma once

#include <filesystem>

namespace quillon::files {

/// The folder that holds the program's own files: the folder of the executable when it can be
/// written to and belongs to no system folder, else the user's configuration folder of this
/// program. The folder need not exist. Empty when there is neither.
std::filesystem::path programFolder();

/// Name of the frame file.
inline constexpr const char* kFrameFile = "quillon.cfh";

/// The frame file in the program folder.
std::filesystem::path frameFilePath();

}  // namespace quillon::files
