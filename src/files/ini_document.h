#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::files {

/// An INI file that is to be changed. Lines that are not concerned (comments, empty lines, unknown
/// ones) stay as they are and where they are. Bytes are not converted; a byte order mark is
/// dropped.
class IniDocument {
 public:
  explicit IniDocument(std::string_view bytes);

  /// Gives a key its value: in the first section of that name, in place of the first key of that
  /// name, whose spelling stays; else as a new line at the section's end; else in a new section at
  /// the end of the file. Line breaks in the value become blanks.
  void set(std::string_view section, std::string_view key, std::string_view value);

  /// Removes every section whose name (in its folded form) fits, with all that stands in it.
  void removeSections(const std::function<bool(std::string_view)>& fits);

  /// Appends a section with its keys at the end of the file.
  struct Entry {
    std::string_view key;
    std::string_view value;
  };
  void append(std::string_view section, const std::vector<Entry>& entries);

  /// The whole file; every line ends in CR LF.
  std::string text() const;

 private:
  std::size_t findSection(std::string_view section) const;

  std::vector<std::string> lines_;
};

}  // namespace quillon::files
