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
    Other,  ///< a comment, an empty line, or one that means nothing
  };
  Kind kind = Kind::Other;
  std::string_view name;   ///< of the section or the key, without the blanks around it
  std::string_view value;  ///< of the key; blanks around it and one pair of quotes are taken off; a
                           ///< line without "=" is a key with an empty value
};

IniLine parseIniLine(std::string_view line);

/// Takes the first line off a text, without its line end (CR LF, LF or CR).
std::string_view takeIniLine(std::string_view& text);

/// The text behind its byte order marks, which editors put in front of UTF-8.
std::string_view withoutByteOrderMark(std::string_view text);

/// The name of a section or key for comparisons, which regard neither case nor blanks around it.
std::string foldedName(std::string_view name);

}  // namespace quillon::files
