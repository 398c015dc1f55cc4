// INSERT and DIMENSION entities whose blocks are drawn in place.
#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

#include "base/run_time_error.h"
#include "classic/layouts.h"
#include "classic/translation.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::DxfBuilder;
using testing::expectPoints;
using testing::GroupList;
using testing::joined;
using testing::kLayerWire;
using testing::layoutOf;
using testing::repeated;
using testing::translate;
using testing::Translation;

/// A drawing with blocks of a single line from (1, 0) to (0, 1) and whatever else a test adds.
class BlockDrawing : public DxfBuilder {
 public:
  BlockDrawing& line() {
    entity("LINE", {{8, "0"}, {10, "1"}, {20, "0"}, {11, "0"}, {21, "1"}});
    return *this;
  }
  BlockDrawing& lineBlock(std::string_view name, std::string_view baseX = "0",
                          std::string_view baseY = "0") {
    beginBlock(name, baseX, baseY);
    line();
    endBlock();
    return *this;
  }
  BlockDrawing& insert(std::string_view name, const GroupList& groups = {}) {
    entity("INSERT", joined({{8, "0"}, {2, name}}, groups));
    return *this;
  }
};

GroupList at(std::string_view x, std::string_view y) { return {{10, x}, {20, y}}; }

TEST(Insert, DrawsTheBlockAtItsPoint) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", at("10", "20"));
  EXPECT_EQ(translate(dxf),
            "Layer  7 ;\nWire 0.0000000 (11.0000000 20.0000000) (10.0000000 21.0000000);\n");
}

TEST(Insert, HasScalesOfOneAndNoRotationByDefault) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B");
  expectPoints(translate(dxf), {{1, 0}, {0, 1}});
  BlockDrawing empty;
  empty.lineBlock("B").insert("B", {{41, ""}, {42, ""}, {50, ""}});
  expectPoints(translate(empty), {{1, 0}, {0, 1}});
}

TEST(Insert, TakesAScaleOfZeroAsItIs) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", joined(at("10", "20"), {{41, "0"}, {42, "2"}}));
  expectPoints(translate(dxf), {{10, 20}, {10, 22}});
}

TEST(Insert, ScalesTheBlockByItsOwnScales) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", joined(at("10", "20"), {{41, "2"}, {42, "-3"}, {43, "99"}}));
  expectPoints(translate(dxf), {{12, 20}, {10, 17}});
}

TEST(Insert, TurnsTheBlockByItsDegrees) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", joined(at("10", "20"), {{50, "90"}}));
  expectPoints(translate(dxf), {{10, 21}, {9, 20}});
}

TEST(Insert, ScalesBeforeItTurns) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", {{41, "2"}, {42, "3"}, {50, "90"}});
  expectPoints(translate(dxf), {{0, 2}, {-3, 0}});
}

TEST(Insert, SubtractsTheBasePoint) {
  BlockDrawing dxf;
  dxf.lineBlock("B", "3", "4").insert("B", at("10", "20"));
  expectPoints(translate(dxf), {{8, 16}, {7, 17}});
}

TEST(Insert, ScalesTheBasePointButDoesNotTurnIt) {
  BlockDrawing dxf;
  dxf.lineBlock("B", "1", "1");
  dxf.insert("B", joined(at("10", "20"), {{41, "2"}, {42, "3"}, {50, "90"}}));
  // Moved by (10 - 2, 20 - 3).
  expectPoints(translate(dxf), {{8, 19}, {5, 17}});
}

TEST(Insert, PlacesItsPointWithTheCallersPlacement) {
  BlockDrawing dxf;
  dxf.lineBlock("B", "1", "1").insert("B", joined(at("10", "20"), {{41, "2"}, {50, "90"}}));
  // Point (10, 20) to (20, 60) to (-60, 20) to (40, 220); scales 4 and 3, half a turn; base (4, 3).
  expectPoints(
      translate(dxf, {.dx = 100, .dy = 200, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2}),
      {{36 - 4, 217}, {36, 217 - 3}});
}

TEST(Insert, MirrorsItsPointByItsExtrusion) {
  BlockDrawing inX;
  inX.lineBlock("B").insert("B", joined(at("10", "20"), {{230, "-1"}}));
  expectPoints(translate(inX), {{-9, 20}, {-10, 21}});
  BlockDrawing inY;
  inY.lineBlock("B").insert("B", joined(at("10", "20"), {{220, "-1"}}));
  expectPoints(translate(inY), {{11, -20}, {10, -19}});
}

