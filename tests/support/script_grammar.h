#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace quillon::testing {

/// What a script may hold besides the lines that every script can have.
struct ScriptRules {
  bool relative = true;                 ///< points open with "(R", else with "("
  std::vector<std::string> startBlock;  ///< the user's lines behind each "Grid"
  std::vector<std::string> endBlock;    ///< the user's lines at the end
};

/// What was found in a script.
struct ScriptFacts {
  std::uint64_t lines = 0;
  std::uint64_t namedPolygons = 0;  ///< those with a number, which are written vertex by vertex
  std::string fault;                ///< the first line that is none, and why; "" when all are right
};

/// Checks a whole script against the lines that Quillon writes, character by character: every line
/// ends in CR LF, all numbers have seven decimals, names and texts do not end their quotes. Nothing
/// that a drawing holds may make another line.
ScriptFacts checkScript(std::string_view script, const ScriptRules& rules);

}  // namespace quillon::testing
