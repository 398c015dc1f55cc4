// Full disks, inputs that are not drawings, and outputs that are not plain files.
#include <sys/stat.h>

#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;
using testing::RunningProgram;

class FaultTest : public ProgramTest {
 protected:
  /// Maximum file size; a coverage build writes up to 100 KiB of its own.
  static constexpr std::uint64_t kRoom = std::uint64_t{200} << 10;

  /// A drawing with a script larger than kRoom.
  static testing::DxfBuilder large() {
    testing::DxfBuilder dxf;
    for (int i = 0; i < 5000; ++i) {
      dxf.entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "2"}});
    }
    return dxf;
  }

  /// Runs the program with a 64 KiB disk "full" that holds an old script and report, then returns
  /// its exit code, the files on the disk, and the contents of both. Nothing where this system does
  /// not allow mounting.
  std::optional<ProgramResult> runOnFullDisk(const Strings& arguments) {
    return runWithMounts("\"$@\"; echo \"exit $?\"; ls -A full; cat full/part.scr full/part.txt\n",
                         arguments);
  }
  /// The same with shell commands that get the program and its arguments.
  std::optional<ProgramResult> runWithMounts(const std::string& commands,
                                             const Strings& arguments) {
    fs::create_directory(folder.path() / "full");
    const std::string script =
        "mount -t tmpfs -o size=64k quillon full || exit 77\n"
        "printf old > full/part.scr; printf old > full/part.txt; printf old > full/part.lay\n" +
        commands;
    return runMounted(script, arguments);
  }

  /// Runs a shell script, with the program and its arguments as "$@", where it may mount; the
  /// script returns the program's exit code.
  std::optional<ProgramResult> runMounted(const std::string& script, const Strings& arguments) {
    testing::ProgramCall shell = call;
    shell.program = "/usr/bin/env";
    shell.environment.emplace_back("PATH=/usr/sbin:/usr/bin:/sbin:/bin");
    shell.arguments = {"unshare", "--user", "--map-root-user", "--mount", "sh", "-c",
                       script,    "sh",     QUILLON_CONVERT};
    shell.arguments.insert(shell.arguments.end(), arguments.begin(), arguments.end());
    ProgramResult result = testing::runProgram(shell);
    if (result.output.find("exit ") == std::string::npos) return std::nullopt;
    return result;
  }

  void expectRefusal(const std::string& name, const std::string& text) {
    folder.write("old.scr", "old");
    const ProgramResult result = run({name, "-o", "old.scr", "--force"});
    EXPECT_EQ(result.exitCode, 1) << name;
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(result.error, errorLine(text));
    EXPECT_EQ(folder.read("old.scr"), "old");
    for (const std::string& file : files()) EXPECT_FALSE(file.ends_with(".tmp")) << file;
  }
};

constexpr const char* kFullDisk =
    " cannot be written: No space left on device. Please check the path, its permissions and the "
    "free space.";

TEST_F(FaultTest, ADiskThatGetsFullLeavesTheOldScript) {
  write("part.dxf", large());
  const auto result = runOnFullDisk({"part.dxf", "-o", "full/part.scr", "--force"});
  if (!result) GTEST_SKIP() << "nothing can be mounted here";
  EXPECT_EQ(result->output, "exit 1\npart.lay\npart.scr\npart.txt\noldold");
  EXPECT_EQ(result->error, errorLine(std::string("full/part.scr") + kFullDisk));
}

TEST_F(FaultTest, ADiskThatGetsFullLeavesTheOldReport) {
  // The report lists every layer.
  testing::DxfBuilder dxf = oneLine();
  for (int i = 0; i < 2000; ++i) {
    const std::string name = "A LAYER WITH A RATHER LONG NAME " + std::to_string(i);
    dxf.layer(name).entity("POINT", {{8, name}, {10, "1"}, {20, "1"}});
  }
  write("part.dxf", dxf);
  const auto result =
      runOnFullDisk({"part.dxf", "-o", "part.scr", "--report", "full/part.txt", "--force"});
  if (!result) GTEST_SKIP() << "nothing can be mounted here";
  EXPECT_EQ(result->output, "exit 1\npart.lay\npart.scr\npart.txt\noldold");
  EXPECT_TRUE(result->error.starts_with(errorLine(std::string("full/part.txt") + kFullDisk)))
      << result->error;
  EXPECT_TRUE(folder.read("part.scr").ends_with("Window Fit;\r\n"));
}

