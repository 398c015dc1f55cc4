#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>

#include "dxf/section_walker.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"
#include "support/text_walk.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::joinLines;
using testing::OpenFile;
using testing::ReadDrawing;

constexpr std::size_t kMany = 20'000;

/// A drawing with sections that each take several polls to read.
std::string manySections() {
  DxfBuilder dxf;
  for (std::size_t i = 0; i < kMany; ++i) dxf.header("$ORTHOMODE", 70, "0");
  dxf.header("$LTSCALE", 40, "2");
  for (std::size_t i = 0; i < kMany; ++i) {
    dxf.dashes("Dashed", "1", {"1"}).layer("Walls").style("Standard", {{40, "0"}, {70, "0"}});
    dxf.beginBlock("Door").entity("LINE", {{8, "0"}, {10, "1"}}).endBlock();
    dxf.entity("LINE", {{8, "0"}, {10, "1"}, {20, "2"}});
  }
  std::string text = dxf.text();
  const std::string end = joinLines({"  0", "ENDSEC", "  0", "EOF"});
  text.resize(text.size() - end.size());
  for (std::size_t i = 0; i < kMany; ++i) text += joinLines({"  0", "DICTIONARY", "  5", "A"});
  return text + end;
}

const std::string& theDrawing() {
  static const std::string text = manySections();
  return text;
}

std::uint64_t lineCount() {
  return static_cast<std::uint64_t>(std::count(theDrawing().begin(), theDrawing().end(), '\n'));
}

/// Reads a text via a file, as a cancel is noticed between windows.
class FileRead {
 public:
  FileRead(std::string_view text, ReadDrawing::CancelRule cancelWhen)
      : file_(text), read_(file_.get(), std::move(cancelWhen)) {}
  ReadDrawing* operator->() { return &read_; }

 private:
  OpenFile file_;
  ReadDrawing read_;
};

TEST(Cancel, NeverPressedReadsEverything) {
  FileRead read(theDrawing(), [](const ReadDrawing&) { return false; });
  EXPECT_EQ(read->drawing.ltScale, 2.0);
  EXPECT_EQ(read->drawing.lineTypes.size(), kMany);
  EXPECT_EQ(read->drawing.layers.size(), kMany);
  EXPECT_EQ(read->drawing.blocks.size(), kMany);
  EXPECT_EQ(read->entities().size(), kMany);
  EXPECT_EQ(read->linesRead, lineCount());
}

TEST(Cancel, InTheHeaderReadsNothingMore) {
  FileRead read(theDrawing(), [](const ReadDrawing&) { return true; });
  EXPECT_EQ(read->drawing.ltScale, kNotGiven);
  EXPECT_TRUE(read->drawing.lineTypes.empty());
  EXPECT_TRUE(read->drawing.blocks.empty());
  EXPECT_TRUE(read->entities().empty());
  EXPECT_LT(read->linesRead, kMany * 4);
}

TEST(Cancel, InTheTablesKeepsTheTablesReadSoFar) {
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "2").dashes("Dashed", "1", {"1"});
  for (std::size_t i = 0; i < 2 * kMany; ++i) dxf.layer("Walls");
  dxf.beginBlock("Door").endBlock().entity("POINT", {{8, "0"}});
  FileRead read(dxf.text(),
                [](const ReadDrawing& soFar) { return !soFar.drawing.lineTypes.empty(); });
  EXPECT_EQ(read->drawing.ltScale, 2.0);
  EXPECT_EQ(read->drawing.lineTypes.size(), 1U);
  EXPECT_TRUE(read->drawing.layers.empty());
  EXPECT_TRUE(read->drawing.blocks.empty());
  EXPECT_TRUE(read->entities().empty());
}

TEST(Cancel, InTheBlocksKeepsTheBlocksReadSoFar) {
  FileRead read(theDrawing(),
                [](const ReadDrawing& soFar) { return soFar.drawing.blocks.size() > 9; });
  EXPECT_EQ(read->drawing.layers.size(), kMany);
  EXPECT_GT(read->drawing.blocks.size(), 9U);
  EXPECT_LT(read->drawing.blocks.size(), kMany);
  EXPECT_EQ(read->drawing.blocks.back().items.size(), 1U);
  EXPECT_TRUE(read->entities().empty());
}

TEST(Cancel, InTheEntitiesKeepsTheEntitiesReadSoFar) {
  FileRead read(theDrawing(), [](const ReadDrawing& soFar) { return soFar.entities().size() > 9; });
  EXPECT_EQ(read->drawing.blocks.size(), kMany);
  EXPECT_GT(read->entities().size(), 9U);
  EXPECT_LT(read->entities().size(), kMany / 2);
}

