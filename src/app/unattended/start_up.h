#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "convert/command_line.h"

namespace quillon::unattended {

/// What the arguments of the process (without its name, UTF-8) request.
struct StartUp {
  convert::CommandLine line;
  std::string drawing;  ///< a drawing to open in the window, or ""

  bool unattended() const { return line.autoRun || line.autoRunExit; }
};

StartUp readArguments(const std::vector<std::string>& arguments);

}  // namespace quillon::unattended
