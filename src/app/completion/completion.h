#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "app/headless/option_list.h"

namespace quillon::completion {

/// What can be offered for the value of an option.
struct Offer {
  std::vector<std::string> words;  ///< the words that it takes
  bool files = false;              ///< files and folders
  std::string extension;           ///< only such files, without the point; "" for all
};

/// Reads the offer from how the help names the value: "mm|inch" are words, "FILE" is any file and
/// "FILE.lay" one with that extension. Anything else, such as a number, has none.
Offer offerFor(const headless::ListedOption& option);

/// Whether it is the drawings, which are named without an option.
inline bool isPositional(const headless::ListedOption& option) { return option.names.empty(); }

/// The file that makes a shell complete the command line of `program`.
std::string bashCompletion(std::string_view program,
                           const std::vector<headless::ListedOption>& options);
std::string fishCompletion(std::string_view program,
                           const std::vector<headless::ListedOption>& options);
std::string zshCompletion(std::string_view program,
                          const std::vector<headless::ListedOption>& options);

}  // namespace quillon::completion
