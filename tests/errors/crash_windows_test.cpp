#include <windows.h>

#include <csignal>
#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "errors/crash.h"
#include "errors/scribe_fixture.h"

namespace quillon::errors {
namespace {

constexpr const char* kFolderVariable = "QUILLON_CRASH_FOLDER";

/// Crashes happen in a child process, which begins the test anew: a variable tells it the folder.
class CrashDeathTest : public ::testing::Test {
 protected:
  ~CrashDeathTest() override {
    if (owned_ != nullptr) _putenv_s(kFolderVariable, "");
  }

  template <typename How>
  void crash(const How& how) {
    const CrashReporting crashes(faults, "see the protocol\n");
    faults.SetProgInfo("Quillon Version 1.0.0");
    const Procedure running(faults.callStack(), "frmDXF", "befStart_Click");
    how();
  }
  std::string protocol() const { return owned_->read("quillon.ERR"); }

  static std::unique_ptr<testing::TempFolder> ownFolder() {
    if (std::getenv(kFolderVariable) != nullptr) return nullptr;
    auto own = std::make_unique<testing::TempFolder>();
    _putenv_s(kFolderVariable, own->path().string().c_str());
    return own;
  }

  std::unique_ptr<testing::TempFolder> owned_ = ownFolder();  // none in the child
  int language = texts::kEnglish;
  ScriptedView view;
  FaultScribe faults{{"Quillon", std::getenv(kFolderVariable), "quillon", ""}, language, view};
};

void breakDown() {
  RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
}

const ::testing::ExitedWithCode kBrokeDown(static_cast<int>(EXCEPTION_ACCESS_VIOLATION));

TEST_F(CrashDeathTest, WritesTheProtocolAndEndsAsTheExceptionDoes) {
  EXPECT_EXIT(crash(breakDown), kBrokeDown, "see the protocol");
  EXPECT_NE(protocol().find("Fehler-Nr:\t3221225477 EXCEPTION\r\n"), std::string::npos)
      << protocol();
  EXPECT_NE(protocol().find("Modul:\tfrmDXF\r\n"), std::string::npos);
  EXPECT_NE(protocol().find("CALLSTACK:\r\n          frmDXF.befStart_Click\r\n"),
            std::string::npos);
}

const ::testing::ExitedWithCode kUsedUp(static_cast<int>(EXCEPTION_STACK_OVERFLOW));

TEST_F(CrashDeathTest, ReportsAnOverflowOfTheStack) {
  EXPECT_EXIT(crash([] { useUpTheStack(); }), kUsedUp, "see the protocol");
  EXPECT_NE(protocol().find("3221225725 EXCEPTION"), std::string::npos) << protocol();
}

TEST_F(CrashDeathTest, ReportsAnOverflowOfAnotherThreadsStack) {
  const auto inThread = [] {
    std::thread([] {
      const CrashStack stack;
      useUpTheStack();
    }).join();
  };
  EXPECT_EXIT(crash(inThread), kUsedUp, "see the protocol");
  EXPECT_NE(protocol().find("3221225725 EXCEPTION"), std::string::npos) << protocol();
}

TEST_F(CrashDeathTest, ReplacesTheProtocolThatIsThere) {
  if (owned_ != nullptr) owned_->write("quillon.ERR", std::string(100000, '~'));
  EXPECT_EXIT(crash(breakDown), kBrokeDown, "");
  EXPECT_EQ(protocol().find('~'), std::string::npos);
}

TEST_F(CrashDeathTest, ReportsAnExceptionThatNobodyTraps) {
  const auto leak = []() noexcept {
    const std::function<void()> fail = [] { throw std::runtime_error("nobody traps this"); };
    fail();
  };
  EXPECT_EXIT(crash(leak), ::testing::ExitedWithCode(3), "see the protocol");
  EXPECT_NE(protocol().find("22 SIGABRT"), std::string::npos) << protocol();
}

TEST_F(CrashDeathTest, GoesToStandardErrorWhereNoFileCanBeWritten) {
  FaultScribe lost({"Quillon", "/no/such/folder", "quillon", ""}, language, view);
  EXPECT_EXIT(
      {
        const CrashReporting crashes(lost, "");
        breakDown();
      },
      kBrokeDown, "F E H L E R P R O T O K O L L");
}

TEST_F(CrashDeathTest, BelongsToTheSystemAgainAfterwards) {
  EXPECT_EXIT(
      {
        { const CrashReporting crashes(faults, "see the protocol\n"); }
        breakDown();
      },
      kBrokeDown, "");
  EXPECT_TRUE(owned_ == nullptr || !owned_->has("quillon.ERR"));
}

/// How many calls in a protocol came from the first bytes of a function of this program.
int framesIn(const std::string& protocol, const void* function) {
  constexpr std::uintptr_t kLongest = 512;
  const std::string module = "test_errors.exe+0x";
  const auto start = reinterpret_cast<std::uintptr_t>(function) -
                     reinterpret_cast<std::uintptr_t>(GetModuleHandleW(nullptr));
  int count = 0;
  std::size_t at = protocol.find("\r\nBACKTRACE:\r\n");
  while ((at = protocol.find(module, at)) != std::string::npos) {
    at += module.size();
    const std::uintptr_t offset = std::stoull(protocol.substr(at), nullptr, 16);
    if (offset > start && offset < start + kLongest) ++count;
  }
  return count;
}

TEST_F(CrashDeathTest, TellsTheCallsThatLedToTheCrash) {
  EXPECT_EXIT(crash(breakDown), kBrokeDown, "see the protocol");
  EXPECT_EQ(framesIn(protocol(), reinterpret_cast<const void*>(breakDown)), 1) << protocol();
}

TEST_F(CrashDeathTest, TellsTheLastCallsWhereTheStackIsUsedUp) {
  EXPECT_EXIT(crash([] { useUpTheStack(); }), kUsedUp, "see the protocol");
  EXPECT_GT(framesIn(protocol(), reinterpret_cast<const void*>(useUpTheStack)), 32) << protocol();
}

}  // namespace
}  // namespace quillon::errors
