#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "classic/layouts.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::expectPoints;
using testing::kLayerLine;
using testing::kLayerWire;
using testing::kRangeNote;
using testing::layoutOf;
using testing::ScriptCapture;

struct Scales {
  double x = 1.0;
  double y = 1.0;
};

struct Segment {
  explicit Segment(const BulgeSegment& shape, const Settings& settings = {}, Scales scales = {},
                   int layer = 7, base::Unit unit = base::Unit::Mm)
      : capture({.unit = unit}, settings) {
    writeBulgeSegment(capture.context, shape, scales.x, scales.y, layer);
    script = capture.take();
    count = capture.script.commandCount();
  }

  ScriptCapture capture;
  std::string script;
  std::uint64_t count = 0;
};

constexpr double kQuarterBulge = 0.414213562373095;  // tan(22.5 degrees)

TEST(BulgeSegment, OfOneIsAHalfCircleCounterClockwise) {
  const Segment segment({.x1 = 0, .y1 = 0, .x2 = 2, .y2 = 0, .width = 0, .bulge = 1.0});
  EXPECT_EQ(layoutOf(segment.script), kLayerLine + "Arc CCW 0.0000000 P P P;\n");
  expectPoints(segment.script, {{0, 0}, {2, 0}, {2, 0}});
  EXPECT_EQ(segment.count, 2U);
}

TEST(BulgeSegment, OfMinusOneIsAHalfCircleClockwise) {
  const Segment segment({.x1 = 0, .y1 = 0, .x2 = 2, .y2 = 0, .width = 0, .bulge = -1.0});
  EXPECT_EQ(layoutOf(segment.script), kLayerLine + "Arc CW 0.0000000 P P P;\n");
  expectPoints(segment.script, {{0, 0}, {2, 0}, {2, 0}});
  EXPECT_EQ(segment.count, 2U);
}

TEST(BulgeSegment, OfAQuarterCircleHasItsDiameterPointOppositeTheStart) {
  // From (1, 0) to (0, 1): counter-clockwise about the origin, clockwise about (1, 1).
  const Segment left({.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0, .bulge = kQuarterBulge});
  EXPECT_EQ(layoutOf(left.script), kLayerLine + "Arc CCW 0.0000000 P P P;\n");
  expectPoints(left.script, {{1, 0}, {-1, 0}, {0, 1}});
  const Segment right({.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0, .bulge = -kQuarterBulge});
  EXPECT_EQ(layoutOf(right.script), kLayerLine + "Arc CW 0.0000000 P P P;\n");
  expectPoints(right.script, {{1, 0}, {1, 2}, {0, 1}});
}

/// An arc by its circle, from which its bulge segment follows.
struct CircleArc {
  double startAngle;
  double sweep;  ///< negative: clockwise
};

void expectArc(const CircleArc& arc) {
  const Point centre{20.0, -7.0};
  const double radius = 3.0;
  const auto at = [&](double degrees) {
    const double angle = degrees * std::acos(-1.0) / 180.0;
    return Point{centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)};
  };
  const Point start = at(arc.startAngle);
  const Point end = at(arc.startAngle + arc.sweep);
  const double bulge = std::tan(arc.sweep / 4.0 * std::acos(-1.0) / 180.0);
  const Segment segment(
      {.x1 = start.x, .y1 = start.y, .x2 = end.x, .y2 = end.y, .width = 0, .bulge = bulge});
  EXPECT_EQ(layoutOf(segment.script),
            kLayerLine + (arc.sweep < 0.0 ? "Arc CW " : "Arc CCW ") + "0.0000000 P P P;\n");
  expectPoints(segment.script, {start, at(arc.startAngle + 180.0), end});
}

TEST(BulgeSegment, HasItsDiameterPointOppositeTheStartForChordsOfEveryDirection) {
  for (int start = 0; start < 360; start += 15) {
    for (const double sweep : {10.0, 45.0, 90.0, 135.0, 180.0, 200.0, 270.0, 330.0}) {
      expectArc({static_cast<double>(start), sweep});
      expectArc({static_cast<double>(start), -sweep});
    }
  }
}

