#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::settings {

/// Access to the values of an INI file as Windows' profile functions give it; on Windows those
/// themselves are called. Texts are UTF-8, the file is Windows-1252; elsewhere than on Windows it
/// is UTF-8 as soon as a character asks for it.

/// The value of a key, at most 254 characters; "" when the file, the section or the key is missing
/// or cannot be read.
std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key);

struct ProfileEntry {
  std::string_view key;
  std::string value;
};

/// Writes keys of one section and leaves everything else in the file as it is. False when that
/// failed; elsewhere than on Windows the file is then as it was before.
bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries);

}  // namespace quillon::settings
