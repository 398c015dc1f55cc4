#include "workbench/result_text.h"

#include <filesystem>

#include "files/paths.h"
#include "workbench/bench_drawing.h"

namespace quillon::workbench {
namespace {

using ResultTextTest = BenchTest;

TEST_F(ResultTextTest, TellsWhatCameOut) {
  addLine("0", "0", "10", "20");
  readBoth();
  convert::ConversionResult made = result.result;
  made.dxfFile = "a\nb.dxf";
  // On Windows, with a drive.
  made.scriptFile = files::fromPath(std::filesystem::absolute("/plates/a.scr").make_preferred());
  made.commandCount = 12;
  made.rangeWarning = true;
  const std::vector<std::string> lines = resultLines(made, scriptCommand(made), texts);
  ASSERT_EQ(lines.size(), 4U);
  EXPECT_EQ(lines[0], "Entities converted: 1 (from " + std::to_string(made.fileLinesRead) +
                          " lines of " + resultPath(made.dxfFile) + ")");
  EXPECT_EQ(lines[0].find('\n'), std::string::npos);
  EXPECT_EQ(lines[1], "Lines written: 12 (to " + made.scriptFile + ")");
  EXPECT_EQ(lines[2], texts(texts::TextId::ResultOutsideRange));
  EXPECT_EQ(lines[3], "In EAGLE type: SCRIPT '" + made.scriptFile + "'");
}

TEST_F(ResultTextTest, HasNoCommandForAPathThatCannotBeTyped) {
  convert::ConversionResult made;
  made.scriptFile = "/plates/it's.scr";
  EXPECT_EQ(scriptCommand(made), "");
  for (const std::string& line : resultLines(made, "", texts)) {
    EXPECT_EQ(line.find("In EAGLE type"), std::string::npos) << line;
  }
}

TEST_F(ResultTextTest, SaysThatAConversionWasCancelled) {
  convert::ConversionResult made;
  made.outcome = convert::Outcome::Cancelled;
  EXPECT_EQ(resultLines(made, "", texts).back(),
            "The conversion was cancelled; the script is incomplete.");
}

}  // namespace
}  // namespace quillon::workbench
