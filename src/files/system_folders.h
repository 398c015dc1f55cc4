#pragma once

#include <filesystem>

namespace quillon::files {

/// The folder of the running executable; empty when it cannot be found out.
std::filesystem::path executableFolder();

/// True when this user can make files in a folder.
bool mayWriteIn(const std::filesystem::path& folder);

/// True for a folder below those where the system's programs are installed.
bool isSystemFolder(const std::filesystem::path& folder);

/// The user's own folder for what this program keeps; empty when there is none.
std::filesystem::path configurationFolder();

}  // namespace quillon::files
