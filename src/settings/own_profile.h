#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "settings/profile.h"

namespace quillon::settings {

/// The profile functions for systems without them. They give the same results as Windows' for texts
/// within Windows-1252; a file is unchanged when writing it fails.

std::string readOwnProfile(const std::filesystem::path& file, std::string_view section,
                           std::string_view key);

bool writeOwnProfile(const std::filesystem::path& file, std::string_view section,
                     const std::vector<ProfileEntry>& entries);

}  // namespace quillon::settings
