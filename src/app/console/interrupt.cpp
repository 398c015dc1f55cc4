#include "app/console/interrupt.h"

#include <atomic>
#include <csignal>

namespace quillon::console {
namespace {

// A signal handler can reach nothing but a static flag.
std::atomic<bool> interruptSeen{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void onInterrupt(int) {
  interruptSeen.store(true);
  std::signal(SIGINT, SIG_DFL);
}

}  // namespace

void catchInterrupt() {
#ifdef _WIN32
  std::signal(SIGINT, onInterrupt);
#else
  // Without SA_RESTART a read that waits for a pipe ends, and the cancel is seen at once.
  struct sigaction action = {};
  action.sa_handler = onInterrupt;
  sigemptyset(&action.sa_mask);
  sigaction(SIGINT, &action, nullptr);
#endif
}

bool interrupted() { return interruptSeen.load(); }

}  // namespace quillon::console
