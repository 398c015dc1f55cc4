#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>
#include <system_error>
#include <thread>
#include <vector>

#include "app/console/interrupt.h"

namespace quillon::console {

/// A WaitBreaker with a thread of its own. `System` provides
///   Thread             a thread that can be woken
///   waitForInterrupt() returns after an interrupt or stopWaiting(), possibly spuriously
///   stopWaiting()
///   wake(Thread)       ends what the thread is waiting for, if anything
///   isSame(Thread, Thread)
template <typename System>
class Waker {
 public:
  using Thread = typename System::Thread;

  Waker() {
    try {
      thread_ = std::jthread([this](const std::stop_token& stop) { run(stop); });
    } catch (const std::system_error&) {
      // Without an extra thread, Ctrl-C still reaches one of the waiting threads.
    }
  }
  ~Waker() {
    thread_.request_stop();
    System::stopWaiting();
  }
  Waker(const Waker&) = delete;
  Waker& operator=(const Waker&) = delete;

  void add(Thread thread) {
    const std::lock_guard lock(mutex_);
    threads_.push_back(thread);
  }
  void remove(Thread thread) {
    const std::lock_guard lock(mutex_);
    const auto found = std::find_if(threads_.begin(), threads_.end(), [thread](Thread other) {
      return System::isSame(thread, other);
    });
    if (found != threads_.end()) threads_.erase(found);
  }

 private:
  // Give calls that can end by themselves a moment to do so.
  static constexpr std::chrono::milliseconds kFirstPause{200};
  static constexpr std::chrono::milliseconds kPause{50};

  void run(const std::stop_token& stop) {
    while (!interrupted() && !stop.stop_requested()) System::waitForInterrupt();
    // Waiting would cost this thread a heap of its own, of which most runs never make use.
    if (stop.stop_requested()) return;
    for (auto pause = kFirstPause;; pause = kPause) {
      std::unique_lock lock(mutex_);
      ended_.wait_for(lock, stop, pause, [] { return false; });
      if (stop.stop_requested()) return;
      for (const Thread thread : threads_) System::wake(thread);
    }
  }

  std::mutex mutex_;
  std::condition_variable_any ended_;
  std::vector<Thread> threads_;
  std::jthread thread_;  // last: it uses the other members
};

}  // namespace quillon::console
