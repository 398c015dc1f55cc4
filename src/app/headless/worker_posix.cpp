#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <system_error>
#include <utility>
#include <vector>

#include "app/headless/worker.h"

namespace quillon::headless {
namespace {

/// The maximum size of the main stack. Some C libraries give other threads only 128 KiB.
std::size_t mainStackSize() {
  constexpr std::size_t kUsual = std::size_t{8} << 20;  // if the main stack is unlimited
  rlimit limit{};
  if (getrlimit(RLIMIT_STACK, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) return kUsual;
  return static_cast<std::size_t>(limit.rlim_cur);
}

void check(int error) {
  if (error != 0) throw std::system_error(error, std::generic_category());
}

/// Thread attributes with a stack of that size.
class Attributes {
 public:
  explicit Attributes(std::size_t stackSize) {
    check(pthread_attr_init(&attributes_));
    pthread_attr_setstacksize(&attributes_, stackSize);  // an impossible size leaves the default
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

namespace {

/// Files that a conversion may have open at once: drawing, script, and others on the side.
constexpr std::size_t kFilesEach = 8;

/// Opens as many files as that many conversions would, until the system refuses.
std::size_t workersByFiles(std::size_t wanted) {
  std::vector<int> files;
  while (files.size() < wanted * kFilesEach) {
    const int file = open("/dev/null", O_RDONLY | O_CLOEXEC);
    if (file < 0) break;
    files.push_back(file);
  }
  for (const int file : files) close(file);
  return files.size() / kFilesEach;
}

/// Maps as much memory, without touching it: shows what an address-space limit allows.
std::size_t workersByMemory(std::size_t wanted) {
  // A C library may reserve this much for a thread's allocations; a drawing needs buffers as well.
  constexpr std::size_t kHeap = std::size_t{128} << 20;
  const std::size_t each = std::min(mainStackSize(), std::size_t{1} << 30) + kHeap;
  std::vector<void*> blocks;
  while (blocks.size() < wanted) {
    void* const block = mmap(nullptr, each, PROT_READ | PROT_WRITE,
                             MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
    if (block == MAP_FAILED) break;
    blocks.push_back(block);
  }
  for (void* const block : blocks) munmap(block, each);
  return blocks.size();
}

}  // namespace

std::size_t affordableWorkers(std::size_t wanted) {
  if (wanted <= 1) return 1;
  return std::max<std::size_t>(1, std::min(workersByFiles(wanted), workersByMemory(wanted)));
}

Worker::Worker(Worker&&) noexcept = default;

Worker::~Worker() {
  if (thread_ != nullptr) pthread_join(thread_->id, nullptr);
}

}  // namespace quillon::headless
