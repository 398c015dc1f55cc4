#pragma once

#include <memory>
#include <string>

#include "errors/fault_scribe.h"

namespace quillon::errors {

/// As long as this lives, its thread has stack of its own for the report of a crash, so that one
/// that has used up the usual stack is reported too. CrashReporting has one for the thread that
/// makes it; each other thread needs one.
class CrashStack {
 public:
  CrashStack();
  ~CrashStack();
  CrashStack(const CrashStack&) = delete;
  CrashStack& operator=(const CrashStack&) = delete;

  struct Memory;

 private:
  std::unique_ptr<Memory> memory_;
};

/// As long as this lives, a crash (a fault of the processor, an abort, an exception that nobody
/// traps) writes the protocol into the program's protocol file, without a question, and a notice
/// to standard error; then the program ends as it would have done. One per process at a time.
class CrashReporting {
 public:
  CrashReporting(FaultScribe& faults, std::string notice);
  /// The crashes go back to the system.
  ~CrashReporting();
  CrashReporting(const CrashReporting&) = delete;
  CrashReporting& operator=(const CrashReporting&) = delete;

  struct State;

 private:
  std::unique_ptr<State> state_;
};

}  // namespace quillon::errors
