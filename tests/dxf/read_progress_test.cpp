#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

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
using Status = std::pair<base::ReadPhase, std::uint64_t>;

/// A drawing with something in every section.
DxfBuilder smallDrawing() {
  DxfBuilder dxf;
  dxf.header("$LTSCALE", 40, "2").layer("Walls");
  dxf.beginBlock("Door").endBlock().beginBlock("Roof").endBlock();
  for (int i = 0; i < 5; ++i) dxf.entity("POINT", {{8, "0"}});
  return dxf;
}

/// A drawing of about 3 MB with the same sections, but without OBJECTS.
std::string longDrawing() {
  std::string text = smallDrawing().text();
  text.resize(text.rfind("  0\nENDSEC\n  0\nSECTION\n  2\nOBJECTS"));
  while (text.size() < std::size_t{3} << 20) text += "  0\nPOINT\n  8\n0\n 10\n1\n 20\n2\n";
  return text + "  0\nENDSEC\n";
}

constexpr std::string_view kEnd = "  0\nEOF\n";
constexpr std::string_view kObjects = "  0\nSECTION\n  2\nOBJECTS\n  0\nENDSEC\n  0\nEOF\n";

TEST(ReadStatus, TellsPhasesAndCounts) {
  const ReadDrawing read(smallDrawing().text());
  EXPECT_EQ(read.monitor.statuses, (std::vector<Status>{{base::ReadPhase::Header, 0},
                                                        {base::ReadPhase::Blocks, 0},
                                                        {base::ReadPhase::Blocks, 1},
                                                        {base::ReadPhase::Blocks, 2},
                                                        {base::ReadPhase::Entities, 0},
                                                        {base::ReadPhase::Entities, 5}}));
}

TEST(ReadStatus, TellsOfBlocksOnlyWhereTheSectionIs) {
  const ReadDrawing read("0\nEOF\n");
  EXPECT_EQ(read.monitor.statuses,
            (std::vector<Status>{{base::ReadPhase::Header, 0}, {base::ReadPhase::Entities, 0}}));
}

TEST(LinesRead, AreThoseUpToTheEndOfTheFile) {
  const DxfBuilder dxf = smallDrawing();
  const std::string text = dxf.text();
  const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
  EXPECT_EQ(ReadDrawing(text).linesRead, lines);
  EXPECT_EQ(ReadDrawing(dxf.text("\r")).linesRead, lines);
  // With two-character line ends, the last character counts as a line of its own.
  EXPECT_EQ(ReadDrawing(dxf.text("\r\n")).linesRead, lines + 1);
  EXPECT_EQ(ReadDrawing(text + "\n\nmore").linesRead, lines + 3);
}

TEST(LinesRead, AreTheSameFromAFile) {
  const std::string text = longDrawing() + std::string(kObjects);
  const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
  const OpenFile file(text);
  EXPECT_EQ(ReadDrawing(file.get()).linesRead, lines);
  EXPECT_EQ(ReadDrawing(text).linesRead, lines);
}

TEST(LinesRead, StartFromZeroAgainAfterTheLastMissingSection) {
  const std::string entities = joinLines({"0", "SECTION", "2", "ENTITIES", "0", "ENDSEC"});
  // HEADER, TABLES and BLOCKS are missing.
  EXPECT_EQ(ReadDrawing(entities + std::string(kObjects)).linesRead, 14U);
  EXPECT_EQ(ReadDrawing(entities + std::string(kEnd)).linesRead, 0U);
}

TEST(FileLinesRead, CountEachLineOfTheFileOnce) {
  const std::string text = smallDrawing().text();
  const auto lines = static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n'));
  EXPECT_EQ(ReadDrawing(text).fileLinesRead, lines);
  EXPECT_EQ(ReadDrawing(smallDrawing().text("\r")).fileLinesRead, lines);
  EXPECT_EQ(ReadDrawing(smallDrawing().text("\r\n")).fileLinesRead, lines);
  EXPECT_EQ(ReadDrawing(text + "\n\nmore").fileLinesRead, lines + 3);
  EXPECT_EQ(ReadDrawing("").fileLinesRead, 0U);
}

TEST(FileLinesRead, CountWhatWasReadBeforeTheFileWasRewound) {
  const std::string entities = joinLines({"0", "SECTION", "2", "ENTITIES", "0", "ENDSEC"});
  EXPECT_EQ(ReadDrawing(entities + std::string(kObjects)).fileLinesRead, 14U);
  EXPECT_EQ(ReadDrawing(entities + std::string(kEnd)).fileLinesRead, 8U);
  const OpenFile file(longDrawing());
  const std::string text = longDrawing();
  EXPECT_EQ(ReadDrawing(file.get()).fileLinesRead,
            static_cast<std::uint64_t>(std::count(text.begin(), text.end(), '\n')));
}

/// The final position of the reading bar, in percent.
double lastProgress(const ReadDrawing& read) {
  const auto& [value, total] = read.monitor.progress.back();
  return 100.0 * static_cast<double>(value) / static_cast<double>(total);
}

TEST(ReadingBar, GoesForwardToTheEnd) {
  const std::string text = longDrawing() + std::string(kObjects);
  const OpenFile file(text);
  const ReadDrawing read(file.get());
  const auto& progress = read.monitor.progress;
  ASSERT_GT(progress.size(), 20U);
  EXPECT_TRUE(std::is_sorted(progress.begin(), progress.end()));
  for (const auto& [value, total] : progress) EXPECT_EQ(total, (text.size() + 64) / 128);
  EXPECT_NEAR(lastProgress(read), 100.0, 0.1);
}

TEST(ReadingBar, IsAtTheEndWithoutObjectsToo) {
  const std::string text = longDrawing() + std::string(kEnd);
  const OpenFile file(text);
  EXPECT_NEAR(lastProgress(ReadDrawing(file.get())), 100.0, 0.1);
}

}  // namespace
}  // namespace quillon::dxf
