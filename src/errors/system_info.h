#pragma once

#include <string>
#include <string_view>

namespace quillon::errors {

/// The system that the program runs on, UTF-8.
struct SystemInfo {
  std::string platform;
  std::string version;  ///< "major.minor"
  std::string build;
  std::string servicePack;  ///< what the system says of its own state; may be empty
};

SystemInfo systemInfo();

/// A text that a function of the system returned, up to its first NUL.
std::string_view LpstrToString(std::string_view text);

}  // namespace quillon::errors
