// Block insertions that are offered as library parts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "classic/layouts.h"
#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::DxfBuilder;
using testing::kLayerWire;
using testing::layoutOf;
using testing::Translation;

/// Records what it is offered; takes blocks with an index in `taken`.
class RecordingParts : public rules::BlockParts {
 public:
  struct Offer {
    std::size_t block;
    Point insertion;
    Placement placement;
  };

  bool insertPart(std::size_t blockIndex, Point insertion, const Placement& placement) override {
    offers.push_back({blockIndex, insertion, placement});
    return blockIndex == taken;
  }

  std::size_t taken = 0;
  std::vector<Offer> offers;
};

/// Block 0 (A) and block 1 (B) have a line each, block 2 (BOTH) has an insertion of each.
DxfBuilder partsDrawing() {
  DxfBuilder dxf;
  for (const std::string_view name : {"A", "B"}) {
    dxf.beginBlock(name, "3", "4").entity("LINE", {{8, "0"}, {10, "1"}}).endBlock();
  }
  dxf.beginBlock("BOTH");
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}, {10, "5"}, {20, "6"}, {41, "2"}, {50, "90"}});
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "5"}, {20, "6"}, {42, "-3"}});
  dxf.endBlock();
  return dxf;
}

class BlockPartsTest : public ::testing::Test {
 protected:
  std::string run(const DxfBuilder& dxf, const Placement& placement = {}) {
    Translation translation(dxf, {}, nullptr, placement);
    translation.translator.setBlockParts(&parts);
    return translation.run();
  }

  RecordingParts parts;
};

TEST_F(BlockPartsTest, AreOfferedThePlacedPointAndThePlacementOfTheBlock) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}, {10, "10"}, {20, "20"}, {41, "5"}, {50, "90"}});
  EXPECT_EQ(run(dxf, {.dx = 100, .dy = 200, .scaleX = 2, .scaleY = 3}), "");
  ASSERT_EQ(parts.offers.size(), 1U);
  const RecordingParts::Offer& offer = parts.offers[0];
  EXPECT_EQ(offer.block, 0U);
  EXPECT_EQ(offer.insertion, (Point{120, 260})) << "the base point is not subtracted";
  EXPECT_EQ(offer.placement.scaleX, 10.0);
  EXPECT_EQ(offer.placement.scaleY, 3.0);
  EXPECT_EQ(offer.placement.rotation, 90.0 * 3.14159265358979 / 180.0);
}

TEST_F(BlockPartsTest, ThatAreNotTakenAreDrawnInPlace) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "0"}, {2, "B"}, {10, "10"}, {20, "20"}});
  const std::string script = run(dxf);
  EXPECT_EQ(layoutOf(script), kLayerWire);
  testing::expectPoints(script, {{8, 16}, {7, 16}});
}

TEST_F(BlockPartsTest, AreOfferedInsideBlocksThatAreDrawnInPlace) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "0"}, {2, "BOTH"}, {10, "100"}, {20, "0"}});
  EXPECT_EQ(layoutOf(run(dxf)), kLayerWire);
  ASSERT_EQ(parts.offers.size(), 3U);
  EXPECT_EQ(parts.offers[0].block, 2U);
  EXPECT_EQ(parts.offers[1].block, 0U);
  EXPECT_EQ(parts.offers[1].insertion, (Point{105, 6}));
  EXPECT_EQ(parts.offers[2].block, 1U);
  EXPECT_EQ(parts.offers[2].placement.scaleY, -3.0);
}

TEST_F(BlockPartsTest, AreOfferedTheBlocksOfDimensions) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("DIMENSION", {{8, "0"}, {2, "A"}, {10, "10"}, {20, "20"}});
  EXPECT_EQ(run(dxf, {.scaleX = 2, .scaleY = 3, .rotation = 0.5}), "");
  ASSERT_EQ(parts.offers.size(), 1U);
  EXPECT_EQ(parts.offers[0].placement.scaleX, 2.0);
  EXPECT_EQ(parts.offers[0].placement.scaleY, 3.0);
  EXPECT_EQ(parts.offers[0].placement.rotation, 0.5);
}

TEST_F(BlockPartsTest, AreNotOfferedOnALayerThatIsNotConverted) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "NOWHERE"}, {2, "A"}}).entity("DIMENSION", {{8, "NOWHERE"}, {2, "A"}});
  EXPECT_EQ(run(dxf), "");
  EXPECT_TRUE(parts.offers.empty());
}

TEST_F(BlockPartsTest, AreNotOfferedForANameThatNoBlockHas) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "0"}, {2, "NONE"}}).entity("DIMENSION", {{8, "0"}, {2, "NONE"}});
  EXPECT_EQ(run(dxf), "");
  EXPECT_TRUE(parts.offers.empty());
}

TEST_F(BlockPartsTest, CanBeTakenAwayAgain) {
  DxfBuilder dxf = partsDrawing();
  dxf.entity("INSERT", {{8, "0"}, {2, "A"}});
  Translation translation(dxf);
  translation.translator.setBlockParts(&parts);
  translation.translator.setBlockParts(nullptr);
  EXPECT_EQ(layoutOf(translation.run()), kLayerWire);
  EXPECT_TRUE(parts.offers.empty());
}

}  // namespace
}  // namespace quillon::classic
