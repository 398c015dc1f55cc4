#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "app/headless/config_file.h"
#include "app/headless/option_set.h"

namespace quillon::headless {

/// A configuration file that cannot be used: where it is, what is wrong, and what to do.
class WrongConfig : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The options of a configuration file that the arguments do not give.
class ConfiguredArguments {
 public:
  /// `typed` has parsed the arguments. Throws WrongConfig.
  ConfiguredArguments(const OptionSet& typed, const std::filesystem::path& configFolder);

  bool isEmpty() const { return entries_.empty(); }

  /// Parses these options and the arguments together. Throws WrongConfig.
  void parse(OptionSet& set, const std::vector<std::string>& arguments) const;

  /// What follows a message that these options may have caused.
  std::string hint() const;

 private:
  void read();
  [[noreturn]] void refuse(std::size_t line, const std::string& what) const;

  std::filesystem::path path_;
  std::vector<ConfigEntry> entries_;
};

}  // namespace quillon::headless