TEST(Insert, OfABlockInABlockIsPlacedInIt) {
  BlockDrawing dxf;
  dxf.lineBlock("INNER");
  dxf.beginBlock("OUTER", "1", "1");
  dxf.insert("INNER", joined(at("5", "0"), {{50, "90"}}));
  dxf.endBlock();
  dxf.insert("OUTER", joined(at("10", "20"), {{41, "2"}, {42, "3"}, {50, "90"}}));
  // OUTER is moved by (8, 17); (5, 0) comes to (10, 0) to (0, 10) to (8, 27).
  // INNER has the scales 2 and 3 and half a turn: (1, 0) to (-2, 0), (0, 1) to (0, -3).
  expectPoints(translate(dxf), {{6, 27}, {8, 24}});
}

TEST(Insert, MultipliesScalesOnItsWayDown) {
  BlockDrawing dxf;
  dxf.lineBlock("INNER");
  dxf.beginBlock("OUTER");
  dxf.insert("INNER", {{41, "5"}, {42, "7"}});
  dxf.endBlock();
  dxf.insert("OUTER", {{41, "2"}, {42, "-3"}});
  expectPoints(translate(dxf), {{10, 0}, {0, -21}});
}

TEST(Insert, TakesARotationOfOneTurnAsARotation) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", joined(at("10", "20"), {{50, "360"}}));
  expectPoints(translate(dxf), {{11, 20}, {10, 21}});
}

TEST(Insert, FindsItsBlockWhateverTheCase) {
  BlockDrawing dxf;
  dxf.lineBlock("Door").insert("dOOR");
  EXPECT_EQ(layoutOf(translate(dxf)), kLayerWire);
}

TEST(Insert, FindsTheFirstOfSeveralBlocksWithOneName) {
  BlockDrawing dxf;
  dxf.lineBlock("B", "0", "0").lineBlock("B", "100", "100").insert("B");
  expectPoints(translate(dxf), {{1, 0}, {0, 1}});
}

TEST(Insert, OfABlockThatDoesNotExistDrawsNothing) {
  BlockDrawing dxf;
  dxf.lineBlock("FIRST").insert("NONE");
  EXPECT_EQ(translate(dxf), "");
  BlockDrawing noBlocks;
  noBlocks.insert("NONE");
  EXPECT_EQ(translate(noBlocks), "");
}

TEST(Insert, DoesNotRepeatTheBlockInRowsAndColumns) {
  BlockDrawing dxf;
  dxf.lineBlock("B").insert("B", {{70, "3"}, {71, "4"}, {44, "10"}, {45, "10"}});
  EXPECT_EQ(layoutOf(translate(dxf)), kLayerWire);
}

TEST(Insert, OnALayerThatIsNotConvertedDrawsNothing) {
  BlockDrawing dxf;
  dxf.lineBlock("B");
  dxf.entity("INSERT", {{8, "NOWHERE"}, {2, "B"}});
  EXPECT_EQ(translate(dxf), "");
}

TEST(Insert, LeavesOutTheItemsOnALayerThatIsNotConverted) {
  BlockDrawing dxf;
  dxf.beginBlock("B");
  dxf.entity("LINE", {{8, "NOWHERE"}, {10, "1"}}).entity("LINE", {{8, "0"}, {10, "2"}});
  dxf.endBlock();
  dxf.insert("B");
  expectPoints(translate(dxf), {{2, 0}, {0, 0}});
}

TEST(Insert, DrawsABlockAsOftenAsItIsInserted) {
  BlockDrawing dxf;
  dxf.lineBlock("B");
  dxf.beginBlock("TWICE");
  dxf.insert("B", at("10", "0")).insert("B", at("20", "0"));
  dxf.endBlock();
  dxf.insert("TWICE").insert("TWICE", at("0", "100")).insert("B");
  EXPECT_EQ(layoutOf(translate(dxf)), repeated(kLayerWire, 5));
}

TEST(Insert, DoesNotExpandABlockInsideItself) {
  BlockDrawing dxf;
  dxf.beginBlock("A");
  dxf.line().insert("A", at("10", "0")).line();
  dxf.endBlock();
  dxf.insert("A").insert("A");
  EXPECT_EQ(layoutOf(translate(dxf)), repeated(kLayerWire, 4));
}

