#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace quillon::testing {

/// The result of running a program.
struct ProgramResult {
  int exitCode = -1;  ///< minus the signal's number if it was killed by one
  std::string output;
  std::string error;
  std::size_t peakBytes = 0;  ///< peak memory; 0 where unknown
};

/// How to start a program.
struct ProgramCall {
  std::string program;
  std::vector<std::string> arguments;
  std::filesystem::path folder;                                 ///< to work in
  std::vector<std::string> environment = {"LANG=C", "TZ=UTC"};  ///< nothing else is inherited
  bool unprivileged = false;       ///< without root's rights, which override permissions
  std::uint64_t largestFile = 0;   ///< maximum size of files it writes; 0: unlimited
  int outputStream = -1;           ///< descriptor for standard output; -1: a file
  int errorStream = -1;            ///< descriptor for standard error; -1: a file
  std::vector<int> closedStreams;  ///< standard streams closed at the start
};

}  // namespace quillon::testing
