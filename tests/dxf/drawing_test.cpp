#include "dxf/drawing.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>

#include "dxf/entity_values.h"
#include "support/dxf_builder.h"
#include "support/read_drawing.h"

namespace quillon::dxf {
namespace {

using testing::DxfBuilder;
using testing::ReadDrawing;

TEST(FindBlock, GivesTheIndexOfTheFirstBlockOfAName) {
  DxfBuilder dxf;
  for (const std::string_view name : {"Window", "Door", "DOOR", "Roof"})
    dxf.beginBlock(name).endBlock();
  ReadDrawing read(dxf.text());
  EXPECT_EQ(read.drawing.blocks.size(), 4U);
  EXPECT_EQ(findBlock(read.drawing, "WINDOW"), 0U);
  EXPECT_EQ(findBlock(read.drawing, "DOOR"), 1U);
  EXPECT_EQ(findBlock(read.drawing, "ROOF"), 3U);
}

TEST(FindBlock, FindsANameInAnyCaseThroughTheReader) {
  DxfBuilder dxf;
  dxf.beginBlock("FIRST").endBlock().beginBlock("DOOR").endBlock();
  ReadDrawing read(dxf.text());
  for (const std::string_view name : {"door", "Door", "DOOR"}) {
    EXPECT_EQ(findBlock(read.drawing, read.reader.upperName(name)), 1U) << name;
  }
}

TEST(FindBlock, GivesZeroForAnUnknownName) {
  DxfBuilder dxf;
  dxf.beginBlock("FIRST").endBlock().beginBlock("DOOR").endBlock();
  EXPECT_EQ(findBlock(ReadDrawing(dxf.text()).drawing, "GATE"), 0U);
  EXPECT_EQ(findBlock(ReadDrawing(DxfBuilder().text()).drawing, "GATE"), 0U);
}

TEST(Drawing, FindsTheFirstOfSeveralRecords) {
  Drawing drawing;
  drawing.addLayer({"A", "1", "FIRST"});
  drawing.addLayer({"A", "2", "SECOND"});
  drawing.addLineType({"DASHED", "1", "1;"});
  drawing.addLineType({"DASHED", "2", "2;"});
  EXPECT_EQ(drawing.findLayer("A"), &drawing.layers[0]);
  EXPECT_EQ(drawing.findLineType("DASHED"), &drawing.lineTypes[0]);
  EXPECT_EQ(drawing.lineTypes[0].number, 0U);
  EXPECT_EQ(drawing.lineTypes[1].number, 1U);
  EXPECT_EQ(drawing.findLayer("a"), nullptr);
  EXPECT_EQ(drawing.findLayer(""), nullptr);
  EXPECT_EQ(drawing.findLineType("HIDDEN"), nullptr);
}

TEST(IsLayout, IsRecognisedByTheStartOfTheName) {
  const auto isLayout = [](std::string_view name) {
    BlockRec block;
    block.name = name;
    return block.isLayout();
  };
  for (const std::string_view name : {"*MODEL_SPACE", "*PAPER_SPACE", "*PAPER_SPACE0",
                                      "$MODEL_SPACE", "$PAPER_SPACE12", "*MODEL_SPACES"}) {
    EXPECT_TRUE(isLayout(name)) << name;
  }
  for (const std::string_view name :
       {"", "MODEL_SPACE", "*MODEL", "*D1", "A*MODEL_SPACE", "*MODELSPACE", "#MODEL_SPACE"}) {
    EXPECT_FALSE(isLayout(name)) << name;
  }
}

TEST(IsLayout, SeesLowerCaseNamesOfADrawing) {
  DxfBuilder dxf;
  dxf.beginBlock("*Model_Space").endBlock().beginBlock("$paper_space").endBlock();
  for (const BlockRec& block : ReadDrawing(dxf.text()).drawing.blocks) {
    EXPECT_TRUE(block.isLayout()) << block.name;
  }
}

TEST(Drawing, NumbersTheLinesOfItsBlocks) {
  for (const std::string_view lineEnd : {"\n", "\r\n"}) {
    DxfBuilder dxf;
    dxf.header("$ORTHOMODE", 70, "0");
    dxf.beginBlock("a").entity("POINT", {{8, "first"}}).endBlock();
    dxf.beginBlock("b")
        .entity("LINE", {{5, "handle"}, {8, "0"}, {10, "second"}, {330, "owner"}})
        .entity("IMAGE", {{8, "0"}})
        .entity("LWPOLYLINE", {{100, "subclass"}, {8, "0"}, {10, "third"}})
        .endBlock();
    const std::string text = dxf.text(lineEnd);
    ReadDrawing read(text);
    const auto lineOf = [&](std::string_view part) {
      const auto end = text.begin() + static_cast<std::ptrdiff_t>(text.find(part));
      return static_cast<std::uint64_t>(std::count(text.begin(), end, lineEnd.front())) + 1;
    };
    const DxfEntity point = read.blockEntity(0, 0);
    const DxfEntity line = read.blockEntity(1, 0);
    const DxfEntity polyline = read.blockEntity(1, 1);
    EXPECT_EQ(read.drawing.lineInBlocks(point.groups), lineOf("first") - 1);
    EXPECT_EQ(read.drawing.lineInBlocks(line.groups), lineOf("handle") - 1);
    EXPECT_EQ(read.drawing.lineInBlocks(polyline.groups), lineOf("subclass") - 1);
    // Its groups are read again, so errors may be in them.
    const std::string_view groups(polyline.groups,
                                  static_cast<std::size_t>(polyline.groupsEnd - polyline.groups));
    EXPECT_EQ(read.drawing.lineInBlocks(groups.data() + groups.find("third")), lineOf("third"));
    EXPECT_EQ(read.drawing.lineInBlocks(nullptr), 0U);
    EXPECT_EQ(read.drawing.lineInBlocks(text.data()), 0U);
  }
}

TEST(Drawing, KeepsOfBlocksWhatTheirEntitiesNeedAndLineEnds) {
  DxfBuilder dxf;
  dxf.beginBlock("a")
      .entity("LINE", {{5, "1A"}, {8, "layer"}, {10, "1.5"}, {20, "2"}, {11, "3"}, {21, "4"}})
      .entity("POINT", {{10, "7"}, {1001, "APPLICATION"}, {20, "6"}})
      .endBlock();
  ReadDrawing read(dxf.text("\r\n"));  // of which the first one ends a line
  const LineRange& text = read.drawing.blocks[0].text;
  const std::string kept(text.begin, text.end);
  for (const std::string_view needed : {"layer", "1.5", "2", "3", "4", "6", "7"}) {
    EXPECT_NE(kept.find(needed), std::string::npos) << needed;
  }
  for (const std::string_view other : {"1A", "LINE", "APPLICATION", "ENDBLK", "10", "\n"}) {
    EXPECT_EQ(kept.find(other), std::string::npos) << other;
  }
  EXPECT_EQ(lineOf(read.blockEntity(0, 0)).end.y, 4.0);
}

}  // namespace
}  // namespace quillon::dxf
