#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "settings/profile.h"

namespace quillon::settings {

/// The settings file "larkspur.ini" in a program folder, which related tools share, and functions
/// that use it.
class SettingsStore {
 public:
  explicit SettingsStore(std::filesystem::path programFolder) : folder_(std::move(programFolder)) {}

  const std::filesystem::path& programFolder() const { return folder_; }
  std::filesystem::path file() const { return folder_ / "larkspur.ini"; }

  /// Writes one value; creates the folder when missing. False on failure, without a message.
  bool WriteIni(std::string_view section, std::string_view key, std::string_view value) const;
  /// Writes several values of one section. False on failure, like writeProfile: then none is
  /// written, but on Windows perhaps some.
  bool WriteIni(std::string_view section, const std::vector<ProfileEntry>& entries) const;

  /// Reads one value, at most 254 characters; "" when it is missing or cannot be read.
  std::string ReadIni(std::string_view section, std::string_view key) const;

  /// The folder of a path, with a trailing separator: the longest part that is an existing folder,
  /// else the first two characters (the drive), else the program folder. The path ends before its
  /// first "*".
  std::string GetDirectory(std::string_view path) const;

 private:
  std::filesystem::path folder_;
};

/// Reads one value from any INI file, like ReadIni.
std::string ReadIniFrom(std::string_view file, std::string_view section, std::string_view key);

}  // namespace quillon::settings
