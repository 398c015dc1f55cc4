#include <pthread.h>
#include <semaphore.h>

#include <atomic>
#include <cerrno>
#include <csignal>

#include "app/console/interrupt.h"
#include "app/console/wait_breaker.h"

namespace quillon::console {
namespace {

// A signal handler can only reach static objects.
std::atomic<bool> interruptSeen{false};
static_assert(std::atomic<bool>::is_always_lock_free);
struct Semaphore {
  Semaphore() { sem_init(&value, 0, 0); }
  sem_t value{};
} interrupts;

constexpr int kWakingSignal = SIGUSR1;

extern "C" void onInterrupt(int number) {
  const int reason = errno;
  interruptSeen.store(true);
  sem_post(&interrupts.value);
  std::signal(number, SIG_DFL);
  errno = reason;
}

extern "C" void onWake(int) {}

struct System {
  using Thread = pthread_t;

  static void waitForInterrupt() {
    while (sem_wait(&interrupts.value) != 0 && errno == EINTR) {
    }
  }
  static void stopWaiting() { sem_post(&interrupts.value); }
  static void wake(Thread thread) { pthread_kill(thread, kWakingSignal); }
  static bool isSame(Thread a, Thread b) { return pthread_equal(a, b) != 0; }
};

}  // namespace

void catchInterrupt() {
  // Without SA_RESTART a blocked read returns, so that a cancel is noticed at once.
  struct sigaction action = {};
  action.sa_handler = onInterrupt;
  sigemptyset(&action.sa_mask);
  for (const int number : {SIGINT, SIGTERM}) sigaction(number, &action, nullptr);
  // Sent when the terminal is closed; nohup ignores it.
  struct sigaction hangUp = {};
  if (sigaction(SIGHUP, nullptr, &hangUp) == 0 && hangUp.sa_handler != SIG_IGN) {
    sigaction(SIGHUP, &action, nullptr);
  }
  struct sigaction waking = {};
  waking.sa_handler = onWake;
  sigemptyset(&waking.sa_mask);
  sigaction(kWakingSignal, &waking, nullptr);
  // A closed pipe and a file size limit become ordinary write errors, so that the program reports
  // them and cleans up.
  for (const int number : {SIGPIPE, SIGXFSZ}) std::signal(number, SIG_IGN);
}

bool interrupted() { return interruptSeen.load(); }

struct WaitBreaker::State : Waker<System> {};

WaitBreaker::WaitBreaker() : state_(std::make_unique<State>()) {}
WaitBreaker::~WaitBreaker() = default;

WaitBreaker::Part::Part(WaitBreaker& breaker) : breaker_(breaker) {
  breaker_.state_->add(pthread_self());
}
WaitBreaker::Part::~Part() { breaker_.state_->remove(pthread_self()); }

}  // namespace quillon::console