TEST(BulgeSegment, HasItsDiameterPointOppositeTheStartForChordsAlongTheAxes) {
  // Quarter circles with their centre above, left of, below and right of the chord.
  struct AxisCase {
    Point end;
    Point diameter;
  };
  for (const auto& [end, diameter] : {AxisCase{{12, 1}, {12, 3}}, AxisCase{{10, 3}, {8, 3}},
                                      AxisCase{{8, 1}, {8, -1}}, AxisCase{{10, -1}, {12, -1}}}) {
    const Segment segment({.x1 = 10, .y1 = 1, .x2 = end.x, .y2 = end.y, .bulge = kQuarterBulge});
    expectPoints(segment.script, {{10, 1}, diameter, end});
  }
}

TEST(BulgeSegment, MultipliesItsWidthByTheLargerScale) {
  const BulgeSegment shape{.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0.5, .bulge = 1.0};
  EXPECT_EQ(layoutOf(Segment(shape).script), kLayerLine + "Arc CCW 0.5000000 P P P;\n");
  EXPECT_EQ(layoutOf(Segment(shape, {}, {2, 3}).script), kLayerLine + "Arc CCW 1.5000000 P P P;\n");
  EXPECT_EQ(layoutOf(Segment(shape, {}, {4, -5}).script),
            kLayerLine + "Arc CCW 2.0000000 P P P;\n");
}

TEST(BulgeSegment, KeepsTheSignOfItsWidth) {
  const BulgeSegment arc{.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0.5, .bulge = -1.0};
  EXPECT_EQ(layoutOf(Segment(arc, {}, {-2, -3}).script), kLayerLine + "Arc CW -1.0000000 P P P;\n");
  BulgeSegment straight = arc;
  straight.bulge = 0.0;
  EXPECT_EQ(layoutOf(Segment(straight, {}, {-2, -3}).script),
            kLayerLine + "Wire -1.0000000 P P;\n");
}

TEST(BulgeSegment, HasNoWidthInTheModeWithoutWidth) {
  const BulgeSegment shape{.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0.5, .bulge = 1.0};
  EXPECT_EQ(layoutOf(Segment(shape, {.poly = 0}).script),
            kLayerLine + "Arc CCW 0.0000000 P P P;\n");
  for (const int mode : {1, 2, -1, 3}) {
    EXPECT_EQ(layoutOf(Segment(shape, {.poly = mode}).script),
              kLayerLine + "Arc CCW 0.5000000 P P P;\n");
  }
}

TEST(BulgeSegment, WithABulgeOfNearlyZeroIsAWire) {
  for (const double bulge : {0.0, -0.0, 9.99e-7, -9.99e-7}) {
    const Segment segment({.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .width = 0.5, .bulge = bulge});
    EXPECT_EQ(segment.script,
              kLayerLine + "Wire 0.5000000 (1.0000000 0.0000000) (0.0000000 1.0000000);\n");
    EXPECT_EQ(segment.count, 2U);
  }
}

TEST(BulgeSegment, WithTheSmallestBulgeThatCountsIsAnArc) {
  const Segment left({.x1 = 0.01, .y1 = 0, .x2 = 0, .y2 = 0.05, .bulge = 1e-6});
  EXPECT_TRUE(left.script.starts_with(kLayerLine + "Arc CCW "));
  const Segment right({.x1 = 0.01, .y1 = 0, .x2 = 0, .y2 = 0.05, .bulge = -1e-6});
  EXPECT_TRUE(right.script.starts_with(kLayerLine + "Arc CW "));
}

// Each point's x is compared with its own y, so points on the diagonal count as near.
TEST(BulgeSegment, IsAWireWhenStartAndDiameterPointLieOnTheDiagonal) {
  // Opposite (2, 2).
  const Segment segment({.x1 = 0, .y1 = 0, .x2 = 2, .y2 = 0, .width = 0.5, .bulge = kQuarterBulge});
  EXPECT_EQ(layoutOf(segment.script), kLayerLine + "Wire 0.5000000 P P;\n");
  expectPoints(segment.script, {{0, 0}, {2, 0}});
}

