#include "convert/ini_file.h"

#include <algorithm>

#include "convert/paths.h"

namespace quillon::convert {
namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::string folded(std::string_view name) {
  std::string out(name);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

std::string_view unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

IniFile::IniFile(std::string_view bytes) {
  Section* section = nullptr;
  while (!bytes.empty()) {
    const std::size_t stop = std::min(bytes.find_first_of("\r\n"), bytes.size());
    const std::string_view line = trimmed(bytes.substr(0, stop));
    bytes.remove_prefix(std::min(stop + 1, bytes.size()));
    if (line.empty() || line.front() == ';') continue;
    if (line.front() == '[') {
      const std::size_t close = line.rfind(']');
      if (close == std::string_view::npos) continue;
      const auto [place, isNew] = sections_.try_emplace(folded(line.substr(1, close - 1)));
      section = isNew ? &place->second : nullptr;  // only the first section of a name counts
      continue;
    }
    const std::size_t equals = line.find('=');
    if (section == nullptr || equals == std::string_view::npos) continue;
    section->try_emplace(folded(trimmed(line.substr(0, equals))),
                         unquoted(trimmed(line.substr(equals + 1))));
  }
}

IniFile IniFile::read(const std::string& path) { return IniFile(readWholeFile(path)); }

std::string IniFile::value(std::string_view section, std::string_view key) const {
  const auto foundSection = sections_.find(folded(section));
  if (foundSection == sections_.end()) return {};
  const auto found = foundSection->second.find(folded(key));
  if (found == foundSection->second.end()) return {};
  return found->second.substr(0, kLongestValue);
}

}  // namespace quillon::convert
