#include "settings/own_profile.h"

#include <exception>

#include "files/ini_document.h"
#include "files/ini_file.h"
#include "files/output_file.h"
#include "files/paths.h"
#include "settings/profile_text.h"

namespace quillon::settings {

using files::IniDocument;
using files::IniFile;

std::string readOwnProfile(const std::filesystem::path& file, std::string_view section,
                           std::string_view key) {
  const IniFile ini(decodeProfile(files::readWholeFile(files::fromPath(file))));
  return std::string(firstCharacters(ini.wholeValue(section, key), IniFile::kLongestValue));
}

bool writeOwnProfile(const std::filesystem::path& file, std::string_view section,
                     const std::vector<ProfileEntry>& entries) {
  try {
    const std::string path = files::fromPath(file);
    const std::filesystem::path target = files::findExisting(path);
    // A file that exists but cannot be read must not be replaced.
    const std::string before = files::isMissing(target) ? "" : files::readFile(path);
    IniDocument document(decodeProfile(before));
    for (const auto& [key, value] : entries) document.set(section, key, value);
    files::replaceFile(target, encodeProfile(document.text()));
    return true;
  } catch (const std::exception&) {
    return false;  // the caller tells the user
  }
}

}  // namespace quillon::settings
