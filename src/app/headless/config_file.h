#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::headless {

/// Name of the configuration file in the user's folder for them.
inline constexpr const char* kConfigFile = "quillon-convert.toml";

/// One option of a configuration file.
struct ConfigEntry {
  std::string key;  ///< name of the option, without "--"
  std::string value;
  bool isSwitch = false;  ///< the value is true or false, without quotes
  std::size_t line = 0;
};

/// What is wrong in a line of a configuration file.
class ConfigError : public std::runtime_error {
 public:
  ConfigError(std::size_t line, const std::string& what) : std::runtime_error(what), line_(line) {}
  std::size_t line() const { return line_; }

 private:
  std::size_t line_;
};

/// The options in the text of a configuration file: the part of TOML that options need, which is
/// one `key = value` on each line, comments, and as values strings, numbers, true and false. Throws
/// ConfigError. The parser's own reader of TOML has no line numbers, ends strings at "#", and
/// ignores what it does not understand.
std::vector<ConfigEntry> configEntries(std::string_view text);

/// The text of a configuration file. Throws base::ReadError, also for one larger than 1 MiB.
std::string readConfigText(const std::filesystem::path& path);

}  // namespace quillon::headless
