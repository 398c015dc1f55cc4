// Threads other than the main one: their stacks, and what remains when one overflows.
#include "app/headless/worker.h"

#include <gtest/gtest.h>
#include <sys/resource.h>

#include <atomic>
#include <csignal>
#include <cstddef>
#include <vector>

#include "errors/crash.h"
#include "errors/scribe_fixture.h"

namespace quillon::headless {
namespace {

constexpr std::size_t kMegabyte = std::size_t{1} << 20;

/// Uses at least this many bytes of stack.
std::size_t useStack(std::size_t bytes) {
  constexpr std::size_t kFrame = 8192;
  volatile char frame[kFrame];
  frame[0] = 1;
  frame[kFrame - 1] = static_cast<char>(bytes & 1);
  if (bytes < kFrame) return 0;
  const std::size_t below = useStack(bytes - kFrame);
  return below + static_cast<std::size_t>(frame[0]);
}

TEST(Worker, IsWaitedFor) {
  std::atomic<int> done = 0;
  {
    std::vector<Worker> workers;
    for (int i = 0; i < 5; ++i) workers.emplace_back([&done] { ++done; });
  }
  EXPECT_EQ(done, 5);
}

/// Runs in a child process whose main stack may grow to this size.
void workWithMainStack(std::size_t size, const std::function<void()>& work) {
  rlimit limit{};
  getrlimit(RLIMIT_STACK, &limit);
  limit.rlim_cur = size;
  if (setrlimit(RLIMIT_STACK, &limit) != 0) std::_Exit(77);
  { const Worker worker(work); }
  std::_Exit(0);
}

TEST(WorkerDeathTest, HasAStackAsLargeAsTheMainOne) {
  EXPECT_EXIT(workWithMainStack(24 * kMegabyte, [] { useStack(20 * kMegabyte); }),
              ::testing::ExitedWithCode(0), "");
  EXPECT_EXIT(workWithMainStack(RLIM_INFINITY, [] { useStack(6 * kMegabyte); }),
              ::testing::ExitedWithCode(0), "");
}

class CrashingWorkerDeathTest : public errors::ScribeTest {};

TEST_F(CrashingWorkerDeathTest, LeavesAProtocolWhenItsStackOverflows) {
  const auto overflow = [this] {
    const errors::CrashReporting crashes(faults, "see the protocol\n");
    workWithMainStack(kMegabyte, [] {
      const errors::CrashStack stack;
      useStack(std::size_t{1} << 40);
    });
  };
  EXPECT_EXIT(overflow(), ::testing::KilledBySignal(SIGSEGV), "see the protocol");
  EXPECT_NE(folder.read("quillon.ERR").find("Fehler-Nr:\t11 SIGSEGV\r\n"), std::string::npos);
}

}  // namespace
}  // namespace quillon::headless
