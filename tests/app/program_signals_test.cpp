// Programs terminated from outside at any time.
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>

#include "app/program_fixture.h"
#include "convert/script_frame.h"
#include "support/script_grammar.h"

namespace quillon::headless {
namespace {

using std::chrono::microseconds;
using Clock = std::chrono::steady_clock;
using testing::ProgramResult;
using testing::RunningProgram;
using testing::waitUntil;

class SignalTest : public ProgramTest {
 protected:
  Strings temporaryFiles() const {
    Strings found;
    for (const std::string& file : files()) {
      if (file.ends_with(".tmp")) found.push_back(file);
    }
    return found;
  }
  RunningProgram start(Strings arguments) {
    call.arguments = std::move(arguments);
    return RunningProgram(call);
  }

  /// A drawing with tables, blocks and entities that each take some time.
  static testing::DxfBuilder manyParts() {
    testing::DxfBuilder dxf;
    for (int i = 0; i < 2000; ++i) dxf.layer("LAYER" + std::to_string(i));
    for (int i = 0; i < 200; ++i) {
      dxf.beginBlock("B" + std::to_string(i));
      for (int j = 0; j < 20; ++j) {
        dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
      }
      dxf.endBlock();
    }
    for (int i = 0; i < 1500; ++i) {
      dxf.entity("INSERT", {{8, "0"}, {2, "B" + std::to_string(i % 200)}, {10, "1"}, {20, "1"}});
    }
    return dxf;
  }

  static std::string faultOf(const std::string& script) {
    const auto frame = convert::parseFrame(convert::defaultFrameText());
    return testing::checkScript(script, {true, frame.startBlock, frame.endBlock}).fault;
  }

