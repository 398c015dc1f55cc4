#include "files/ini_file.h"
#include "settings/own_profile.h"
#include "settings/profile.h"
#include "settings/profile_text.h"

namespace quillon::settings {

std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key) {
  return readOwnProfile(file, section, key);
}

std::string keptByProfile(std::string_view value) {
  return std::string(firstCharacters(value, files::IniFile::kLongestValue));
}

bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries) {
  return writeOwnProfile(file, section, entries);
}

}  // namespace quillon::settings
