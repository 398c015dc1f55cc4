#include "app/headless/interrupt.h"

#include <atomic>
#include <csignal>

namespace quillon::headless {
namespace {

// A signal handler can reach nothing but a static flag.
std::atomic<bool> interruptSeen{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void onInterrupt(int) {
  interruptSeen.store(true);
  std::signal(SIGINT, SIG_DFL);
}

}  // namespace

void catchInterrupt() { std::signal(SIGINT, onInterrupt); }

bool interrupted() { return interruptSeen.load(); }

}  // namespace quillon::headless
