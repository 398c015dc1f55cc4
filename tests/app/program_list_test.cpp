// --files-from: drawings named in a list.
#include "app/load_fixture.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

namespace fs = std::filesystem;
using testing::ProgramResult;

class ListTest : public ProgramTest {
 protected:
  ListTest() {
    for (const char* const name : {"a.dxf", "b c.dxf", "d.dxf"}) write(name, oneLine());
  }
  Strings scripts() const {
    Strings out;
    for (const std::string& file : files()) {
      if (file.ends_with(".scr")) out.push_back(file);
    }
    return out;
  }
  std::string listError(const ProgramResult& result) const {
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_EQ(scripts(), Strings{});
    const std::string end = "\nTry 'quillon-convert --help'.\n";
    const std::string start = "quillon-convert: ";
    EXPECT_TRUE(result.error.starts_with(start) && result.error.ends_with(end)) << result.error;
    return result.error.substr(start.size(), result.error.size() - start.size() - end.size());
  }
};

TEST_F(ListTest, HasOnePathOnEachLine) {
  folder.write("list", "a.dxf\nb c.dxf\n");
  const ProgramResult result = run({"--files-from", "list"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_EQ(result.error, summaryLines("a.dxf", 1, "a.scr", 11) +
                              summaryLines("b c.dxf", 1, "b c.scr", 11) +
                              "2 of 2 drawings converted\n");
}

TEST_F(ListTest, MayHaveBlankLinesAndLineEndsOfAnySystemAndNoneAtItsEnd) {
  folder.write("list",
               "\xEF\xBB\xBF"
               "a.dxf\r\n\r\n\n  \t\nb c.dxf\nd.dxf");
  EXPECT_EQ(run({"--files-from", "list", "--quiet"}).exitCode, 0);
  EXPECT_EQ(scripts(), (Strings{"a.scr", "b c.scr", "d.scr"}));
}

TEST_F(ListTest, ComesFromStandardInput) {
  EXPECT_EQ(run({"--files-from", "-", "-o", "out"}, "a.dxf\nd.dxf\n").exitCode, 0);
  EXPECT_EQ(scripts(), (Strings{"out/a.scr", "out/d.scr"}));
}

TEST_F(ListTest, HasNulCharactersBetweenPathsWhenAskedTo) {
  using namespace std::string_view_literals;
  EXPECT_EQ(run({"--files-from", "-", "--null"}, "a.dxf\0\0b c.dxf\0"sv).exitCode, 0);
  EXPECT_EQ(scripts(), (Strings{"a.scr", "b c.scr"}));
  EXPECT_EQ(run({"--files-from", "-", "-0"}, "d.dxf"sv).exitCode, 0);
  EXPECT_TRUE(folder.has("d.scr"));
}

TEST_F(ListTest, GoesTogetherWithArguments) {
  folder.write("list", "d.dxf\n");
  const ProgramResult result = run({"a.dxf", "--files-from", "list"});
  EXPECT_EQ(result.exitCode, 0);
  EXPECT_TRUE(result.error.ends_with("2 of 2 drawings converted\n")) << result.error;
  EXPECT_EQ(scripts(), (Strings{"a.scr", "d.scr"}));
}

TEST_F(ListTest, OfOneDrawingStillHasAFolderForItsScript) {
  folder.write("list", "a.dxf\n");
  EXPECT_EQ(run({"--files-from", "list", "-o", "out"}).exitCode, 0);
  EXPECT_EQ(scripts(), Strings{"out/a.scr"});
}

TEST_F(ListTest, MayNameFolders) {
  fs::create_directories(folder.path() / "in/one");
  write("in/x.dxf", oneLine());
  write("in/one/y.dxf", oneLine());
  folder.write("list", "in\n");
  EXPECT_EQ(run({"--files-from", "list", "-o", "flat"}).exitCode, 0);
  EXPECT_EQ(run({"--files-from", "list", "-o", "deep", "--recursive"}).exitCode, 0);
  EXPECT_EQ(scripts(), (Strings{"deep/one/y.scr", "deep/x.scr", "flat/x.scr"}));
}

TEST_F(ListTest, NamesAreTakenLiterally) {
  folder.write("list", "A.DXF\n-\na.dxf\n");
  const ProgramResult result = run({"--files-from", "list"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_TRUE(result.error.ends_with("1 of 3 drawings converted\n")) << result.error;
}

TEST_F(ListTest, ADrawingThatIsNamedTwiceIsConvertedOnce) {
  folder.write("list", "a.dxf\na.dxf\n");
  const ProgramResult result = run({"--files-from", "list"});
  EXPECT_EQ(result.exitCode, 1);
  EXPECT_EQ(folder.read("a.scr"), lineScript("a"));
  EXPECT_TRUE(result.error.ends_with("1 of 2 drawings converted\n")) << result.error;
}

TEST_F(ListTest, WithoutAnyPathConvertsNothing) {
  expectResult(run({"--files-from", "-"}, "\n"), 0, "", "0 of 0 drawings converted\n");
}

TEST_F(ListTest, ThatIsMissingIsAUsageError) {
  EXPECT_EQ(listError(run({"a.dxf", "--files-from", "nowhere"})),
            "the list of drawings nowhere could not be read: No such file or directory");
  fs::create_directory(folder.path() / "in");
  EXPECT_EQ(listError(run({"a.dxf", "--files-from", "in"})),
            "the list of drawings in could not be read: Is a directory");
}

TEST_F(ListTest, ThatIsNoListIsAUsageError) {
  using namespace std::string_view_literals;
  EXPECT_EQ(listError(run({"--files-from", "-"}, "a.dxf\nd.dxf\0\n"sv)),
            "the list of drawings -: line 2 contains a NUL character: use --null for names that "
            "end with one");
  EXPECT_EQ(listError(run({"--files-from", "-"},
                          "\xFF\xFE"
                          "a\0\n\0"sv)),
            "the list of drawings -: line 1 is UTF-16: save the list as UTF-8");
  EXPECT_EQ(listError(run({"--files-from", "-"}, std::string(70000, 'x'))),
            "the list of drawings -: line 1 has more than 65536 bytes: this is not a path");
  EXPECT_EQ(listError(run({"--files-from", "-", "--null"}, std::string(70000, 'x'))),
            "the list of drawings -: name 1 has more than 65536 bytes: this is not a path");
}

TEST_F(ListTest, DoesNotGoWithWhatNeedsOneDrawing) {
  const std::string list = "a.dxf\n";
  EXPECT_EQ(listError(run({"--files-from", "-", "-"}, list)),
            "- cannot be combined with other drawings");
  EXPECT_EQ(listError(run({"--files-from", "-", "--name", "X"}, list)),
            "--name takes one drawing only");
  EXPECT_EQ(listError(run({"--files-from", "-", "-o", "-"}, list)), "-o - takes one drawing only");
  EXPECT_EQ(listError(run({"--files-from", ""}, list)), "the name of the list is empty");
  EXPECT_EQ(listError(run({"a.dxf", "--null"}, list)), "--null needs --files-from");
}

/// What a run on a list of many paths that lead nowhere costs.
class LongListTest : public ListTest {
 protected:
  static constexpr int kPaths = 30000;
  /// The paths, each as long as usual ones are.
  static std::string list() {
    const std::string folderName = "drawings/" + std::string(60, 'x') + "/part-";
    std::string text;
    for (int i = 0; i < kPaths; ++i) text += folderName + std::to_string(i) + ".dxf\n";
    return text;
  }
};

TEST_F(LongListTest, HoldsLittleMoreThanThePaths) {
  folder.write("few", "a.dxf\n");
  folder.write("many", list());
  const ProgramResult few = run({"--files-from", "few", "--quiet"});
  const ProgramResult many = run({"--files-from", "many", "--quiet"});
  EXPECT_EQ(many.exitCode, 1);
  EXPECT_EQ(std::count(many.error.begin(), many.error.end(), '\n'), kPaths);
  // Twice the path itself, for what grows, and three numbers.
  if (kReusesFreedMemory) {
    EXPECT_LT(many.peakBytes - few.peakBytes, std::size_t{kPaths} * 320);
  }
}

}  // namespace
}  // namespace quillon::headless
