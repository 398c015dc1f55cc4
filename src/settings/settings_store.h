#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "settings/profile.h"

namespace quillon::settings {

/// The settings file "larkspur.ini" of a program folder, shared by the tools of one family, and the
/// helpers around it.
class SettingsStore {
 public:
  explicit SettingsStore(std::filesystem::path programFolder) : folder_(std::move(programFolder)) {}

  const std::filesystem::path& programFolder() const { return folder_; }
  std::filesystem::path file() const { return folder_ / "larkspur.ini"; }

  /// Writes one value; the folder is made when it is missing. False when that failed; nobody is
  /// told.
  bool WriteIni(std::string_view section, std::string_view key, std::string_view value) const;
  /// Writes values of one section, all of them or none.
  bool WriteIni(std::string_view section, const std::vector<ProfileEntry>& entries) const;

  /// Reads one value, at most 254 characters; "" for a missing one or after an error.
  std::string ReadIni(std::string_view section, std::string_view key) const;

  /// The folder part of a path, with the separator at its end: the longest part of it that names an
  /// existing folder, else its first two characters (the drive), else the program folder. The path
  /// ends before its first "*".
  std::string GetDirectory(std::string_view path) const;

 private:
  std::filesystem::path folder_;
};

/// Reads one value of any INI file, as ReadIni does.
std::string ReadIniFrom(std::string_view file, std::string_view section, std::string_view key);

}  // namespace quillon::settings