TEST_F(FaultTest, ADiskThatGetsFullLeavesAScriptWhoseFolderTakesNoFile) {
  write("part.dxf", large());
  fs::create_directory(folder.path() / "closed");
  folder.write("closed/part.scr", "");
  const auto result = runWithMounts(
      "mount --bind closed closed && mount --bind full/part.scr closed/part.scr &&\n"
      "mount -o remount,bind,ro closed || exit 77\n"
      "\"$@\"; echo \"exit $?\"; ls -A closed; cat closed/part.scr\n",
      {"part.dxf", "-o", "closed/part.scr", "--force"});
  if (!result) GTEST_SKIP() << "nothing can be mounted here";
  EXPECT_EQ(result->output, "exit 1\npart.scr\nold");
  EXPECT_EQ(result->error, errorLine(std::string("closed/part.scr") + kFullDisk));
}

TEST_F(FaultTest, AnErrorInTheDrawingLeavesAScriptWhoseFolderTakesNoFile) {
  folder.write("part.dxf", "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nA\n");
  fs::create_directory(folder.path() / "closed");
  folder.write("closed/part.scr", "old");
  fs::permissions(folder.path() / "closed/part.scr", fs::perms(0666));
  fs::permissions(folder.path() / "closed", fs::perms(0555));
  fs::copy_file(QUILLON_CONVERT, folder.path() / "program");
  call.program = folder.file("program");
  call.unprivileged = true;
  const ProgramResult result = run({"part.dxf", "-o", "closed/part.scr", "--force"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_NE(result.error.find("part.dxf"), std::string::npos) << result.error;
  EXPECT_EQ(folder.read("closed/part.scr"), "old");
  write("part.dxf", oneLine());
  EXPECT_EQ(run({"part.dxf", "-o", "closed/part.scr", "--force"}).exitCode, 0);
  EXPECT_EQ(folder.read("closed/part.scr"), lineScript("part"));
  EXPECT_EQ(files(), (Strings{"closed", "closed/part.scr", "part.dxf", "program"}));
  fs::permissions(folder.path() / "closed", fs::perms(0755));
}

TEST_F(FaultTest, AScriptOnAFileSystemThatIsReadOnlyIsRefused) {
  write("part.dxf", oneLine());
  fs::create_directory(folder.path() / "fixed");
  const std::optional<ProgramResult> result = runMounted(
      "mount -t tmpfs -o ro quillon fixed || exit 77\n\"$@\"; echo \"exit $?\"; ls -A fixed\n",
      {"part.dxf", "-o", "fixed/part.scr"});
  if (!result) GTEST_SKIP() << "nothing can be mounted here";
  EXPECT_EQ(result->output, "exit 1\n");
  EXPECT_EQ(result->error,
            errorLine("fixed/part.scr cannot be written: Read-only file system. Please check the "
                      "path, its permissions and the free space."));
}

TEST_F(FaultTest, AFileThatCannotGrowLeavesTheOldScript) {
  write("part.dxf", large());
  folder.write("part.scr", "old");
  call.largestFile = kRoom;
  const ProgramResult result = run({"part.dxf", "--force"});
  EXPECT_EQ(result.exitCode, 1);
  // A build that counts its lines cannot write the counts either, and says so afterwards.
  EXPECT_TRUE(result.error.starts_with(
      errorLine("part.scr cannot be written: File too large. Please check the path, its "
                "permissions and the free space.")))
      << result.error;
  EXPECT_EQ(folder.read("part.scr"), "old");
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(FaultTest, APipeWithoutAReaderIsAnError) {
  write("part.dxf", large());
  int ends[2];
  ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
  close(ends[0]);
  call.outputStream = ends[1];
  const ProgramResult result = run({"part.dxf", "-o", "-"});
  close(ends[1]);
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.starts_with("quillon-convert: error: - cannot be written: Broken pipe"))
      << result.error;
}

TEST_F(FaultTest, AScriptThatMayNotBeWrittenStays) {
  write("part.dxf", oneLine());
  folder.write("old.scr", "old");
  fs::permissions(folder.path() / "old.scr", fs::perms(0444));
  dropRights();
  expectResult(run({"part.dxf", "-o", "old.scr", "--force"}), 1, "",
               errorLine("old.scr cannot be written: Permission denied. Please check the path, its "
                         "permissions and the free space."));
  EXPECT_EQ(folder.read("old.scr"), "old");
  EXPECT_EQ(files(), (Strings{"old.scr", "part.dxf", "program"}));
}

TEST_F(FaultTest, AScriptThatIsALinkStaysOneAndItsTargetIsReplaced) {
  write("part.dxf", oneLine());
  folder.write("real.scr", "old");
  fs::create_symlink("real.scr", folder.path() / "part.scr");
  EXPECT_EQ(run({"part.dxf", "--force"}).exitCode, 0);
  EXPECT_TRUE(fs::is_symlink(folder.path() / "part.scr"));
  EXPECT_EQ(folder.read("real.scr"), lineScript("part"));
}

TEST_F(FaultTest, AScriptOrReportThatIsALinkNeedsForceWhereverItLeads) {
  write("part.dxf", oneLine());
  for (const char* const target : {"none.scr", "/dev/null"}) {
    fs::remove(folder.path() / "part.scr");
    fs::create_symlink(target, folder.path() / "part.scr");
    expectResult(run({"part.dxf"}), 1, "",
                 errorLine("part.scr exists already. Use --force to replace it."));
    expectResult(run({"part.dxf", "-o", "other.scr", "--report", "part.scr"}), 1, "",
                 errorLine("The report part.scr exists already. Use --force to replace it."));
  }
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
  EXPECT_EQ(run({"part.dxf", "--force"}).exitCode, 0);
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr"}));
}

TEST_F(FaultTest, ALinkOfSomebodyElseInASharedFolderIsNotFollowed) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make links of other users";
  write("part.dxf", oneLine());
  folder.write("mine", "mine");
  fs::create_directory(folder.path() / "shared");
  fs::permissions(folder.path() / "shared", fs::perms::all | fs::perms::sticky_bit);
  fs::create_symlink(folder.path() / "mine", folder.path() / "shared/a");
  ASSERT_EQ(lchown(folder.file("shared/a").c_str(), testing::kNobody, testing::kNobody), 0);
  const std::string denied = errorLine(
      "shared/a cannot be written: Permission denied. Please check the path, its permissions and "
      "the free space.");
  expectResult(run({"part.dxf", "-o", "shared/a", "--force"}), 1, "", denied);
  EXPECT_TRUE(run({"part.dxf", "--report", "shared/a", "--force"}).error.starts_with(denied));
  EXPECT_EQ(folder.read("mine"), "mine");
}

TEST_F(FaultTest, AHardLinkToTheDrawingIsTheDrawing) {
  write("part.dxf", oneLine());
  fs::create_hard_link(folder.path() / "part.dxf", folder.path() / "part.scr");
  expectResult(run({"part.dxf", "--force"}), 1, "",
               errorLine("part.scr is the drawing itself. Please choose another script file."));
  EXPECT_EQ(folder.read("part.dxf"), oneLine().text());
}

TEST_F(FaultTest, InputsThatAreNotDrawingsAreRefused) {
  folder.write("empty.dxf", "");
  expectRefusal("empty.dxf", "empty.dxf is empty. Please export the drawing again.");
  expectRefusal("/dev/null", "/dev/null is empty. Please export the drawing again.");
  const std::string noText =
      " is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF file.";
  expectRefusal("/dev/zero", "/dev/zero" + noText);
  using std::string_literals::operator""s;
  folder.write("packed.dxf", "\x1F\x8B\x08\x00\x00\x00\x00\x00\x00\x03packed"s);
  expectRefusal("packed.dxf", "packed.dxf" + noText);
  folder.write("utf16.dxf", "\xFF\xFE\x30\x00\x0A\x00S\x00E\x00"s);
  expectRefusal("utf16.dxf", "utf16.dxf" + noText);
  folder.write("utf16be.dxf", "\xFE\xFF\x00\x30\x00\x0A\x00S\x00E"s);
  expectRefusal("utf16be.dxf", "utf16be.dxf" + noText);
  folder.write("old.dwg", "AC1015\x00\x00\x00\x00\x06\x01"s);
  expectRefusal("old.dwg", "old.dwg is a DWG file. Please save the drawing as ASCII DXF.");
  folder.write("binary.dxf", "AutoCAD Binary DXF\r\n\x1A\x00"s);
  expectRefusal("binary.dxf",
                "binary.dxf is a binary DXF file. Please save the drawing as ASCII DXF.");
  folder.write("none.dxf", "This is a letter.\n");
  expectRefusal("none.dxf",
                "none.dxf contains no section of a DXF drawing. Please choose a DXF file.");
}

TEST_F(FaultTest, FourGigabytesOfNothingAreRefusedAtOnce) {
  folder.write("zeros.dxf", "");
  fs::resize_file(folder.path() / "zeros.dxf", std::uintmax_t{4} << 30);
  expectRefusal(
      "zeros.dxf",
      "zeros.dxf is not a text file, so it cannot be an ASCII DXF file. Please choose a DXF file.");
}

TEST_F(FaultTest, ADrawingMayComeThroughANamedPipe) {
  ASSERT_EQ(mkfifo((folder.path() / "part.dxf").c_str(), 0600), 0);
  call.arguments = {"part.dxf"};
  RunningProgram program(call);
  std::ofstream(folder.file("part.dxf")) << oneLine().text();
  EXPECT_EQ(program.finish().exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(FaultTest, FilesMayHaveAnyNames) {
  const std::string longest = std::string(251, 'x') + ".dxf";
  for (const std::string& name :
       {std::string("two words.dxf"), std::string("it's \"quoted\".dxf"),
        std::string("Frontplatte äöüß.dxf"), std::string("two\nlines.dxf"), longest,
        std::string("--force.dxf"), std::string("$(reboot);`x`.dxf"), std::string("caf\xE9.dxf")}) {
    write(name, oneLine());
    const std::string script = name.substr(0, name.size() - 3) + "scr";
    const ProgramResult result = run({"--", name});
    EXPECT_EQ(result.exitCode, 0) << name << result.error;
    std::string board;
    for (const char c : name.substr(0, name.size() - 4)) {
      const auto byte = static_cast<unsigned char>(c);
      if ((byte & 0xC0) == 0x80) continue;
      board += byte < 0x80 && (std::isalnum(byte) != 0 || c == '-') ? c : '_';
    }
    EXPECT_EQ(folder.read(script), lineScript(board)) << name;
    // The last line may be missing: EAGLE does not accept every file name.
    const auto lines = std::count(result.error.begin(), result.error.end(), '\n');
    EXPECT_TRUE(lines == 2 || lines == 3) << result.error;
    fs::remove(folder.path() / name);
    fs::remove(folder.path() / script);
    EXPECT_EQ(files(), Strings{});
  }
}

TEST_F(FaultTest, NothingOfTheEnvironmentIsNeeded) {
  write("part.dxf", oneLine());
  call.environment = {};
  EXPECT_EQ(run({"part.dxf"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(FaultTest, ALocaleThatIsNotInstalledDoesNotMatter) {
  write("part.dxf", oneLine());
  call.environment = {"LC_ALL=xx_XX.UTF-8", "HOME=/nowhere/at/all", "XDG_CONFIG_HOME="};
  EXPECT_EQ(run({"part.dxf"}).exitCode, 0);
  EXPECT_EQ(folder.read("part.scr"), lineScript("part"));
}

TEST_F(FaultTest, TwoRunsWithTheSameScriptLeaveOneOfThem) {
  write("a/part.dxf", oneLine());
  fs::create_directory(folder.path() / "a");
  write("a/part.dxf", oneLine());
  write("part.dxf", large());
  const std::string one = lineScript("one");
  run({"part.dxf", "--name", "many", "-o", "many.scr"});
  const std::string many = folder.read("many.scr");
  for (int round = 0; round < 10; ++round) {
    call.arguments = {"part.dxf", "--name", "many", "-o", "same.scr", "--force"};
    RunningProgram first(call);
    call.arguments = {"a/part.dxf", "--name", "one", "-o", "same.scr", "--force"};
    RunningProgram second(call);
    EXPECT_EQ(first.finish().exitCode, 0);
    EXPECT_EQ(second.finish().exitCode, 0);
    const std::string script = folder.read("same.scr");
    EXPECT_TRUE(script == one || script == many) << script.size();
  }
  EXPECT_EQ(files(), (Strings{"a", "a/part.dxf", "many.scr", "part.dxf", "same.scr"}));
}

}  // namespace
}  // namespace quillon::headless
