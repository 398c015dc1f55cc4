#include <dlfcn.h>
#include <link.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <stdexcept>
#include <thread>

#include "errors/crash.h"
#include "errors/scribe_fixture.h"

namespace quillon::errors {
namespace {

/// Crashes happen in a child process.
class CrashDeathTest : public ScribeTest {
 protected:
  void crash(const std::function<void()>& how) {
    const CrashReporting crashes(faults, "see the protocol\n");
    faults.SetProgInfo("Quillon Version 1.0.0");
    const Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
    how();
  }
};

TEST_F(CrashDeathTest, WritesTheProtocolAndEndsAsTheSignalDoes) {
  EXPECT_EXIT(crash([] { std::raise(SIGSEGV); }), ::testing::KilledBySignal(SIGSEGV),
              "see the protocol");
  const std::string protocol = folder.read("quillon.ERR");
  EXPECT_NE(protocol.find("Fehler-Nr:\t11 SIGSEGV\r\n"), std::string::npos) << protocol;
  EXPECT_NE(protocol.find("Modul:\tfrmDXF\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("Prozedur:\tbefStart_Click\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("CALLSTACK:\r\n          frmDXF.befStart_Click\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("Fehlermeldung\r\nQuillon Version 1.0.0\r\n"), std::string::npos);
  EXPECT_NE(protocol.find("SYSTEMINFO:"), std::string::npos);
}

TEST_F(CrashDeathTest, ReportsAnOverflowOfTheStack) {
  EXPECT_EXIT(crash([] { useUpTheStack(); }), ::testing::KilledBySignal(SIGSEGV),
              "see the protocol");
  EXPECT_NE(folder.read("quillon.ERR").find("11 SIGSEGV"), std::string::npos);
}

TEST_F(CrashDeathTest, ReportsAnOverflowOfAnotherThreadsStack) {
  const auto inThread = [] {
    std::thread([] {
      const CrashStack stack;
      useUpTheStack();
    }).join();
  };
  EXPECT_EXIT(crash(inThread), ::testing::KilledBySignal(SIGSEGV), "see the protocol");
  EXPECT_NE(folder.read("quillon.ERR").find("11 SIGSEGV"), std::string::npos);
}

TEST_F(CrashDeathTest, ReplacesTheProtocolThatIsThere) {
  folder.write("quillon.ERR", std::string(100000, '~'));
  EXPECT_EXIT(crash([] { std::raise(SIGFPE); }), ::testing::KilledBySignal(SIGFPE), "");
  EXPECT_EQ(folder.read("quillon.ERR").find('~'), std::string::npos);
}

TEST_F(CrashDeathTest, ReportsAnExceptionThatNobodyTraps) {
  const std::function<void()> fail = [] { throw std::runtime_error("nobody traps this"); };
  const auto leak = [&fail]() noexcept { fail(); };
  EXPECT_EXIT(crash(leak), ::testing::KilledBySignal(SIGABRT), "see the protocol");
  EXPECT_NE(folder.read("quillon.ERR").find("6 SIGABRT"), std::string::npos);
}

TEST_F(CrashDeathTest, GoesToStandardErrorWhereNoFileCanBeWritten) {
  FaultScribe lost({"Quillon", "/dev/null/none", "quillon", ""}, language, view);
  EXPECT_EXIT(
      {
        const CrashReporting crashes(lost, "");
        std::raise(SIGILL);
      },
      ::testing::KilledBySignal(SIGILL), "F E H L E R P R O T O K O L L");
}

TEST_F(CrashDeathTest, BelongsToTheSystemAgainAfterwards) {
  EXPECT_EXIT(
      {
        { const CrashReporting crashes(faults, "see the protocol\n"); }
        std::raise(SIGSEGV);
      },
      ::testing::KilledBySignal(SIGSEGV), "");
  EXPECT_FALSE(folder.has("quillon.ERR"));
}

#ifdef __GLIBC__

/// Where a function lies in the test's own file.
template <typename Result, typename... Arguments>
std::uint64_t offsetOf(Result (*function)(Arguments...)) {
  void* const address = reinterpret_cast<void*>(function);
  Dl_info info = {};
  void* map = nullptr;
  dladdr1(address, &info, &map, RTLD_DL_LINKMAP);
  return reinterpret_cast<std::uintptr_t>(address) - static_cast<const link_map*>(map)->l_addr;
}

[[gnu::noinline]] void breakDown() {
  std::raise(SIGSEGV);
  std::raise(SIGSEGV);  // so that the first is no jump
}

[[gnu::noinline]] void throwInjected() { throw std::runtime_error("nobody traps this"); }

class BacktraceDeathTest : public CrashDeathTest {
 protected:
  /// What the protocol says of the calls, without the heading.
  std::vector<std::string> frames() const {
    const std::string protocol = folder.read("quillon.ERR");
    const std::string separator(70, '-');
    const std::string heading = separator + "\r\nBACKTRACE:\r\n";
    std::size_t at = protocol.find(heading);
    EXPECT_NE(at, std::string::npos) << protocol;
    if (at == std::string::npos) return {};
    EXPECT_TRUE(protocol.ends_with(separator + "\r\n")) << protocol;
    std::vector<std::string> lines;
    for (at += heading.size(); protocol.compare(at, separator.size(), separator) != 0;) {
      const std::size_t end = protocol.find("\r\n", at);
      lines.push_back(protocol.substr(at, end - at));
      at = end + 2;
    }
    return lines;
  }
  /// How many of the calls came from the first bytes of a place in this program.
  int framesIn(std::uint64_t function, std::uint64_t longest = 512) const {
    const std::string module = "test_errors+0x";
    int count = 0;
    for (const std::string& line : frames()) {
      const std::size_t at = line.find(module);
      if (at == std::string::npos) continue;
      const std::uint64_t offset = std::stoull(line.substr(at + module.size()), nullptr, 16);
      if (offset > function && offset < function + longest) ++count;
    }
    return count;
  }
};

TEST_F(BacktraceDeathTest, TellsTheCallsThatLedToTheCrash) {
  EXPECT_EXIT(crash(breakDown), ::testing::KilledBySignal(SIGSEGV), "see the protocol");
  EXPECT_EQ(framesIn(offsetOf(breakDown)), 1);
  for (const std::string& line : frames()) EXPECT_TRUE(line.starts_with("          ")) << line;
}

TEST_F(BacktraceDeathTest, TellsTheLastCallsWhereTheStackIsUsedUp) {
  EXPECT_EXIT(crash([] { useUpTheStack(); }), ::testing::KilledBySignal(SIGSEGV), "");
  // Sanitizers add much to the function.
  EXPECT_GT(framesIn(offsetOf(useUpTheStack), 4096), 32);
  EXPECT_LE(frames().size(), 64U);
}

TEST_F(BacktraceDeathTest, TellsWhereAnExceptionWasThrownThatNobodyTraps) {
  // In a thread, as clang unwinds the stack up to a function that lets no exception pass.
  EXPECT_EXIT(crash([] { std::thread(throwInjected).join(); }), ::testing::KilledBySignal(SIGABRT),
              "");
  EXPECT_EQ(framesIn(offsetOf(throwInjected)), 1);
}

TEST_F(BacktraceDeathTest, GoesToStandardErrorWhereNoFileCanBeWritten) {
  FaultScribe lost({"Quillon", "/dev/null/none", "quillon", ""}, language, view);
  EXPECT_EXIT(
      {
        const CrashReporting crashes(lost, "");
        breakDown();
      },
      ::testing::KilledBySignal(SIGSEGV), "SYSTEMINFO(.|\n|\r)*BACKTRACE");
}

#endif

}  // namespace
}  // namespace quillon::errors
