#pragma once

#include <filesystem>

namespace quillon::window {

/// The program's start: reads the command line and the settings, then shows the splash and the main
/// window, or carries out an unattended run. Settings, frame file and layers come from the program
/// folder. Returns the exit code.
int Main(int& argc, char** argv, const std::filesystem::path& programFolder);

}  // namespace quillon::window
