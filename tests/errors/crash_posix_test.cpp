#include <csignal>
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

}  // namespace
}  // namespace quillon::errors
