#include <gtest/gtest.h>
#include <windows.h>

#include <cerrno>

#include "convert/output_file.h"
#include "convert/temporary_file.h"
#include "support/temp_folder.h"

namespace quillon::convert {
namespace {

namespace fs = std::filesystem;

class TemporaryFileTest : public ::testing::Test {
 protected:
  /// The number of a process that has ended.
  static DWORD endedProcess() {
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    std::wstring line = L"cmd.exe /c exit";
    if (CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, CREATE_NO_WINDOW, nullptr,
                       nullptr, &start, &process) == 0) {
      throw std::runtime_error("no process");
    }
    WaitForSingleObject(process.hProcess, INFINITE);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return process.dwProcessId;
  }
  /// What a writer leaves that is killed, or would leave.
  std::string leftBy(DWORD process) const {
    return ".quillon-" + std::to_string(process) + "-17-1.tmp";
  }

  testing::TempFolder folder;
};

TEST_F(TemporaryFileTest, OfAnEndedWriterIsCleared) {
  folder.write(leftBy(endedProcess()), "half of it");
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 0U);
}

TEST_F(TemporaryFileTest, OfALivingWriterStays) {
  OutputFile file(folder.path() / "a.scr");
  file.write("new");
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 1U);
  file.commit();
  EXPECT_EQ(folder.read("a.scr"), "new");
  EXPECT_EQ(folder.entries(), 1U);
}

TEST_F(TemporaryFileTest, StaysBetweenItsEndAndItsNewName) {
  std::optional<TemporaryFile> made = makeTemporaryFile(folder.path());
  ASSERT_TRUE(made);
  made->file.reset();
  clearAbandonedFiles(folder.path());
  EXPECT_TRUE(fs::exists(made->path));
}

TEST_F(TemporaryFileTest, CannotBeMadeInAMissingFolder) {
  errno = 0;
  EXPECT_FALSE(makeTemporaryFile(folder.path() / "none"));
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(TemporaryFileTest, AloneIsCleared) {
  const std::string ended = leftBy(endedProcess());
  folder.write("a.scr", "");
  folder.write(".quillon-notes.tmp", "");
  folder.write(ended + ".txt", "");
  fs::create_directory(folder.path() / ended);
  clearAbandonedFiles(folder.path());
  EXPECT_EQ(folder.entries(), 4U);
  clearAbandonedFiles(folder.path() / "none");
}

TEST_F(TemporaryFileTest, OfAKilledConversionIsClearedWhenSettingsAreSaved) {
  folder.write(leftBy(endedProcess()), "half of it");
  replaceFile(folder.path() / "a.ini", "text");
  EXPECT_EQ(folder.entries(), 1U);
}

}  // namespace
}  // namespace quillon::convert