  /// Sends a signal at many times between the program's start and its end, in an order that covers
  /// the range evenly wherever it stops, as a loaded machine gets through fewer of them. Each time
  /// the script must be complete.
  void endAtEveryTime(int signal, const std::function<void(const ProgramResult&)>& check) {
    write("part.dxf", manyParts());
    const auto begin = Clock::now();
    ASSERT_EQ(run({"part.dxf", "-o", "whole.scr", "--name", "part"}).exitCode, 0);
    const auto time = std::chrono::duration_cast<microseconds>(Clock::now() - begin);
    const std::string whole = folder.read("whole.scr");
    constexpr int kFewest = 8;
    constexpr int kMost = 24;
    constexpr auto kLongest = std::chrono::seconds(4);
    for (int i = 0; i < kMost && (i < kFewest || Clock::now() - begin < kLongest); ++i) {
      folder.write("part.scr", "old");
      RunningProgram program = start({"part.dxf", "--force"});
      constexpr double kGoldenRatio = 0.6180339887498949;
      const double part = std::fmod(i * kGoldenRatio, 1.0);
      std::this_thread::sleep_for(time * part * 1.2);
      program.signal(signal);
      const ProgramResult result = program.finish();
      const std::string script = folder.read("part.scr");
      EXPECT_TRUE(script == "old" || script == whole || faultOf(script).empty())
          << i << ": " << faultOf(script);
      check(result);
    }
  }
};

TEST_F(SignalTest, AKilledRunLeavesAWholeScriptAndTheNextRunClearsUp) {
  endAtEveryTime(SIGKILL, [](const ProgramResult& result) {
    EXPECT_TRUE(result.exitCode == -SIGKILL || result.exitCode == 0) << result.exitCode;
  });
  EXPECT_EQ(run({"part.dxf", "--force"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr", "whole.scr"}));
  EXPECT_EQ(folder.read("part.scr"), folder.read("whole.scr"));
}

TEST_F(SignalTest, AnInterruptLeavesAWholeScriptAndNothingElse) {
  endAtEveryTime(SIGINT, [this](const ProgramResult& result) {
    // Until the program has installed its handler, the signal kills it.
    EXPECT_TRUE(result.exitCode == 130 || result.exitCode == 0 || result.exitCode == -SIGINT);
    EXPECT_EQ(temporaryFiles(), Strings{});
  });
}

TEST_F(SignalTest, AWishToEndLeavesAWholeScriptAndNothingElse) {
  endAtEveryTime(SIGTERM, [this](const ProgramResult& result) {
    EXPECT_TRUE(result.exitCode == 130 || result.exitCode == 0 || result.exitCode == -SIGTERM);
    EXPECT_EQ(temporaryFiles(), Strings{});
  });
}

class EndlessTest : public SignalTest {
 protected:
  EndlessTest() { write("part.dxf", endless()); }

  void waitForWriting() const {
    ASSERT_TRUE(waitUntil([this] { return !temporaryFiles().empty(); }));
  }
  /// Waits until the program has locked its file: before that, the file may be taken for abandoned
  /// and is then created again under another name.
  void waitForLock() const {
    ASSERT_TRUE(waitUntil([this] {
      const Strings found = temporaryFiles();
      return !found.empty() && isLocked(folder.file(found.front()));
    }));
  }

 private:
  static bool isLocked(const std::string& path) {
    const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    const bool locked = file >= 0 && flock(file, LOCK_SH | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    if (file >= 0) close(file);
    return locked;
  }
};

TEST_F(EndlessTest, TheSystemsWishToEndCancelsAsCtrlCDoes) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    RunningProgram program = start({"part.dxf", "--force"});
    waitForWriting();
    program.signal(signal);
    const ProgramResult result = program.finish();
    EXPECT_EQ(result.exitCode, 130);
    EXPECT_TRUE(
        result.error.starts_with("quillon-convert: warning: part.dxf: Interrupt by user in line "))
        << result.error;
    EXPECT_EQ(folder.read("part.scr"), "Write;\r\nEdit 'part.brd';\r\n" + framed(""));
    EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
  }
}

TEST_F(EndlessTest, WhatAKilledRunLeavesIsClearedByAnyNextRunInTheFolder) {
  RunningProgram program = start({"part.dxf", "--force"});
  waitForWriting();
  program.signal(SIGKILL);
  EXPECT_EQ(program.finish().exitCode, -SIGKILL);
  ASSERT_EQ(temporaryFiles().size(), 1U);
  write("other.dxf", oneLine());
  EXPECT_EQ(run({"other.dxf"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"other.dxf", "other.scr", "part.dxf"}));
}

TEST_F(EndlessTest, WhatALivingRunWritesIsNeverCleared) {
  RunningProgram program = start({"part.dxf", "--force"});
  waitForLock();
  const Strings writing = temporaryFiles();
  write("other.dxf", oneLine());
  EXPECT_EQ(run({"other.dxf"}).exitCode, 0);
  EXPECT_EQ(temporaryFiles(), writing);
  program.signal(SIGTERM);
  EXPECT_EQ(program.finish().exitCode, 130);
  EXPECT_EQ(files(), (Strings{"other.dxf", "other.scr", "part.dxf", "part.scr"}));
}

TEST_F(EndlessTest, AnUnattendedRunClearsUpToo) {
  RunningProgram program = start({"part.dxf", "--force"});
  waitForWriting();
  program.signal(SIGKILL);
  EXPECT_EQ(program.finish().exitCode, -SIGKILL);
  std::filesystem::create_directory(folder.path() / "program");
  call.program = folder.file("program/quillon");
  std::filesystem::copy_file(QUILLON_PROGRAM, call.program);
  folder.write("program/larkspur.ini", "[global]\nlanguage=10000\n[dxf]\nreport=0\n");
  write("other.dxf", oneLine());
  EXPECT_EQ(run({"/x:other.dxf", "/s:other.scr", "/ru"}).exitCode, 0);
  EXPECT_TRUE(folder.has("other.scr"));
  EXPECT_EQ(temporaryFiles(), Strings{});
}

}  // namespace
}  // namespace quillon::headless
