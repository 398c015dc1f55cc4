#include "app/headless/configured_arguments.h"

#include <utility>

#include "base/read_error.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

/// An option as arguments.
std::vector<std::string> argumentsOf(const ConfigEntry& entry) {
  if (entry.isSwitch) return {"--" + entry.key + "=" + entry.value};
  return {"--" + entry.key, entry.value};
}

}  // namespace

ConfiguredArguments::ConfiguredArguments(const OptionSet& typed,
                                         const std::filesystem::path& configFolder) {
  const Options& options = typed.options();
  if (options.noConfig) {
    if (options.config) throw WrongConfig("--config and --no-config exclude each other");
    return;
  }
  if (options.config) {
    if (options.config->empty()) throw WrongConfig("the name of the configuration file is empty");
    path_ = files::findExisting(files::pathArgument(*options.config));
  } else {
    if (configFolder.empty()) return;
    path_ = configFolder / kConfigFile;
    if (files::isMissing(path_)) return;
  }
  read();
  if (entries_.empty()) return;
  const OptionSet all;
  for (const ConfigEntry& entry : entries_) {
    if (!all.isConfigurable(entry.key)) {
      refuse(entry.line, "there is no option \"" + entry.key + "\" for a configuration file");
    }
    if (entry.isSwitch != all.isSwitch(entry.key)) {
      refuse(entry.line, entry.isSwitch ? entry.key + " needs another value than true or false"
                                        : entry.key + " is either true or false, without quotes");
    }
  }
  std::erase_if(entries_, [&typed](const ConfigEntry& entry) { return typed.isGiven(entry.key); });
}

void ConfiguredArguments::read() {
  std::string text;
  try {
    text = readConfigText(path_);
  } catch (const base::ReadError& error) {
    throw WrongConfig("the configuration file " + files::fromPath(path_) + " could not be read: " +
                      error.what() + "; correct the path or its permissions, or use --no-config");
  }
  try {
    entries_ = configEntries(text);
  } catch (const ConfigError& error) {
    refuse(error.line(), error.what());
  }
}

void ConfiguredArguments::parse(OptionSet& set, const std::vector<std::string>& arguments) const {
  std::vector<std::string> all;
  for (const ConfigEntry& entry : entries_) {
    const std::vector<std::string> words = argumentsOf(entry);
    all.insert(all.end(), words.begin(), words.end());
  }
  all.insert(all.end(), arguments.begin(), arguments.end());
  try {
    set.parse(std::move(all));
  } catch (const CLI::ParseError&) {
    // The arguments alone were right.
    for (const ConfigEntry& entry : entries_) {
      try {
        OptionSet().parse(argumentsOf(entry));
      } catch (const CLI::ParseError& error) {
        refuse(entry.line, error.what());
      }
    }
    throw;
  }
}

std::string ConfiguredArguments::hint() const {
  return " (some options come from " + files::fromPath(path_) + "; --no-config leaves them out)";
}

void ConfiguredArguments::refuse(std::size_t line, const std::string& what) const {
  throw WrongConfig(files::fromPath(path_) + ":" + std::to_string(line) + ": " + what +
                    "; correct this line, or use --no-config");
}

}  // namespace quillon::headless
