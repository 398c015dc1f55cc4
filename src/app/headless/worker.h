#pragma once

#include <functional>
#include <memory>

namespace quillon::headless {

/// A thread with a stack as large as the main thread's, on which no less may be converted than
/// there.
class Worker {
 public:
  /// Begins the work, which must not throw. Throws std::system_error when the system has no thread
  /// left.
  explicit Worker(std::function<void()> work);
  /// Waits for the end of the work.
  ~Worker();
  Worker(Worker&&) noexcept;
  Worker& operator=(Worker&&) = delete;

 private:
  struct Thread;
  std::unique_ptr<Thread> thread_;
};

}  // namespace quillon::headless
