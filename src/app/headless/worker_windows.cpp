#include <thread>
#include <utility>

#include "app/headless/worker.h"

namespace quillon::headless {

// Every thread gets the stack that the program's file asks for, as the main one does.
struct Worker::Thread {
  std::jthread thread;
};

Worker::Worker(std::function<void()> work)
    : thread_(std::make_unique<Thread>(Thread{std::jthread(std::move(work))})) {}

Worker::Worker(Worker&&) noexcept = default;

Worker::~Worker() = default;

}  // namespace quillon::headless
