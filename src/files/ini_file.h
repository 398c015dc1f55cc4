#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "base/text_hash.h"

namespace quillon::files {

/// The bytes of an INI file, read as Windows reads profile files: section and key names ignore
/// case, the first match wins, blanks around names and values are dropped, one pair of quotes
/// around a value is removed. Bytes are not converted.
class IniFile {
 public:
  /// Longest value returned, in one-byte characters.
  static constexpr std::size_t kLongestValue = 254;

  IniFile() = default;
  explicit IniFile(std::string_view bytes);

  /// Reads a file; a missing or unreadable one reads as empty.
  static IniFile read(const std::string& path);

  /// The full value of a key, or "".
  std::string_view wholeValue(std::string_view section, std::string_view key) const;
  /// The value of a key, cut to kLongestValue, or "".
  std::string value(std::string_view section, std::string_view key) const;

 private:
  using Section = std::unordered_map<std::string, std::string, base::TextHash>;
  std::unordered_map<std::string, Section, base::TextHash> sections_;
};

}  // namespace quillon::files
