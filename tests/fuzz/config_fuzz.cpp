// Any bytes are a configuration file of the headless program: they are options, or a usage error.
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "app/headless/config_file.h"
#include "app/headless/options.h"
#include "memory_file.h"
#include "parts.h"
#include "run_once.h"
#include "silence.h"

void quillon::fuzz::runOnce(std::string_view data) {
  std::vector<headless::ConfigEntry> entries;
  bool isRead = true;
  try {
    entries = headless::configEntries(data);
  } catch (const headless::ConfigError& error) {
    isRead = false;
    require(error.line() >= 1 && error.line() <= data.size() + 1, "the line is in the file");
  }
  std::set<std::string> keys;
  std::size_t bytes = 0;
  for (const headless::ConfigEntry& entry : entries) {
    require(!entry.key.empty() && keys.insert(entry.key).second, "each option is there once");
    require(entry.value.find('\0') == std::string::npos, "a value can be an argument");
    bytes += entry.key.size() + entry.value.size();
  }
  require(bytes <= data.size(), "the options are no more than the file");

  static const MemoryFile file;
  file.set(data);
  std::optional<int> exitCode;
  {
    const Silence silence;
    headless::parseOptions({"a.dxf", "--config", file.path()}, exitCode);
  }
  require(!exitCode || *exitCode == headless::kWrongUsage, "there are options or a usage error");
  require(isRead || exitCode, "what cannot be read is a usage error");
}