TEST(BulgeSegment, IsAWireWhenDiameterPointAndEndLieOnTheDiagonal) {
  // On the circle about (2, 1.5) through (1, 0): opposite (3, 3), end (0.5, 0.5), clockwise by the
  // angle between (-1, -1.5) and (-1.5, -1), whose tangent is 1.25 / 3.
  const double bulge = std::tan(-std::atan(1.25 / 3.0) / 4.0);
  const Segment segment({.x1 = 1, .y1 = 0, .x2 = 0.5, .y2 = 0.5, .width = 0.5, .bulge = bulge});
  EXPECT_EQ(segment.script,
            kLayerLine + "Wire 0.5000000 (1.0000000 0.0000000) (0.5000000 0.5000000);\n");
}

TEST(BulgeSegment, IsAWireWhenStartAndEndLieOnTheDiagonal) {
  // Opposite (0, 2).
  const Segment segment({.x1 = 0, .y1 = 0, .x2 = 1, .y2 = 1, .width = 0.5, .bulge = kQuarterBulge});
  EXPECT_EQ(segment.script,
            kLayerLine + "Wire 0.5000000 (0.0000000 0.0000000) (1.0000000 1.0000000);\n");
}

TEST(BulgeSegment, JudgesNearnessInTheUnitOfTheScript) {
  // All points are within 0.1 of the diagonal: near in mic only.
  const BulgeSegment shape{.x1 = 5.1, .y1 = 5, .x2 = 5, .y2 = 5.1, .bulge = kQuarterBulge};
  EXPECT_EQ(layoutOf(Segment(shape, {}, {}, 7, base::Unit::Mic).script), kLayerWire);
  EXPECT_EQ(layoutOf(Segment(shape, {}, {}, 7, base::Unit::Mm).script),
            kLayerLine + "Arc CCW 0.0000000 P P P;\n");
}

/// A quarter circle whose diameter point (840, 0) is out of range.
constexpr BulgeSegment kLeavesTheRange{
    .x1 = 836, .y1 = 0, .x2 = 838, .y2 = -2, .width = 0.5, .bulge = kQuarterBulge};

TEST(BulgeSegment, OutOfRangeStaysAnArcWithANoteWithoutTheRangeCheck) {
  const Segment segment(kLeavesTheRange);
  EXPECT_EQ(layoutOf(segment.script),
            kLayerLine + "Arc CCW 0.5000000 P P P;\n" + std::string(kRangeNote));
  expectPoints(segment.script, {{836, 0}, {840, 0}, {838, -2}});
  EXPECT_EQ(segment.count, 3U);
}

TEST(BulgeSegment, BecomesAWireWhenItsDiameterPointIsOutOfRange) {
  const Segment segment(kLeavesTheRange, {.arcRangeCheck = true});
  EXPECT_EQ(segment.script,
            kLayerLine + "Wire 0.5000000 (836.0000000 0.0000000) (838.0000000 -2.0000000);\n");
  EXPECT_EQ(segment.count, 2U);
}

TEST(BulgeSegment, NotesTheRangeOfAWireInPlaceOfAnArc) {
  BulgeSegment shape = kLeavesTheRange;
  shape.x1 = 840;
  shape.x2 = 844;
  const Segment segment(shape, {.arcRangeCheck = true});
  EXPECT_EQ(layoutOf(segment.script),
            kLayerLine + "Wire 0.5000000 P P;\n" + std::string(kRangeNote));
  EXPECT_EQ(segment.count, 3U);
}

TEST(BulgeSegment, WritesNothingOnALayerThatIsNotConverted) {
  const Segment segment({.x1 = 1, .y1 = 0, .x2 = 0, .y2 = 1, .bulge = 1.0}, {}, {}, 999);
  EXPECT_EQ(segment.script, "");
  EXPECT_EQ(segment.count, 0U);
}

TEST(BulgeSegment, RefusesNumbersThatAreNotFinite) {
  EXPECT_THROW(Segment({.x1 = HUGE_VAL, .x2 = 0, .y2 = 1, .bulge = 1.0}), base::RunTimeError);
  EXPECT_THROW(Segment({.x1 = 1, .x2 = 0, .y2 = 1, .width = HUGE_VAL, .bulge = 1.0}),
               base::RunTimeError);
}

}  // namespace
}  // namespace quillon::classic
