#pragma once

#include <chrono>
#include <functional>
#include <string_view>
#include <thread>

#include "running_program.h"
#include "support/program_call.h"

namespace quillon::testing {

/// Waits for a condition; false if it does not hold within a minute.
inline bool waitUntil(const std::function<bool()>& condition) {
  using namespace std::chrono_literals;
  const auto deadline = std::chrono::steady_clock::now() + 1min;
  while (!condition()) {
    if (std::chrono::steady_clock::now() > deadline) return false;
    std::this_thread::sleep_for(2ms);
  }
  return true;
}

inline ProgramResult runProgram(const ProgramCall& call, std::string_view input = {}) {
  RunningProgram program(call);
  program.write(input);
  return program.finish();
}

}  // namespace quillon::testing
