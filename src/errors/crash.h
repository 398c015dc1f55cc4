#pragma once

#include <memory>
#include <string>

#include "errors/fault_scribe.h"

namespace quillon::errors {

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

/// Room in which a crash of this thread can be reported when it is an overflow of the thread's
/// stack. The thread of CrashReporting has it already; every other one needs it as long as it runs.
class CrashStack {
 public:
  CrashStack();
  ~CrashStack();
  CrashStack(const CrashStack&) = delete;
  CrashStack& operator=(const CrashStack&) = delete;

 private:
  std::unique_ptr<char[]> memory_;  ///< null where the system provides the room
};

}  // namespace quillon::errors
