// Drawings made to exhaust the memory, the time or the numbers of a converter.
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <string>
#include <vector>

#include "exact/block_places.h"
#include "exact/rule_set.h"
#include "exact/whole_numbers.h"
#include "exact_drawing.h"
#include "geometry/gaps.h"
#include "support/timing.h"

namespace quillon::testing {
namespace {

using exact::LossRule;

TEST(ExactHostile, WholeNumbersAreCutToWhatFits) {
  EXPECT_EQ(exact::cutInteger(5.9), 5);
  EXPECT_EQ(exact::cutInteger(1e300), 2147483647);
  EXPECT_EQ(exact::cutInteger(-std::numeric_limits<double>::infinity()), -2147483647);
  EXPECT_EQ(exact::cutInteger(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST(ExactHostile, HugeFlagsHaveAllBits) {
  DxfBuilder dxf;
  dxf.layer("ICE", {{70, "1e300"}, {62, "7"}, {370, "1e300"}, {6, "CONTINUOUS"}});
  dxf.entity("LINE", {{8, "ICE"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  EXPECT_EQ(ExactDrawing(dxf).lossList().countOf(LossRule::LayerFrozen), 1U);
}

std::string lineInBlockScaledBy(std::string_view scale) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "0"}, {10, "1"}, {20, "0"}, {11, "2"}, {21, "0"}})
      .entity("TEXT", {{8, "0"}, {10, "1"}, {20, "0"}, {40, "1"}, {1, "x"}})
      .endBlock()
      .entity("INSERT", {{8, "0"}, {2, "B"}, {10, "0"}, {20, "0"}, {41, scale}, {42, scale}});
  const ExactDrawing drawing(dxf);
  return drawing.shapes() + std::to_string(drawing.lossList().countOf(LossRule::UnusableNumbers));
}

TEST(ExactHostile, WhatABlockMakesTooLargeIsNamed) {
  EXPECT_EQ(lineInBlockScaledBy("1e300"), "2");
  EXPECT_EQ(lineInBlockScaledBy("1e999"), "2");
}

DxfBuilder arrayOfBlocks(std::string_view columns, std::string_view rows) {
  DxfBuilder dxf;
  dxf.beginBlock("B")
      .entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}})
      .endBlock()
      .entity("INSERT", {{8, "0"},
                         {2, "B"},
                         {10, "0"},
                         {20, "0"},
                         {70, columns},
                         {71, rows},
                         {44, "10"},
                         {45, "5"}});
  return dxf;
}

TEST(ExactHostile, AnArrayIsDrawnUpToTheLimitOfSteps) {
  const ExactDrawing drawing(arrayOfBlocks("32767", "32767"), {}, {}, 1000);
  EXPECT_EQ(drawing.shapes().substr(0, 61),
            "7 wire 0 (0 0) (1 0)\n7 wire 0 (10 0) (11 0)\n7 wire 0 (20 0) (");
  EXPECT_LT(drawing.steps(), 1020U);
}

TEST(ExactHostile, CellsAreWorkedOutRowByRow) {
  EXPECT_EQ(ExactDrawing(arrayOfBlocks("2", "2")).shapes(),
            "7 wire 0 (0 0) (1 0)\n7 wire 0 (10 0) (11 0)\n"
            "7 wire 0 (0 5) (1 5)\n7 wire 0 (10 5) (11 5)\n");
}

/// Ten times as many lines at each level.
DxfBuilder nestedBlocks() {
  constexpr int kLevels = 12;
  constexpr int kTimes = 10;
  DxfBuilder dxf;
  for (int level = 0; level < kLevels; ++level) {
    dxf.beginBlock("L" + std::to_string(level));
    for (int i = 0; i < kTimes; ++i) {
      const std::string inner = "L" + std::to_string(level + 1);
      const std::string x = std::to_string(i);
      dxf.entity("INSERT", {{8, "0"}, {2, inner}, {10, x}, {20, "0"}});
    }
    dxf.endBlock();
  }
  dxf.beginBlock("L12").entity("LINE", {{8, "0"}, {10, "0"}, {20, "0"}, {11, "1"}, {21, "0"}});
  dxf.endBlock().entity("INSERT", {{8, "0"}, {2, "L0"}, {10, "0"}, {20, "0"}});
  return dxf;
}

TEST(ExactHostile, BlocksThatMultiplyEndAtTheLimitOfSteps) {
  const ExactDrawing drawing(nestedBlocks(), {}, {}, 10000);
  EXPECT_NE(drawing.shapes(), "");
  EXPECT_LT(drawing.steps(), 10100U);
}

/// A star of as many corners, whose edges nearly all cross each other.
std::string starHatch(int corners) {
  std::string dxf =
      "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n100\nAcDbHatch\n10\n0\n20\n0\n30\n0\n";
  dxf +=
      "2\nSOLID\n70\n1\n71\n0\n91\n1\n92\n2\n72\n0\n73\n1\n93\n" + std::to_string(corners) + "\n";
  const int step = corners / 2 - 1;
  for (int i = 0; i < corners; ++i) {
    const double angle = 6.283185307179586 * i * step / corners;
    dxf += "10\n" + std::to_string(100.0 * std::cos(angle)) + "\n20\n" +
           std::to_string(100.0 * std::sin(angle)) + "\n";
  }
  return dxf + "97\n0\n75\n0\n76\n1\n98\n0\n0\nENDSEC\n0\nEOF\n";
}

TEST(ExactHostile, TenThousandCrossingEdgesAreGivenUp) {
  const std::string dxf = starHatch(10001);
  std::string losses;
  const double seconds = leastSeconds([&] { losses = ExactDrawing(dxf).losses(); });
  EXPECT_EQ(losses, "area-too-intricate HATCH 1 line 7\n");
  EXPECT_LT(seconds, 5.0 * patience());
}

/// A loop of half circles along a line and back below.
std::string hatchOfArcs(int arcs) {
  std::string dxf =
      "0\nSECTION\n2\nENTITIES\n0\nHATCH\n8\n0\n100\nAcDbHatch\n10\n0\n20\n0\n30\n0\n";
  dxf += "2\nSOLID\n70\n1\n71\n0\n91\n1\n92\n1\n93\n" + std::to_string(arcs + 3) + "\n";
  const auto line = [&dxf](int x, int y, int toX, int toY) {
    dxf += "72\n1\n10\n" + std::to_string(x) + "\n20\n" + std::to_string(y) + "\n11\n" +
           std::to_string(toX) + "\n21\n" + std::to_string(toY) + "\n";
  };
  for (int i = arcs; i-- > 0;) {
    dxf += "72\n2\n10\n" + std::to_string(i) + ".5\n20\n0\n40\n0.5\n50\n0\n51\n180\n73\n1\n";
  }
  line(0, 0, 0, -1);
  line(0, -1, arcs, -1);
  line(arcs, -1, arcs, 0);
  return dxf + "97\n0\n75\n0\n76\n1\n98\n0\n0\nENDSEC\n0\nEOF\n";
}

TEST(ExactHostile, LongLoopsOfArcsTakeLinearTime) {
  const auto seconds = [](int arcs) {
    const std::string dxf = hatchOfArcs(arcs);
    return leastSeconds([&dxf] { EXPECT_NE(ExactDrawing(dxf).shapes(), ""); });
  };
  EXPECT_LT(seconds(40000), 7.0 * seconds(10000));
}

/// Seconds to find the gaps between lines whose ends have these heights.
double secondsForGaps(const std::function<double(int)>& heightOf) {
  constexpr int kLines = 30000;
  std::vector<geometry::Piece> pieces;
  for (int i = 0; i < kLines; ++i) {
    pieces.push_back({geometry::Edge{{2.0 * i, heightOf(i)}, {2.0 * i + 1.0, heightOf(i)}}});
  }
  const geometry::JoinedEnds ends = geometry::joinEnds(pieces, 0.01);
  return leastSeconds([&] {
    const auto gaps = geometry::gapsBetween(geometry::endsLeft(pieces, ends), {});
    EXPECT_EQ(gaps.size(), 2U * kLines);
  });
}

TEST(ExactHostile, GapsInARowTakeNoLongerThanScatteredOnes) {
  const double row = secondsForGaps([](int) { return 0.0; });
  const double scattered = secondsForGaps([](int i) { return i * 7919 % 30000 * 2.0; });
  EXPECT_LT(row, 3.0 * scattered);
}

}  // namespace
}  // namespace quillon::testing
