#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quillon::files {

/// A line of an INI file, as Windows reads profile files.
struct IniLine {
  enum class Kind : std::uint8_t {
    Section,
    Key,
    Other,  ///< a comment, an empty line, or one without meaning
  };
  Kind kind = Kind::Other;
  std::string_view name;   ///< of the section or key, trimmed
  std::string_view value;  ///< of the key, trimmed and unquoted; empty for a line without "="
};

IniLine parseIniLine(std::string_view line);

/// Removes the first line from a text and returns it without its line end (CR LF, LF or CR).
std::string_view takeIniLine(std::string_view& text);

/// The text after its byte order marks, which editors put in front of UTF-8.
std::string_view withoutByteOrderMark(std::string_view text);

/// A section or key name for comparison: case and surrounding blanks do not matter.
std::string foldedName(std::string_view name);

}  // namespace quillon::files
