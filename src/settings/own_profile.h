#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "settings/profile.h"

namespace quillon::settings {

/// The profile functions for systems that have none. They give what those of Windows give, as far
/// as a text has the characters of Windows-1252; a file is as it was before when writing fails.

std::string readOwnProfile(const std::filesystem::path& file, std::string_view section,
                           std::string_view key);

bool writeOwnProfile(const std::filesystem::path& file, std::string_view section,
                     const std::vector<ProfileEntry>& entries);

}  // namespace quillon::settings
