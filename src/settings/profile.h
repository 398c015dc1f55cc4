#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::settings {

/// Reads and writes INI files as Windows' profile functions do; on Windows those are called. Texts
/// are UTF-8, the file is Windows-1252, except that on other systems it becomes UTF-8 when a
/// character requires it.

/// The value of a key, at most 254 characters; "" when file, section or key is missing or cannot be
/// read.
std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key);

/// What readProfile gives of a value once writeProfile has written it, apart from blanks and quotes
/// around it: its first 254 characters, on Windows with "?" for those outside Windows-1252.
std::string keptByProfile(std::string_view value);

struct ProfileEntry {
  std::string_view key;
  std::string value;
};

/// Writes keys of one section and leaves the rest of the file as it is. False on failure; on
/// systems other than Windows the file is then unchanged.
bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries);

}  // namespace quillon::settings
