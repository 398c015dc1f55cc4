#pragma once

#include <filesystem>

namespace quillon::files {

/// The folder of the running executable; empty when it cannot be determined.
std::filesystem::path executableFolder();

/// True when this user can create files in a folder.
bool mayWriteIn(const std::filesystem::path& folder);

/// True for a folder within those where the system installs programs.
bool isSystemFolder(const std::filesystem::path& folder);

/// The user's own folder for this program's files; empty when there is none.
std::filesystem::path configurationFolder();

}  // namespace quillon::files
