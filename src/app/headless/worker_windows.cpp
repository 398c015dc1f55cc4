#include <algorithm>
#include <cstdio>
#include <thread>
#include <utility>

#include "app/headless/worker.h"

namespace quillon::headless {

// Every thread gets the stack size given in the executable, like the main thread.
struct Worker::Thread {
  std::jthread thread;
};

Worker::Worker(std::function<void()> work)
    : thread_(std::make_unique<Thread>(Thread{std::jthread(std::move(work))})) {}

Worker::Worker(Worker&&) noexcept = default;

Worker::~Worker() = default;

std::size_t affordableWorkers(std::size_t wanted) {
  // The C library's limit is 512 streams unless raised.
  constexpr int kMostStreams = 2048;
  constexpr std::size_t kStreamsEach = 6;
  constexpr std::size_t kOthers = 20;
  _setmaxstdio(kMostStreams);
  const auto streams = static_cast<std::size_t>(_getmaxstdio());
  return std::clamp<std::size_t>((streams - kOthers) / kStreamsEach, 1,
                                 std::max<std::size_t>(wanted, 1));
}

}  // namespace quillon::headless
