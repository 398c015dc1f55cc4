#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::testing {

/// What a program left behind.
struct ProgramResult {
  int exitCode = -1;  ///< minus the signal's number when one ended the program
  std::string output;
  std::string error;
  std::size_t peakBytes = 0;  ///< most memory that was in use at once; 0 where that is not known
};

/// How to start a program.
struct ProgramCall {
  std::string program;
  std::vector<std::string> arguments;
  std::filesystem::path folder;                                 ///< to work in
  std::vector<std::string> environment = {"LANG=C", "TZ=UTC"};  ///< nothing else is inherited
  bool unprivileged = false;       ///< without root's rights, which see through every permission
  std::uint64_t largestFile = 0;   ///< files that the program writes cannot grow beyond it; 0: any
  int outputStream = -1;           ///< a descriptor that becomes standard output, instead of a file
  int errorStream = -1;            ///< a descriptor that becomes standard error, instead of a file
  std::vector<int> closedStreams;  ///< standard streams that the program starts without
};

}  // namespace quillon::testing
