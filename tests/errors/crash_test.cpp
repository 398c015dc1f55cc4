#include "errors/crash.h"

#include <csignal>
#include <exception>
#include <stdexcept>

#include "errors/crash_protocol.h"
#include "errors/scribe_fixture.h"

namespace quillon::errors {
namespace {

/// Crashes happen in a child process.
class CrashTest : public ScribeTest {
 protected:
  void crash(const std::function<void()>& how) {
    const CrashReporting crashes(faults, "see the protocol\n");
    faults.SetProgInfo("Quillon Version 1.0.0");
    const Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
    how();
  }
};
using CrashDeathTest = CrashTest;

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

TEST_F(CrashTest, ProtocolHasDateAndTimeOfTheCrash) {
  ::setenv("TZ", "UTC0", 1);
  ::tzset();
  const CrashProtocol protocol(faults, "");
  FixedSink sink;
  protocol.write("SIGBUS", 7, 1795274433, sink);
  EXPECT_NE(sink.text().find("Datum/Uhrzeit:\t2026-11-21 / 15:20:33\r\n"), std::string_view::npos)
      << sink.text();
  EXPECT_NE(sink.text().find("Zeilen-Nr.:\t0\r\n"), std::string_view::npos);
}

TEST(FixedText, PadsNumbersAndCutsWhatIsTooLong) {
  EXPECT_EQ(FixedText().number(7, 2).text(":").number(1234567890123U).view(), "07:1234567890123");
  EXPECT_EQ(FixedText().text(std::string(100, 'x')).view(), std::string(64, 'x'));
}

TEST(FixedSink, CutsWhatIsTooLong) {
  FixedSink sink;
  for (int i = 0; i < 1000; ++i) sink.append(std::string(100, 'x'));
  EXPECT_EQ(sink.text().size(), 32768U);
}

}  // namespace
}  // namespace quillon::errors
