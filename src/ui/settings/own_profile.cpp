#include "ui/settings/own_profile.h"

#include <exception>

#include "convert/ini_document.h"
#include "convert/ini_file.h"
#include "convert/output_file.h"
#include "convert/paths.h"
#include "ui/settings/profile_text.h"

namespace quillon::settings {

using convert::IniDocument;
using convert::IniFile;

std::string readOwnProfile(const std::filesystem::path& file, std::string_view section,
                           std::string_view key) {
  const IniFile ini(decodeProfile(convert::readWholeFile(convert::fromPath(file))));
  return std::string(firstCharacters(ini.wholeValue(section, key), IniFile::kLongestValue));
}

bool writeOwnProfile(const std::filesystem::path& file, std::string_view section,
                     const std::vector<ProfileEntry>& entries) {
  try {
    const std::string path = convert::fromPath(file);
    const std::filesystem::path target = convert::findExisting(path);
    // A file that is there but cannot be read must not be replaced.
    const std::string before = convert::isMissing(target) ? "" : convert::readFile(path);
    IniDocument document(decodeProfile(before));
    for (const auto& [key, value] : entries) document.set(section, key, value);
    convert::replaceFile(target, encodeProfile(document.text()));
    return true;
  } catch (const std::exception&) {
    return false;  // who asked for the writing tells the user
  }
}

}  // namespace quillon::settings
