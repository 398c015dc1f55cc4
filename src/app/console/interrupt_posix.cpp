#include <atomic>
#include <csignal>

#include "app/console/interrupt.h"

namespace quillon::console {
namespace {

// A signal handler can reach nothing but a static flag.
std::atomic<bool> interruptSeen{false};
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void onInterrupt(int number) {
  interruptSeen.store(true);
  std::signal(number, SIG_DFL);
}

}  // namespace

void catchInterrupt() {
  // Without SA_RESTART a read that waits for a pipe ends, and the cancel is seen at once.
  struct sigaction action = {};
  action.sa_handler = onInterrupt;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGINT, SIGTERM}) sigaction(number, &action, nullptr);
  // Where the terminal is closed; a program under nohup goes on.
  struct sigaction hangUp = {};
  if (sigaction(SIGHUP, nullptr, &hangUp) == 0 && hangUp.sa_handler != SIG_IGN) {
    sigaction(SIGHUP, &action, nullptr);
  }
  // A reader that is gone and a file that may not grow are errors of writing like others: the
  // program tells of them and clears up.
  for (const int number : {SIGPIPE, SIGXFSZ}) std::signal(number, SIG_IGN);
}

bool interrupted() { return interruptSeen.load(); }

}  // namespace quillon::console
