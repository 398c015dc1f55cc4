#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::testing {

/// What a script may contain besides the lines common to all scripts.
struct ScriptRules {
  bool relative = true;                 ///< points start with "(R" instead of "("
  std::vector<std::string> startBlock;  ///< the user's lines after each "Grid"
  std::vector<std::string> endBlock;    ///< the user's lines at the end
};

/// What was found in a script.
struct ScriptFacts {
  std::uint64_t lines = 0;
  std::uint64_t namedPolygons = 0;  ///< those with a number, which are written vertex by vertex
  std::string fault;  ///< the first invalid line and the reason; "" when all are valid
};

/// Checks a script, character by character, against the lines that Quillon writes: every line ends
/// in CR LF, all numbers have seven decimals, and names and texts cannot break out of their quotes.
/// Nothing in a drawing may produce any other line.
ScriptFacts checkScript(std::string_view script, const ScriptRules& rules);

}  // namespace quillon::testing
