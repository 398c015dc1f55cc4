#pragma once

#include <string>
#include <vector>

namespace quillon::headless {

/// An option of the command line, or a positional argument, as other programs may present it.
struct ListedOption {
  std::vector<std::string> names;  ///< with their dashes; none for a positional argument
  std::string value;               ///< what it takes, as the help names it; "" for a switch
  std::string help;
};

/// All options in the order of the help, "--help" and "--version" included.
std::vector<ListedOption> listOptions();

}  // namespace quillon::headless
