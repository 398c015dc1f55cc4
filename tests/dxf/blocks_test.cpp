#include "dxf/blocks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::joinLines;
using testing::LineList;
using testing::ReadDrawing;
using testing::readFault;
using Kinds = std::vector<EntityKind>;

/// A drawing whose BLOCKS section has these lines, including each BLOCK and ENDBLK.
std::string blocksSection(LineList lines) {
  return joinLines({"  0", "SECTION", "  2", "BLOCKS"}) + joinLines(lines) +
         joinLines(
             {"  0", "ENDSEC", "  0", "SECTION", "  2", "ENTITIES", "  0", "ENDSEC", "  0", "EOF"});
}

Kinds kindsOf(ReadDrawing& read, std::size_t block) {
  Kinds kinds;
  for (const DxfEntity& item : read.blockEntities(block)) kinds.push_back(item.kind);
  return kinds;
}

TEST(Blocks, HaveNameLayerBasePointAndItems) {
  DxfBuilder dxf;
  dxf.beginBlock("Door", " 1.50 ", "-2")
      .entity("LINE", {{8, "a"}})
      .entity("ARC", {{8, "b"}})
      .endBlock();
  ReadDrawing read(dxf.text());
  ASSERT_EQ(read.drawing.blocks.size(), 1U);
  const BlockRec& door = read.drawing.blocks[0];
  EXPECT_EQ(door.name, "DOOR");
  EXPECT_EQ(door.baseX, "1.50");
  EXPECT_EQ(door.baseY, "-2");
  EXPECT_EQ(kindsOf(read, 0), (Kinds{EntityKind::Line, EntityKind::Arc}));
}

TEST(Blocks, TakeTheLastOfRepeatedHeaderGroups) {
  ReadDrawing read(blocksSection({"0", "BLOCK", "2", "a", "8",  "x", "10", "1", "20", "2",
                                  "2", "b",     "8", "y", "10", "3", "20", "4", "0",  "ENDBLK"}));
  const BlockRec& block = read.drawing.blocks.at(0);
  EXPECT_EQ(block.name, "B");
  EXPECT_EQ(block.baseX, "3");
  EXPECT_EQ(block.baseY, "4");
}

TEST(Blocks, CompareTheCodesOfTheirHeaderAsText) {
  ReadDrawing read(blocksSection({"0",   "BLOCK", "  2 ", "a", "02",  "b", "2.0", "c",
                                  "8.0", "x",     "1e1",  "1", "+20", "2", "70",  "64",
                                  "30",  "0",     "3",    "d", "1",   "e", "0",   "ENDBLK"}));
  const BlockRec& block = read.drawing.blocks.at(0);
  EXPECT_EQ(block.name, "A");
  EXPECT_EQ(block.baseX, "");
  EXPECT_EQ(block.baseY, "");
}

TEST(Blocks, EndTheirHeaderAtTheFirstEntity) {
  ReadDrawing read(blocksSection({"0", "BLOCK", "8", "own", "0", "INSERT", "2", "other", "8",
                                  "theirs", "10", "9", "20", "9", "0", "ENDBLK"}));
  const BlockRec& block = read.drawing.blocks.at(0);
  EXPECT_EQ(block.name, "");
  EXPECT_EQ(block.baseX, "");
  EXPECT_EQ(block.baseY, "");
}

TEST(Blocks, WithoutANameAreStoredAndCounted) {
  ReadDrawing read(blocksSection({"0", "BLOCK", "8", "0", "0", "ENDBLK", "8", "0",  //
                                  "0", "BLOCK", "2", "b", "0", "ENDBLK", "8", "0"}));
  ASSERT_EQ(read.drawing.blocks.size(), 2U);
  EXPECT_EQ(read.drawing.blocks[0].name, "");
  EXPECT_EQ(read.drawing.blocks[1].name, "B");
  EXPECT_EQ(findBlock(read.drawing, ""), 0U);
}

TEST(Blocks, OfAHeaderOnlyHaveNoItems) {
  DxfBuilder dxf;
  dxf.beginBlock("empty").endBlock();
  ReadDrawing read(dxf.text());
  ASSERT_EQ(read.drawing.blocks.size(), 1U);
  EXPECT_EQ(read.drawing.blocks[0].items.size(), 0U);
}

TEST(Blocks, OfOneNameAreAllKept) {
  DxfBuilder dxf;
  dxf.beginBlock("a").entity("LINE", {{8, "0"}}).endBlock();
  dxf.beginBlock("A").entity("ARC", {{8, "0"}}).endBlock();
  ReadDrawing read(dxf.text());
  ASSERT_EQ(read.drawing.blocks.size(), 2U);
  EXPECT_EQ(findBlock(read.drawing, "A"), 0U);
  EXPECT_EQ(kindsOf(read, 1), Kinds{EntityKind::Arc});
}

TEST(Blocks, KeepNestedInsertsAsItems) {
  DxfBuilder dxf;
  dxf.beginBlock("outer").entity("INSERT", {{2, "inner"}, {10, "1"}}).endBlock();
  dxf.beginBlock("inner").entity("POINT", {{8, "0"}}).endBlock();
  ReadDrawing read(dxf.text());
  EXPECT_EQ(kindsOf(read, 0), Kinds{EntityKind::Insert});
  EXPECT_EQ(read.blockEntity(0, 0).value(0), "INNER");
  EXPECT_EQ(kindsOf(read, 1), Kinds{EntityKind::Point});
}

