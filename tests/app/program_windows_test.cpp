// Windows file names, and the Windows console.
#include <windows.h>

#include "app/program_fixture.h"
#include "convert/summary.h"
#include "files/file_system.h"
#include "files/paths.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;

class WindowsPathTest : public ProgramTest {
 protected:
  /// Converts a drawing given by its full path, and expects its script beside it.
  void expectConverted(const fs::path& drawing) {
    ASSERT_TRUE(files::makeFolders(drawing.parent_path()));
    const std::string text = oneLine().text();
    {
      const files::FileHandle file = files::openFile(drawing, "wb");
      ASSERT_NE(file, nullptr);
      std::fwrite(text.data(), 1, text.size(), file.get());
    }
    const testing::ProgramResult result = run({files::fromPath(drawing), "--name", "A"});
    EXPECT_EQ(result.exitCode, 0) << result.error;
    fs::path script = drawing;
    script.replace_extension(".scr");
    EXPECT_EQ(files::readWholeFile(files::fromPath(script)), lineScript("A"));
    EXPECT_NE(result.error.find("SCRIPT '" + testing::withSlashes(files::fromPath(script)) + "'\n"),
              std::string::npos)
        << result.error;
  }
};

TEST_F(WindowsPathTest, HasADriveAndBackslashes) {
  const fs::path drawing = folder.path() / "in" / "part.dxf";
  ASSERT_EQ(files::fromPath(drawing).substr(1, 2), ":\\");
  expectConverted(drawing);
}

TEST_F(WindowsPathTest, HasSlashesAsWell) {
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"./part.dxf", "-o", "./PART.SCR"}).exitCode, 0);
  EXPECT_TRUE(folder.has("part.scr"));
}

TEST_F(WindowsPathTest, HasUmlautsAndLettersThatNoCodePageHas) {
  expectConverted(folder.path() / L"Gehäuse.dxf");
  expectConverted(folder.path() / L"Ωμέγα 日本.dxf");
}

TEST_F(WindowsPathTest, IsLongerThan260Characters) {
  fs::path drawing = folder.path();
  for (int i = 0; i < 5; ++i) drawing /= std::string(100, static_cast<char>('a' + i));
  expectConverted(drawing / L"Gehäuse.dxf");
  int reason = 0;
  EXPECT_EQ(files::listFolder(drawing, reason).size(), 2U);
  EXPECT_EQ(reason, 0);
  // A folder given by its full path.
  const testing::ProgramResult result = run({files::fromPath(drawing), "--force"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_TRUE(result.error.ends_with("1 of 1 drawings converted\n")) << result.error;
  // The cleanup of the test folder cannot handle such paths.
  for (const fs::path& path : files::listFolder(drawing, reason)) files::removeFile(path);
  for (; drawing != folder.path(); drawing = drawing.parent_path()) {
    EXPECT_NE(RemoveDirectoryW((L"\\\\?\\" + drawing.native()).c_str()), 0);
  }
}

TEST_F(WindowsPathTest, OfADeviceIsWrittenDirectly) {
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"part.dxf", "-o", "NUL", "--report", "NUL"}).exitCode, 0);
  EXPECT_EQ(files(), Strings{"part.dxf"});
}

/// Devices that do not exist where tests run; using them for a drawing, a script or a report gives
/// a message.
TEST_F(WindowsPathTest, OfADeviceThatIsNotThereIsAnError) {
  write("part.dxf", oneLine());
  for (const std::string name : {"PRN", "LPT3", "COM7", "\\\\.\\pipe\\none", "//./pipe/none"}) {
    const std::string shown = testing::withSlashes(name);
    testing::ProgramResult result = run({name});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_NE(result.error.find(shown + " cannot be read: No such file or directory. "),
              std::string::npos)
        << result.error;
    result = run({"part.dxf", "--force", "-o", name});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_NE(result.error.find(shown + " cannot be written: No such file or directory. "),
              std::string::npos)
        << result.error;
    result = run({"part.dxf", "--force", "--report", name});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_NE(result.error.find(shown + " cannot be written: No such file or directory. "),
              std::string::npos)
        << result.error;
  }
}

