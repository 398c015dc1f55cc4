#pragma once

#include <cstddef>
#include <functional>
#include <memory>

namespace quillon::headless {

/// A thread with a stack as large as the main thread's, so that it can convert what that one can.
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

/// How many conversions can run at the same time: as many as wanted, fewer where the process may
/// not have the files and the memory for them, at least one.
std::size_t affordableWorkers(std::size_t wanted);

}  // namespace quillon::headless
