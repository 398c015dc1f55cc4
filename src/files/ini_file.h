#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/text_hash.h"

namespace quillon::files {

/// The bytes of an INI file, read as Windows reads profile files: sections and keys without regard
/// to case, the first match wins, blanks around names and values do not count, one pair of quotes
/// around a value is taken off. Bytes are not converted.
class IniFile {
 public:
  /// Longest value that is given back, in characters of one byte.
  static constexpr std::size_t kLongestValue = 254;

  IniFile() = default;
  explicit IniFile(std::string_view bytes);

  /// Reads a file; a missing or unreadable one reads as empty.
  static IniFile read(const std::string& path);

  /// The value of a key in full, or "".
  std::string_view wholeValue(std::string_view section, std::string_view key) const;
  /// The value of a key as far as it is given back, or "".
  std::string value(std::string_view section, std::string_view key) const;

 private:
  using Section = std::unordered_map<std::string, std::string, base::TextHash>;
  std::unordered_map<std::string, Section, base::TextHash> sections_;
};

}  // namespace quillon::files
