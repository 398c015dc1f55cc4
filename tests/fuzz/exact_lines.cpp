#include "exact_lines.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace quillon::fuzz {
namespace {

bool startsWithCommand(std::string_view line) {
  static constexpr std::array<std::string_view, 15> kCommands = {
      "Grid ", "Set ", "Layer ", "Change ", "Wire ", "Polygon ", "Circle ", "Text ",
      "Hole ", "Add ", "Open ",  "Use ",    "Edit ", "Write",    "Window "};
  return std::any_of(kCommands.begin(), kCommands.end(),
                     [line](std::string_view word) { return line.starts_with(word); });
}

/// What is outside of the quotes; "?" where one is not closed. Two quotes within a text are one.
std::string withoutQuoted(std::string_view line) {
  std::string plain;
  bool isQuoted = false;
  for (const char c : line) {
    if (c == '\'') {
      isQuoted = !isQuoted;
    } else if (!isQuoted) {
      plain += c;
    }
  }
  return isQuoted ? "?" : plain;
}

/// An Add command without the name of the library, which follows that of the part as the user wrote
/// it.
std::string withoutLibrary(std::string plain) {
  const std::size_t at = plain.find('@');
  const std::size_t place = plain.rfind(" (");
  const bool hasLibrary = plain.starts_with("Add ") && place != std::string::npos && at < place;
  return hasLibrary ? plain.erase(at, place - at) : plain;
}

bool isPlain(char c) {
  return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
         std::string_view(" ().-+;_@").find(c) != std::string_view::npos;
}

bool isLine(std::string_view line) {
  if (line.starts_with("#")) return true;
  if (!startsWithCommand(line)) return false;
  const std::string plain = withoutLibrary(withoutQuoted(line));
  return std::all_of(plain.begin(), plain.end(), isPlain) && plain.find(';') == plain.size() - 1 &&
         plain.find("nan") == std::string::npos && plain.find("inf") == std::string::npos;
}

/// Removes and returns the first line with those that a backslash joins to it. False where a line
/// has no end.
bool takeLine(std::string_view& script, std::string& line) {
  line.clear();
  for (;;) {
    const std::size_t stop = script.find("\r\n");
    if (stop == std::string_view::npos) return false;
    line += script.substr(0, stop);
    script.remove_prefix(stop + 2);
    if (!line.ends_with(" \\") || line.starts_with('#')) return true;
    line.pop_back();
  }
}

}  // namespace

std::string faultOfExactLines(std::string_view script) {
  std::string line;
  while (!script.empty()) {
    if (!takeLine(script, line)) return "no CR LF at the end of a line";
    if (!isLine(line) || line.find_first_of("\r\n") != std::string::npos) {
      return "no line of a script: " + line.substr(0, 200);
    }
  }
  return {};
}

}  // namespace quillon::fuzz
