#include "files/ini_file.h"

#include "files/ini_line.h"
#include "files/paths.h"

namespace quillon::files {

IniFile::IniFile(std::string_view bytes) {
  Section* section = nullptr;
  bytes = withoutByteOrderMark(bytes);
  while (!bytes.empty()) {
    const IniLine line = parseIniLine(takeIniLine(bytes));
    if (line.kind == IniLine::Kind::Section) {
      const auto [place, isNew] = sections_.try_emplace(foldedName(line.name));
      section = isNew ? &place->second : nullptr;  // only the first section of each name counts
    } else if (line.kind == IniLine::Kind::Key && section != nullptr) {
      section->try_emplace(foldedName(line.name), line.value);
    }
  }
}

IniFile IniFile::read(const std::string& path) { return IniFile(readWholeFile(path)); }

std::string_view IniFile::wholeValue(std::string_view section, std::string_view key) const {
  const auto foundSection = sections_.find(foldedName(section));
  if (foundSection == sections_.end()) return {};
  const auto found = foundSection->second.find(foldedName(key));
  if (found == foundSection->second.end()) return {};
  return found->second;
}

std::string IniFile::value(std::string_view section, std::string_view key) const {
  return std::string(wholeValue(section, key).substr(0, kLongestValue));
}

}  // namespace quillon::files