TEST(Cancel, InTheObjectsKeepsTheWholeDrawing) {
  FileRead read(theDrawing(),
                [](const ReadDrawing& soFar) { return soFar.entities().size() == kMany; });
  EXPECT_EQ(read->entities().size(), kMany);
  EXPECT_LT(read->linesRead, lineCount());
}

TEST(Cancel, InALargeBlockEndsTheBlocks) {
  DxfBuilder dxf;
  dxf.beginBlock("small").endBlock().beginBlock("large");
  for (std::size_t i = 0; i < 4 * kMany; ++i) dxf.entity("LINE", {{8, "0"}});
  dxf.endBlock().beginBlock("next").endBlock().entity("POINT", {{8, "0"}});
  FileRead read(dxf.text(), [](const ReadDrawing& soFar) { return !soFar.drawing.blocks.empty(); });
  EXPECT_EQ(read->drawing.blocks.size(), 1U);
  EXPECT_TRUE(read->entities().empty());
}

TEST(Cancel, WhileASectionIsSearchedReadsNothingMore) {
  std::string text(std::size_t{2} << 20, '\n');
  text += DxfBuilder().layer("Walls").entity("POINT", {{8, "0"}}).text();
  FileRead read(text, [](const ReadDrawing&) { return true; });
  EXPECT_TRUE(read->drawing.layers.empty());
  EXPECT_TRUE(read->entities().empty());
  EXPECT_FALSE(read->drawing.anySection);
}

/// A drawing whose OBJECTS section, the last one, has these lines.
std::string objectsOf(std::string_view lines) {
  return joinLines(
             {"0", "SECTION", "2", "ENTITIES", "0", "ENDSEC", "0", "SECTION", "2", "OBJECTS"}) +
         std::string(lines);
}

TEST(Objects, WithoutEndsecWaitForACancelAtTheEndOfTheFile) {
  constexpr std::uint64_t kWaits = 5;
  for (const std::string_view lines :
       {"0\nDICTIONARY\n0\nEOF\n", "0\nDICTIONARY", "0\n ENDSEC\n0\nEOF\n"}) {
    const ReadDrawing read(
        objectsOf(lines), [](const ReadDrawing& soFar) { return soFar.monitor.waits >= kWaits; },
        false);
    EXPECT_EQ(read.monitor.waits, kWaits) << lines;
  }
}

TEST(Objects, CountTheLinesReadWhileTheyWait) {
  const auto linesAfter = [](std::uint64_t waits) {
    const auto rule = [waits](const ReadDrawing& soFar) { return soFar.monitor.waits >= waits; };
    return ReadDrawing(objectsOf("0\nDICTIONARY\n"), rule, false).linesRead;
  };
  EXPECT_EQ(linesAfter(9), linesAfter(4) + 5);
}

TEST(Objects, WithoutEndsecEndAtTheEndOfTheFileWithoutACancelButton) {
  const ReadDrawing read(objectsOf("0\nDICTIONARY\n0\nEOF\n"));
  EXPECT_EQ(read.monitor.waits, 0U);
  EXPECT_EQ(read.linesRead, 14U);
}

TEST(Objects, WithEndsecInAnyCaseEndAtTheEndOfTheFile) {
  for (const std::string_view lines :
       {"0\nENDSEC\n0\nEOF\n", "0\nendsec\n0\nEOF\n", "0\nENDSEC\n5\n6\n"}) {
    const ReadDrawing read(
        objectsOf(lines), [](const ReadDrawing& soFar) { return soFar.monitor.waits > 0; }, false);
    EXPECT_EQ(read.monitor.waits, 0U) << lines;
    EXPECT_EQ(read.linesRead, 14U) << lines;
  }
}

TEST(Objects, EndWithAnEndsecThatIsTheLastLine) {
  const ReadDrawing read(
      objectsOf("0\nENDSEC"), [](const ReadDrawing& soFar) { return soFar.monitor.waits > 0; },
      false);
  EXPECT_EQ(read.monitor.waits, 0U);
}

TEST(Objects, ThatAreMissingAreNotWaitedFor) {
  // Without ENTITIES, the search for it runs to the end of the file, past OBJECTS.
  for (const std::string_view text : {"0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n",
                                      "0\nSECTION\n2\nOBJECTS\n0\nDICTIONARY\n0\nEOF\n"}) {
    const ReadDrawing read(
        text, [](const ReadDrawing& soFar) { return soFar.monitor.waits > 0; }, false);
    EXPECT_EQ(read.monitor.waits, 0U);
    EXPECT_EQ(read.linesRead, 0U);
  }
}

}  // namespace
}  // namespace quillon::dxf