TEST_F(WindowsPathTest, OfTheConsoleIsTheConsoleOrAnError) {
  write("part.dxf", oneLine());
  const HANDLE console = CreateFileA("CONIN$", GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
  const bool hasConsole = console != INVALID_HANDLE_VALUE;
  if (hasConsole) CloseHandle(console);
  for (const std::string name : {"CON", "con", "\\\\.\\CON", "CONOUT$"}) {
    const std::string shown = testing::withSlashes(name);
    for (const char* const option : {"-o", "--report"}) {
      const testing::ProgramResult result = run({"part.dxf", "--force", option, name});
      EXPECT_EQ(result.exitCode, hasConsole ? 0 : 1) << name;
      EXPECT_NE(result.error.find(hasConsole ? shown : shown + " cannot be written: "),
                std::string::npos)
          << result.error;
    }
    if (hasConsole) continue;  // it would be read
    const testing::ProgramResult result = run({name});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_NE(result.error.find(shown + " cannot be read: "), std::string::npos) << result.error;
  }
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(WindowsPathTest, OfAPipeGetsTheWholeScriptAtOnce) {
  write("part.dxf", oneLine());
  const std::string name = "\\\\.\\pipe\\quillon-" + std::to_string(GetCurrentProcessId());
  // A single instance: merely looking at the pipe would take it from the script.
  const HANDLE pipe = CreateNamedPipeA(name.c_str(), PIPE_ACCESS_INBOUND, PIPE_TYPE_BYTE, 1,
                                       1U << 16, 1U << 16, 0, nullptr);
  ASSERT_NE(pipe, INVALID_HANDLE_VALUE);
  const testing::ProgramResult result = run({"part.dxf", "-o", name, "--name", "A"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  std::string script(4096, '\0');
  DWORD length = 0;
  ReadFile(pipe, script.data(), static_cast<DWORD>(script.size()), &length, nullptr);
  CloseHandle(pipe);
  EXPECT_EQ(script.substr(0, length), lineScript("A"));
}

TEST_F(WindowsPathTest, DiffersFromAnotherNotByCase) {
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"part.dxf", "--report", "PART.DXF", "--force"}).exitCode, 2);
  EXPECT_EQ(run({"part.dxf", "-o", "PART.DXF", "--force"}).exitCode, 1);
  EXPECT_EQ(folder.read("part.dxf"), oneLine().text());
}

TEST_F(WindowsPathTest, OfAScriptThatAnotherProgramHoldsIsAnErrorAndTheScriptStays) {
  write("part.dxf", oneLine());
  const std::string script = folder.write("part.scr", "old");
  const HANDLE held = CreateFileA(script.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  const testing::ProgramResult result = run({"part.dxf", "--force"});
  CloseHandle(held);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("part.scr cannot be written: Permission denied."), std::string::npos)
      << result.error;
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(WindowsPathTest, OfAFolderIsNotAScript) {
  write("part.dxf", oneLine());
  fs::create_directory(folder.path() / "part.scr");
  const testing::ProgramResult result = run({"part.dxf", "--force"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("part.scr cannot be written: Is a directory."), std::string::npos)
      << result.error;
}

TEST_F(WindowsPathTest, IsTheUsersOwnFolderForAProgramAmongTheSystems) {
  fs::create_directories(folder.path() / "programs/quillon");
  fs::copy_file(QUILLON_CONVERT, folder.path() / "programs/quillon/program.exe");
  const std::string frame = "[start]\n# mine\nendblock\n";
  fs::create_directories(folder.path() / "data/Quillon");
  folder.write("data/Quillon/quillon.cfh", frame);
  call.program = folder.file("programs/quillon/program.exe");
  call.environment = {"LANG=C", "APPDATA=" + folder.file("data")};
  const auto usesFrame = [this] {
    return run({"-", "--quiet"}, oneLine().text()).output.find("# mine") != std::string::npos;
  };
  EXPECT_FALSE(usesFrame());
  call.environment.push_back("ProgramFiles=" + folder.file("PROGRAMS"));
  EXPECT_TRUE(usesFrame());
}

TEST_F(WindowsPathTest, WithWildcardsMeansAllMatchingFiles) {
  for (const char* const name : {"b.dxf", "A.DXF", "Gehäuse.dxf", "ab.dxf", "note.txt"}) {
    write(name, oneLine());
  }
  write("c.dxf_old", oneLine());  // its short name ends in .DXF
  fs::create_directory(folder.path() / "in");
  write("in/d.dxf", oneLine());
  testing::ProgramResult result = run({"*.dxf"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_EQ(result.error,
            summaryLines("A.DXF", 1, "A.scr", 11) + summaryLines("ab.dxf", 1, "ab.scr", 11) +
                summaryLines("b.dxf", 1, "b.scr", 11) +
                summaryLines("Gehäuse.dxf", 1, "Gehäuse.scr", 11) + "4 of 4 drawings converted\n");
  result = run({"?.Dxf", "in\\*", "--force"});
  EXPECT_TRUE(result.error.ends_with("3 of 3 drawings converted\n")) << result.error;
  EXPECT_TRUE(folder.has("in/d.scr"));
  // A pattern with one match acts like its name.
  result = run({"a?.dxf", "--force", "--name", "A"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_EQ(folder.read("ab.scr"), lineScript("A"));
}

TEST_F(WindowsPathTest, WithWildcardsThatNothingMatchesIsReportedAsItIs) {
  write("part.dxf", oneLine());
  fs::create_directory(folder.path() / "in");
  for (const std::string pattern : {"*.txt", "no\\*.dxf", "i?\\*.dxf", "??.dxf"}) {
    const testing::ProgramResult result = run({pattern});
    EXPECT_EQ(result.exitCode, 1) << pattern;
    EXPECT_EQ(result.error,
              errorLine(testing::withSlashes(pattern) +
                        " cannot be read: No such file or directory. Please check the "
                        "path and its permissions."))
        << pattern;
  }
}

TEST_F(WindowsPathTest, OfAFolderMayEndInABackslashBeforeAQuote) {
  fs::create_directory(folder.path() / "in");
  fs::create_directory(folder.path() / "out");
  write("in/part.dxf", oneLine());
  // What the program receives for "in\" and "out\" in quotes.
  testing::ProgramResult result =
      run({"in\"", "-o", "out\"", "--report", folder.path().string() + "\\out\""});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_TRUE(folder.has("out/part.scr"));
  EXPECT_TRUE(folder.has("out/part.txt"));
  call.program = QUILLON_PROGRAM;
  result = run({"/x:in\"", "/s:out\"", "/w:o", "/rx"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
}

TEST_F(WindowsPathTest, OfAFolderInQuotesDoesNotTakeWhatFollowsIt) {
  fs::create_directory(folder.path() / "my work");
  fs::create_directory(folder.path() / "my scripts");
  write("my work/part.dxf", oneLine());
  const auto exitCodeOf = [this](const std::string& arguments) {
    std::string line = "\"" + std::string(QUILLON_CONVERT) + "\" " + arguments;
    STARTUPINFOA start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    DWORD code = ~0U;
    const std::string in = folder.path().string();
    if (CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, in.c_str(),
                       &start, &process) == 0) {
      return code;
    }
    WaitForSingleObject(process.hProcess, 60'000);
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hProcess);
    CloseHandle(process.hThread);
    return code;
  };
  EXPECT_EQ(exitCodeOf(R"("my work\" --quiet -o "my scripts\" --name "A \"B\"C")"), 2U);  // a name
  EXPECT_EQ(exitCodeOf(R"("my work\" --quiet -o "my scripts\")"), 0U);
  EXPECT_TRUE(folder.has("my scripts/part.scr"));
  EXPECT_EQ(exitCodeOf(R"("my work\part.dxf" --force --quiet --name "A\"B\"")"), 0U);
  EXPECT_EQ(folder.read("my work/part.scr"), lineScript("A\"B\""));
}

TEST_F(WindowsPathTest, WithoutALimitIsShownAsTheSystemShowsIt) {
  write("part.dxf", oneLine());
  const std::string path = files::fromPath(folder.path());
  const testing::ProgramResult result = run({"\\\\?\\" + path + "\\part.dxf"});
  EXPECT_EQ(result.exitCode, 0) << result.error;
  EXPECT_TRUE(result.error.ends_with("In EAGLE type: SCRIPT '" + testing::withSlashes(path) +
                                     "/part.scr'\n"))
      << result.error;
}

TEST_F(WindowsPathTest, OnAnotherMachineIsShownAsItIs) {
  convert::ConversionResult result;
  result.scriptFile = "\\\\server\\share\\x\\..\\part.scr";
  EXPECT_EQ(convert::scriptArgument(result), "\\\\server\\share\\part.scr");
  result.scriptFile = "\\\\?\\UNC\\server\\share\\part.scr";
  EXPECT_EQ(convert::scriptArgument(result), "\\\\server\\share\\part.scr");
}

TEST(VersionResource, SaysWhoseProgramItIs) {
  for (const char* const program : {QUILLON_CONVERT, QUILLON_PROGRAM}) {
    std::string block(GetFileVersionInfoSizeA(program, nullptr), '\0');
    ASSERT_NE(GetFileVersionInfoA(program, 0, static_cast<DWORD>(block.size()), block.data()), 0);
    void* text = nullptr;
    UINT length = 0;
    ASSERT_NE(
        VerQueryValueA(block.data(), "\\StringFileInfo\\040904B0\\LegalCopyright", &text, &length),
        0)
        << program;
    EXPECT_STREQ(static_cast<const char*>(text), "The Quillon developers");
  }
}

TEST_F(WindowsPathTest, IsTakenFromTheCommandLineWithQuotesAndBlanks) {
  write("a b.dxf", oneLine());
  EXPECT_EQ(run({"a b.dxf", "-o", "c \"d\".scr"}).exitCode, 1);  // file names cannot contain quotes
  EXPECT_EQ(run({"a b.dxf", "-o", "c d\\"}).exitCode, 1);
  EXPECT_EQ(run({"a b.dxf"}).exitCode, 0);
  EXPECT_TRUE(folder.has("a b.scr"));
}

}  // namespace
}  // namespace quillon::headless
