#include <pthread.h>
#include <sys/resource.h>

#include <cstddef>
#include <system_error>
#include <utility>

#include "app/headless/worker.h"

namespace quillon::headless {
namespace {

/// What the main stack may grow to. C libraries give other threads as little as 128 KiB.
std::size_t mainStackSize() {
  constexpr std::size_t kUsual = std::size_t{8} << 20;  // where the main stack has no limit
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return kUsual;
  return static_cast<std::size_t>(limit.rlim_cur);
}

void check(int error) {
  if (error != 0) throw std::system_error(error, std::generic_category());
}

/// Attributes of a thread with a stack of that size.
class Attributes {
 public:
  explicit Attributes(std::size_t stackSize) {
    check(pthread_attr_init(&attributes_));
    pthread_attr_setstacksize(&attributes_, stackSize);  // a size that cannot be is the usual one
  }
  ~Attributes() { pthread_attr_destroy(&attributes_); }
  Attributes(const Attributes&) = delete;
  Attributes& operator=(const Attributes&) = delete;

  const pthread_attr_t* get() const { return &attributes_; }

 private:
  pthread_attr_t attributes_;
};

}  // namespace

struct Worker::Thread {
  std::function<void()> work;
  pthread_t id{};
};

namespace {

extern "C" void* runWork(void* work) {
  (*static_cast<std::function<void()>*>(work))();
  return nullptr;
}

}  // namespace

Worker::Worker(std::function<void()> work) : thread_(std::make_unique<Thread>()) {
  thread_->work = std::move(work);
  const Attributes attributes(mainStackSize());
  check(pthread_create(&thread_->id, attributes.get(), runWork, &thread_->work));
}

Worker::Worker(Worker&&) noexcept = default;

Worker::~Worker() {
  if (thread_ != nullptr) pthread_join(thread_->id, nullptr);
}

}  // namespace quillon::headless
