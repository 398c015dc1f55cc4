#include "settings/own_profile.h"
#include "settings/profile.h"

namespace quillon::settings {

std::string readProfile(const std::filesystem::path& file, std::string_view section,
                        std::string_view key) {
  return readOwnProfile(file, section, key);
}

bool writeProfile(const std::filesystem::path& file, std::string_view section,
                  const std::vector<ProfileEntry>& entries) {
  return writeOwnProfile(file, section, entries);
}

}  // namespace quillon::settings
