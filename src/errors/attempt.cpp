#include "errors/attempt.h"

namespace quillon::errors {
namespace {

/// Takes back what a step leaves in the call stack when an exception ends it.
class KeptCallStack {
 public:
  explicit KeptCallStack(CallStackList& list) : list_(list), mark_(list.mark()) {}
  ~KeptCallStack() { list_.backTo(mark_); }
  KeptCallStack(const KeptCallStack&) = delete;
  KeptCallStack& operator=(const KeptCallStack&) = delete;

 private:
  CallStackList& list_;
  std::uint64_t mark_;
};

}  // namespace

bool attempt(FaultScribe& faults, std::string_view module, std::string_view procedure,
             const std::function<void()>& step, unsigned allowed, SourceLine line) {
  for (;;) {
    const KeptCallStack kept(faults.callStack());
    try {
      const Procedure running(faults.callStack(), module, procedure, line);
      step();
      return true;
    } catch (...) {
      const std::int16_t choice = faults.OnError(module, procedure, allowed);
      if (choice == kResume) return true;
      if (choice != kRetry) return false;
    }
  }
}

}  // namespace quillon::errors
