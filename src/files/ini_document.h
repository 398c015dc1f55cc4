#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::files {

/// An INI file to be edited. Unaffected lines (comments, empty and unknown lines) stay as and where
/// they are. Bytes are not converted; a byte order mark is dropped.
class IniDocument {
 public:
  explicit IniDocument(std::string_view bytes);

  /// Sets the value of a key: replaces the first key of that name, whose spelling stays, in the
  /// first section of that name; else adds a line at the section's end; else adds a section at the
  /// end of the file. Line breaks in the value become blanks.
  void set(std::string_view section, std::string_view key, std::string_view value);

  /// Removes every section whose folded name satisfies `fits`, with all its lines.
  void removeSections(const std::function<bool(std::string_view)>& fits);

  /// Appends a section with its keys to the file.
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
