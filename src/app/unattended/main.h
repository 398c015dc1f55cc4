#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace quillon::unattended {

/// The program's start: reads the command line and the settings, and carries out an unattended run
/// if one was requested. `arguments` are those of the process without its name, UTF-8; settings,
/// frame file and layers come from the program folder. Returns the exit code: 0 all converted, 1
/// some not, 2 nothing to do without a window, 130 cancelled.
int Main(const std::vector<std::string>& arguments, const std::filesystem::path& programFolder);

}  // namespace quillon::unattended
