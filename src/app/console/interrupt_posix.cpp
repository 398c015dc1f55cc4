#include <pthread.h>
#include <sys/time.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <thread>

#include "app/console/interrupt.h"

namespace quillon::console {
namespace {

// A signal handler can only reach static objects, and may not wait for a lock.
std::atomic<bool> interruptSeen{false};
static_assert(std::atomic<bool>::is_always_lock_free);

constexpr int kWakingSignal = SIGUSR1;

/// The threads whose waits are to be broken.
class WaitingThreads {
 public:
  void add(pthread_t thread) {
    for (Place& place : places_) {
      int expected = kFree;
      if (!place.state.compare_exchange_strong(expected, kReserved)) continue;
      place.thread.store(thread);
      place.state.store(kWaiting);
      return;
    }
    // There are no more threads than conversions at the same time. Ctrl-C still reaches the others.
  }

  /// Once this returns, the thread gets no more signals, so that it may end.
  void remove(pthread_t thread) {
    for (Place& place : places_) {
      if (place.state.load() != kWaiting || pthread_equal(place.thread.load(), thread) == 0) {
        continue;
      }
      place.state.store(kReserved);
      while (handlers_.load() > 0) std::this_thread::yield();
      place.state.store(kFree);
      return;
    }
  }

  /// For a signal handler.
  void wakeAll() {
    ++handlers_;
    for (const Place& place : places_) {
      if (place.state.load() == kWaiting) pthread_kill(place.thread.load(), kWakingSignal);
    }
    --handlers_;
  }

 private:
  static constexpr std::size_t kMostThreads = 256;
  enum State : int { kFree, kReserved, kWaiting };
  struct Place {
    std::atomic<int> state{kFree};
    std::atomic<pthread_t> thread{};
  };
  static_assert(std::atomic<int>::is_always_lock_free);
  static_assert(std::atomic<pthread_t>::is_always_lock_free);

  std::array<Place, kMostThreads> places_;
  std::atomic<int> handlers_{0};  ///< that look at the threads now
};
constinit WaitingThreads waitingThreads;

extern "C" void onTimer(int) {
  const int reason = errno;
  waitingThreads.wakeAll();
  errno = reason;
}

constexpr timeval milliseconds(suseconds_t count) { return {0, count * 1000}; }

/// From now on threads are woken again and again. A timer does it: a thread of its own would take
/// as long to start and to end as a small drawing to convert. The timer and its signal are taken
/// only here, as whoever starts the program may have set the timer to end it.
void startWaking() {
  struct sigaction action = {};
  action.sa_handler = onTimer;
  sigemptyset(&action.sa_mask);
  sigaction(SIGALRM, &action, nullptr);
  // Calls that can end by themselves get a moment to do so.
  const itimerval times = {.it_interval = milliseconds(50), .it_value = milliseconds(200)};
  setitimer(ITIMER_REAL, &times, nullptr);
}

extern "C" void onInterrupt(int number) {
  const int reason = errno;
  interruptSeen.store(true);
  startWaking();
  std::signal(number, SIG_DFL);
  errno = reason;
}

extern "C" void onWake(int) {}

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

// Signal handlers reach the only state that there is.
struct WaitBreaker::State {
  WaitingThreads& threads = waitingThreads;
};

WaitBreaker::WaitBreaker() : state_(std::make_unique<State>()) {}
WaitBreaker::~WaitBreaker() = default;

WaitBreaker::Part::Part(WaitBreaker& breaker) : breaker_(breaker) {
  breaker_.state_->threads.add(pthread_self());
}
WaitBreaker::Part::~Part() { breaker_.state_->threads.remove(pthread_self()); }

}  // namespace quillon::console
