// Ctrl-C.
#include <thread>

#include "app/json_value.h"
#include "app/program_fixture.h"

namespace quillon::headless {
namespace {

using testing::ProgramResult;
using testing::RunningProgram;

class InterruptTest : public ProgramTest {
 protected:
  /// True while a script is being written in the folder.
  bool isWriting(const std::string& below = ".") const {
    for (const auto& entry : std::filesystem::directory_iterator(folder.path() / below)) {
      if (entry.path().extension() == ".tmp") return true;
    }
    return false;
  }
  RunningProgram start(Strings arguments) {
    call.arguments = std::move(arguments);
    return RunningProgram(call);
  }
};

TEST_F(InterruptTest, CancelsALongConversionAndStillWritesTrailerAndReport) {
  write("part.dxf", endless());
  RunningProgram program = start({"part.dxf", "--report", "part.txt"});
  ASSERT_TRUE(testing::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(result.output, "");
  EXPECT_TRUE(
      result.error.starts_with("quillon-convert: warning: part.dxf: Interrupt by user in line "))
      << result.error;
  EXPECT_NE(result.error.find(" of DXF file!\n"), std::string::npos);
  EXPECT_EQ(folder.read("part.scr"), "Write;\r\nEdit 'part.brd';\r\n" + framed(""));
  EXPECT_TRUE(folder.read("part.txt").starts_with("\r\nConversion Report \r\n"));
  EXPECT_EQ(files(), (Strings{"part.dxf", "part.scr", "part.txt"}));
}

TEST_F(InterruptTest, CancelsReadingAndStillWritesTheTrailer) {
  RunningProgram program = start({"-", "-o", "part.scr"});
  program.write(std::string(8192, '\n'));
  ASSERT_TRUE(testing::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  program.write(oneLine().text());
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(folder.read("part.scr"), framed(""));
}

TEST_F(InterruptTest, DoesNotBeginTheRemainingDrawings) {
  write("a.dxf", oneLine());
  write("b.dxf", endless());
  write("c.dxf", oneLine());
  write("d.dxf", oneLine());
  RunningProgram program = start({"a.dxf", "b.dxf", "c.dxf", "d.dxf", "--json"});
  ASSERT_TRUE(testing::waitUntil([this] { return folder.has("a.scr") && isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_EQ(files(), (Strings{"a.dxf", "a.scr", "b.dxf", "b.scr", "c.dxf", "d.dxf"}));
  EXPECT_TRUE(result.error.ends_with("1 of 4 drawings converted\n")) << result.error;
  EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 2);
  const std::size_t second = result.output.find('\n') + 1;
  const auto value = testing::JsonValue::parse(result.output.substr(second));
  EXPECT_EQ(value.at("outcome").text(), "cancelled");
  EXPECT_EQ(value.at("script").text(), "b.scr");
}

TEST_F(InterruptTest, CancelsAllConversionsThatRunAtTheTime) {
  std::filesystem::create_directories(folder.path() / "1");
  std::filesystem::create_directories(folder.path() / "2");
  write("1/a.dxf", endless());
  write("2/b.dxf", endless());
  write("c.dxf", oneLine());
  RunningProgram program = start({"1/a.dxf", "2/b.dxf", "c.dxf", "--jobs", "2"});
  ASSERT_TRUE(testing::waitUntil([this] { return isWriting("1") && isWriting("2"); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_EQ(result.exitCode, 130);
  EXPECT_TRUE(folder.has("1/a.scr"));
  EXPECT_TRUE(folder.has("2/b.scr"));
  EXPECT_FALSE(folder.has("c.scr"));
  EXPECT_TRUE(result.error.ends_with("0 of 3 drawings converted\n")) << result.error;
}

TEST_F(InterruptTest, IsReportedInGerman) {
  write("part.dxf", endless());
  RunningProgram program = start({"part.dxf", "--language", "de"});
  ASSERT_TRUE(testing::waitUntil([this] { return isWriting(); }));
  program.interrupt();
  const ProgramResult result = program.finish();
  EXPECT_TRUE(result.error.starts_with(
      "quillon-convert: Warnung: part.dxf: Konvertierung durch Benutzer in Zeile "))
      << result.error;
  EXPECT_NE(result.error.find(" der DXF-Datei abgebrochen!\n"), std::string::npos);
}

}  // namespace
}  // namespace quillon::headless