TEST(Blocks, ReadTheirEntitiesLikeTheDrawing) {
  DxfBuilder dxf;
  dxf.layer("Walls", "Dashed");
  dxf.beginBlock("a");
  dxf.entity("HATCH", {{8, "x"}}).entity("LINE", {{8, "walls"}, {10, "1"}, {10, "2"}});
  dxf.entity("VERTEX", {{8, "none"}, {42, "1e-9"}})
      .entity("SEQEND", {})
      .entity("ATTDEF", {{1, "t"}});
  dxf.endBlock();
  ReadDrawing read(dxf.text());
  EXPECT_EQ(kindsOf(read, 0),
            (Kinds{EntityKind::Line, EntityKind::Vertex, EntityKind::Seqend, EntityKind::Attdef}));
  EXPECT_EQ(read.blockEntity(0, 0).value(0), "1");
  EXPECT_EQ(read.blockEntity(0, 0).value(4), "WALLS");
  EXPECT_EQ(read.blockEntity(0, 0).value(5), "Dashed");
  EXPECT_EQ(read.blockEntity(0, 1).value(3), "0");
  EXPECT_EQ(read.drawing.unknownKinds, (UnknownKinds{{"HATCH", 1}}));
}

TEST(Blocks, StartInAnyCaseAndEndInUpperCase) {
  ReadDrawing read(blocksSection({"0", "block",  "2", "a",   "0", "LINE",  "8", "endblk",
                                  "0", "endblk", "0", "ARC", "8", "0",     "0", "ENDBLK",
                                  "0", "Block",  "2", "b",   "0", "ENDBLK"}));
  ASSERT_EQ(read.drawing.blocks.size(), 2U);
  EXPECT_EQ(kindsOf(read, 0), (Kinds{EntityKind::Line, EntityKind::Arc}));
  EXPECT_EQ(read.drawing.blocks[1].name, "B");
}

TEST(Blocks, MayBeNamedLikeTheirMarkers) {
  ReadDrawing read(blocksSection(
      {"0", "BLOCK", "2", "Block", "0", "ENDBLK", "0", "BLOCK", "2", "ENDSEC", "0", "ENDBLK"}));
  ASSERT_EQ(read.drawing.blocks.size(), 2U);
  EXPECT_EQ(read.drawing.blocks[0].name, "BLOCK");
  EXPECT_EQ(read.drawing.blocks[1].name, "ENDSEC");
}

TEST(Blocks, ShowTheirNumberAfterEach) {
  DxfBuilder dxf;
  for (const std::string_view name : {"a", "b", "c"}) dxf.beginBlock(name).endBlock();
  ReadDrawing read(dxf.text());
  std::vector<std::uint64_t> counts;
  for (const auto& [phase, count] : read.monitor.statuses) {
    if (phase == base::ReadPhase::Blocks) counts.push_back(count);
  }
  EXPECT_EQ(counts, (std::vector<std::uint64_t>{0, 1, 2, 3}));
}

TEST(Blocks, PassErrorsOfTheirEntitiesOn) {
  struct Case {
    LineList groups;
    base::Fault fault;
    std::size_t line;
  };
  for (const auto& [groups, fault, line] :
       {Case{{"8", "0", "x1", "2"}, base::Fault::BadGroupCode, 12},
        {{"", "0"}, base::Fault::BadGroupCode, 10},
        {{"8", "0", "8", "0", "40000", "2"}, base::Fault::BadGroupCode, 14},
        {{"11", "1", "12", "2"}, base::Fault::TooManyPoints, 13}}) {
    const std::string text = joinLines({"0", "SECTION", "2", "BLOCKS", "0", "BLOCK"}) +
                             joinLines({"0", "SPLINE"}) + std::string("8\n") + "z\n" +
                             joinLines(groups) +
                             joinLines({"0", "ENDBLK", "0", "ENDSEC", "0", "EOF"});
    const auto found = readFault(text);
    ASSERT_TRUE(found.has_value()) << line;
    EXPECT_EQ(found->fault, fault) << line;
    EXPECT_EQ(found->line, line + 1) << line;
  }
}

TEST(Blocks, QuoteTheLineThatIsNotAGroupCode) {
  const auto found =
      readFault(blocksSection({"0", "BLOCK", "2", "a", "0", "LINE", " 1O", "5", "0", "ENDBLK"}));
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->subject, "1O");
}

TEST(Blocks, NamedLikeTheEndMarkerEndTooEarly) {
  const auto found =
      readFault(blocksSection({"0", "BLOCK", "8", "0", "2", "ENDBLK", "70", "0", "0", "ENDBLK"}));
  ASSERT_TRUE(found.has_value());
  EXPECT_EQ(found->fault, base::Fault::TextEndsTooEarly);
}

TEST(Blocks, CutOffAnywhereAreAnError) {
  DxfBuilder dxf;
  dxf.beginBlock("a").entity("LINE", {{8, "0"}, {10, "1"}}).endBlock().beginBlock("b").endBlock();
  for (const std::string_view lineEnd : {"\n", "\r", "\r\n"}) {
    const std::string text = dxf.text(lineEnd);
    const std::size_t start = text.find("BLOCKS") + 6 + lineEnd.size();
    const std::size_t end = text.find("ENDSEC", start) + 6;
    for (std::size_t cut = start + 1; cut < end; ++cut) {
      const auto found = readFault(text.substr(0, cut));
      ASSERT_TRUE(found.has_value()) << cut;
      const std::string before = text.substr(0, cut - 1);
      const auto lines = std::count(before.begin(), before.end(), lineEnd.front());
      EXPECT_GE(found->line, static_cast<std::size_t>(lines)) << cut;
    }
    EXPECT_FALSE(readFault(text.substr(0, end)).has_value());
  }
}

}  // namespace
}  // namespace quillon::dxf