TEST(Insert, DoesNotExpandBlocksThatContainEachOtherInsideThemselves) {
  BlockDrawing dxf;
  dxf.beginBlock("A");
  dxf.line().insert("B");
  dxf.endBlock();
  dxf.beginBlock("B");
  dxf.line().insert("A").insert("B");
  dxf.endBlock();
  dxf.insert("A").insert("B");
  EXPECT_EQ(layoutOf(translate(dxf)), repeated(kLayerWire, 4));
}

/// Blocks L1 to L`depth`, each with the next one inside and the last one with a line; L1 inserted.
BlockDrawing nested(int depth) {
  BlockDrawing dxf;
  std::vector<std::string> names;
  for (int i = 1; i <= depth; ++i) names.push_back("L" + std::to_string(i));
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    dxf.beginBlock(names[i]);
    dxf.insert(names[i + 1], at("0.5", "0"));
    dxf.endBlock();
  }
  dxf.lineBlock(names.back()).insert("L1");
  return dxf;
}

TEST(Insert, NestsAThousandBlocksDeep) {
  const std::string script = translate(nested(1'000));
  EXPECT_EQ(layoutOf(script), kLayerWire);
  expectPoints(script, {{500.5, 0}, {499.5, 1}});
}

TEST(Insert, NestedDeeperThanAThousandBlocksIsAnError) {
  Translation translation(nested(1'001));
  try {
    translation.run();
    FAIL() << "expanded 1,001 blocks";
  } catch (const base::RunTimeError& error) {
    EXPECT_EQ(error.fault(), base::Fault::NestingTooDeep);
  }
}

TEST(Insert, StopsSoonAfterACancel) {
  BlockDrawing dxf;
  dxf.beginBlock("B");
  for (int i = 0; i < 5'000; ++i) dxf.line();
  dxf.endBlock();
  dxf.insert("B");
  Translation translation(dxf);
  translation.capture.monitor.cancelWhen = [&translation] {
    return translation.capture.script.commandCount() > 1'000;
  };
  const std::size_t wires = countOf("Wire", translation.run());
  EXPECT_GE(wires, 500U);
  EXPECT_LT(wires, 600U) << "of 5,000";
}

TEST(Dimension, DrawsItsBlockAtItsDefinitionPoint) {
  BlockDrawing dxf;
  dxf.lineBlock("*D1", "3", "4");
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {10, "10"}, {20, "20"}, {11, "50"}, {21, "60"}});
  expectPoints(translate(dxf), {{8, 16}, {7, 17}});
}

TEST(Dimension, HasTheScalesAndRotationOfItsCaller) {
  BlockDrawing dxf;
  dxf.lineBlock("*D1", "1", "1");
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*d1"}, {10, "10"}, {20, "20"}, {41, "9"}, {50, "45"}});
  // Point (10, 20) to (20, 60) to (-60, 20) to (40, 220), less the base (2, 3).
  expectPoints(
      translate(dxf, {.dx = 100, .dy = 200, .scaleX = 2, .scaleY = 3, .rotation = kPi / 2}),
      {{38, 219}, {35, 217}});
}

TEST(Dimension, MirrorsItsDefinitionPoint) {
  BlockDrawing dxf;
  dxf.lineBlock("*D1");
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D1"}, {10, "10"}, {20, "20"}, {230, "-1"}});
  expectPoints(translate(dxf), {{-9, 20}, {-10, 21}});
}

TEST(Dimension, WithoutABlockDrawsNothing) {
  BlockDrawing dxf;
  dxf.lineBlock("*D1");
  dxf.entity("DIMENSION", {{8, "0"}, {2, "*D2"}, {10, "10"}, {20, "20"}});
  dxf.entity("DIMENSION", {{8, "NOWHERE"}, {2, "*D1"}, {10, "10"}, {20, "20"}});
  EXPECT_EQ(translate(dxf), "");
}

TEST(TranslateBlock, DrawsTheItemsOfABlockWithAPlacement) {
  BlockDrawing dxf;
  dxf.lineBlock("B", "100", "100");
  Translation translation(dxf);
  translation.translator.translateBlock(0, {.dx = 10, .dy = 20, .scaleX = 2, .scaleY = 3});
  expectPoints(translation.capture.take(), {{12, 20}, {10, 23}});
}

}  // namespace
}  // namespace quillon::classic
