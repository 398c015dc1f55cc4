#include "files/ini_line.h"

#include <algorithm>

namespace quillon::files {
namespace {

bool isSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string_view trimmed(std::string_view text) {
  while (!text.empty() && isSpace(text.front())) text.remove_prefix(1);
  while (!text.empty() && isSpace(text.back())) text.remove_suffix(1);
  return text;
}

std::string_view unquoted(std::string_view value) {
  const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                      (value.front() == '"' || value.front() == '\'');
  return quoted ? value.substr(1, value.size() - 2) : value;
}

}  // namespace

IniLine parseIniLine(std::string_view line) {
  line = trimmed(line);
  if (line.empty() || line.front() == ';') return {};
  if (line.front() == '[') {
    const std::size_t close = line.rfind(']');
    if (close == std::string_view::npos) return {};
    return {IniLine::Kind::Section, trimmed(line.substr(1, close - 1)), {}};
  }
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {IniLine::Kind::Key, line, {}};
  return {IniLine::Kind::Key, trimmed(line.substr(0, equals)),
          unquoted(trimmed(line.substr(equals + 1)))};
}

std::string_view takeIniLine(std::string_view& text) {
  const std::size_t stop = std::min(text.find_first_of("\r\n"), text.size());
  const std::string_view line = text.substr(0, stop);
  const bool pair = text.substr(stop, 2) == "\r\n";
  text.remove_prefix(std::min(stop + (pair ? 2 : 1), text.size()));
  return line;
}

std::string_view withoutByteOrderMark(std::string_view text) {
  constexpr std::string_view kMark = "\xEF\xBB\xBF";
  while (text.starts_with(kMark)) text.remove_prefix(kMark.size());
  return text;
}

std::string foldedName(std::string_view name) {
  std::string out(trimmed(name));
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

}  // namespace quillon::files
