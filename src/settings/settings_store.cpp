#include "settings/settings_store.h"

#include "files/paths.h"

namespace quillon::settings {
namespace {

bool isSeparator(char c) { return c == '\\' || c == '/'; }

}  // namespace

bool SettingsStore::WriteIni(std::string_view section, std::string_view key,
                             std::string_view value) const {
  return WriteIni(section, {{key, std::string(value)}});
}

bool SettingsStore::WriteIni(std::string_view section,
                             const std::vector<ProfileEntry>& entries) const {
  return !folder_.empty() && writeProfile(file(), section, entries);
}

std::string SettingsStore::ReadIni(std::string_view section, std::string_view key) const {
  return folder_.empty() ? std::string() : readProfile(file(), section, key);
}

std::string SettingsStore::GetDirectory(std::string_view path) const {
  path = path.substr(0, path.find('*'));
  for (std::size_t length = path.size(); length > 0; --length) {
    const std::string_view prefix = path.substr(0, length);
    if (isSeparator(prefix.back()) && files::namesFolder(files::findExisting(prefix)))
      return std::string(prefix);
  }
  std::string drive(path.substr(0, 2));
  if (drive.size() == 2 && drive[1] == ':') drive += '\\';
  return drive.empty() ? files::fromPath(folder_) : drive;
}

std::string ReadIniFrom(std::string_view file, std::string_view section, std::string_view key) {
  return readProfile(files::findExisting(file), section, key);
}

}  // namespace quillon::settings
