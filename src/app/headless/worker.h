#pragma once

#include <cstddef>
#include <functional>
#include <memory>

namespace quillon::headless {

/// A thread with a stack as large as the main thread's, so that it can convert the same drawings.
class Worker {
 public:
  /// Starts the work, which must not throw. Throws std::system_error when the system cannot create
  /// another thread.
  explicit Worker(std::function<void()> work);
  /// Waits for the work to finish.
  ~Worker();
  Worker(Worker&&) noexcept;
  Worker& operator=(Worker&&) = delete;

 private:
  struct Thread;
  std::unique_ptr<Thread> thread_;
};

/// How many conversions can run concurrently: as many as wanted, or fewer (at least one) where the
/// process may not have enough files or memory.
std::size_t affordableWorkers(std::size_t wanted);

}  // namespace quillon::headless
