#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

#include "base/run_time_error.h"
#include "classic/curves.h"
#include "classic/layouts.h"
#include "support/script_capture.h"
#include "support/script_points.h"

namespace quillon::classic {
namespace {

using testing::countOf;
using testing::expectPoints;
using testing::kLayerWire;
using testing::kRangeNote;
using testing::kScriptTolerance;
using testing::layoutOf;
using testing::pointsOf;
using testing::repeated;
using testing::ScriptCapture;

constexpr double kStep = 3.14159265358979 / 64.0;
constexpr double kQuarter = 3.14159265358979 / 2.0;

struct Ellipse {
  explicit Ellipse(const EllipseArc& shape, int segments = kEllipseSegments, int layer = 7) {
    writeEllipse(capture.context, shape, segments, layer, nullptr);
    script = capture.take();
    count = capture.script.commandCount();
  }

  /// The corners of the chain: both ends of the first piece, then the end of every other one.
  std::vector<Point> corners() const {
    const std::vector<Point> points = pointsOf(script);
    std::vector<Point> out;
    for (std::size_t i = 0; i + 1 < points.size(); i += 2) {
      if (out.empty()) out.push_back(points[i]);
      EXPECT_EQ(points[i], out.back()) << "every piece starts where the last one ended";
      out.push_back(points[i + 1]);
    }
    return out;
  }

  ScriptCapture capture;
  std::string script;
  std::uint64_t count = 0;
};

void expectAt(Point point, Point expected) {
  EXPECT_NEAR(point.x, expected.x, kScriptTolerance);
  EXPECT_NEAR(point.y, expected.y, kScriptTolerance);
}

TEST(WriteEllipse, IsAChainOf128WiresForAFullTurn) {
  const Ellipse ellipse({.cx = 10, .cy = 20, .majorX = 5, .majorY = 0, .ratio = 1.0});
  EXPECT_EQ(layoutOf(ellipse.script), repeated(kLayerWire, 128));
  EXPECT_EQ(ellipse.count, 256U);
  const std::vector<Point> corners = ellipse.corners();
  ASSERT_EQ(corners.size(), 129U);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const double t = static_cast<double>(i) * std::acos(-1.0) / 64.0;
    expectAt(corners[i], {10 + 5 * std::cos(t), 20 + 5 * std::sin(t)});
  }
}

TEST(WriteEllipse, HasTheMinorAxisOfItsRatio) {
  const Ellipse ellipse({.majorX = 8, .majorY = 0, .ratio = 0.25});
  const std::vector<Point> corners = ellipse.corners();
  ASSERT_EQ(corners.size(), 129U);
  for (std::size_t i = 0; i < corners.size(); ++i) {
    const double t = static_cast<double>(i) * std::acos(-1.0) / 64.0;
    expectAt(corners[i], {8 * std::cos(t), 2 * std::sin(t)});
  }
}

/// The point of an ellipse at a parameter, computed without angles: major axis m, minor axis m
/// rotated left.
Point onEllipse(Point m, double ratio, double t) {
  return {m.x * std::cos(t) - m.y * ratio * std::sin(t),
          m.y * std::cos(t) + m.x * ratio * std::sin(t)};
}

TEST(WriteEllipse, LiesInTheDirectionOfItsMajorAxis) {
  for (const Point major : {Point{3, 4}, {3, -4}, {-3, 4}, {-3, -4}, {-5, 0}, {5, 0}, {0, 5}}) {
    const Ellipse ellipse({.majorX = major.x, .majorY = major.y, .ratio = 0.5});
    const std::vector<Point> corners = ellipse.corners();
    ASSERT_EQ(corners.size(), 129U);
    for (std::size_t i = 0; i < corners.size(); ++i) {
      const double t = static_cast<double>(i) * std::acos(-1.0) / 64.0;
      expectAt(corners[i], onEllipse(major, 0.5, t));
    }
  }
}

/// The expected text of the point at a parameter, by the formulas that determine its last digits:
/// both the major axis and the point on the flat ellipse have a signed length and an angle from
/// plain atan.
std::string pointText(ScriptCapture& capture, const EllipseArc& ellipse, double t) {
  const auto polar = [](double x, double y, double& length, double& angle) {
    length = std::sqrt(x * x + y * y);
    if (x < 0.0) length = -length;
    angle = x == 0.0 ? kPi / 2.0 : std::atan(y / x);
  };
  double a = 0.0;
  double alpha = 0.0;
  polar(ellipse.majorX, ellipse.majorY, a, alpha);
  double r = 0.0;
  double angle = 0.0;
  polar(a * std::cos(t), a * ellipse.ratio * std::sin(t), r, angle);
  capture.script.formatPoint(ellipse.cx + r * std::cos(angle + alpha),
                             ellipse.cy + r * std::sin(angle + alpha));
  return capture.take();
}

TEST(WriteEllipse, HasPointsWithTheLastDigitsAndSignsOfItsFormulas) {
  std::mt19937 random(5);
  const auto whole = [&random](int from, int to) {
    return from + static_cast<int>(random() % static_cast<unsigned>(to - from + 1));
  };
  // With quadrant-corrected angles, this one would start at (-0.0000000 -13.0000000).
  EllipseArc shape{.cx = 2, .cy = -1, .majorX = -2, .majorY = -12, .ratio = 1.0};
  ScriptCapture capture;
  EXPECT_EQ(pointText(capture, shape, 0.0), "(0.0000000 -13.0000000)");
  for (int i = 0; i < 100; ++i) {
    writeEllipse(capture.context, shape, kEllipseSegments, 7, nullptr);
    const std::string script = capture.take();
    std::string expected;
    std::string last = pointText(capture, shape, 0.0);
    for (int piece = 1; piece <= 128; ++piece) {
      const std::string next =
          pointText(capture, shape, piece == 128 ? kTwoPi : piece * (kPi / 64.0));
      expected.append("Layer  7 ;\nWire 0.0000000 ").append(last).append(" ").append(next);
      expected += ";\n";
      last = next;
    }
    ASSERT_EQ(script, expected) << shape.majorX << ' ' << shape.majorY;
    shape = {.cx = 1.0 * whole(-2, 2),
             .cy = 1.0 * whole(-2, 2),
             .majorX = 1.0 * whole(-20, 20),
             .majorY = 1.0 * whole(-20, 20),
             .ratio = whole(1, 8) / 8.0};
  }
}

TEST(WriteEllipse, TakesAMajorAxisStraightDownAsStraightUp) {
  const Ellipse ellipse({.majorX = 0, .majorY = -5, .ratio = 0.5, .endParam = kQuarter});
  expectAt(ellipse.corners().front(), {0, 5});
  expectAt(ellipse.corners().back(), {-2.5, 0});
}

TEST(WriteEllipse, WithANegativeRatioRunsTheOtherWayRound) {
  const Ellipse ellipse({.majorX = 5, .majorY = 0, .ratio = -0.5, .endParam = kQuarter});
  expectAt(ellipse.corners().front(), {5, 0});
  expectAt(ellipse.corners().back(), {0, -2.5});
}

TEST(WriteEllipse, WithARatioOfZeroIsFlat) {
  const Ellipse ellipse({.cy = 1, .majorX = 5, .majorY = 0, .ratio = 0.0});
  for (const Point corner : ellipse.corners()) EXPECT_NEAR(corner.y, 1.0, kScriptTolerance);
  expectAt(ellipse.corners()[64], {-5, 1});
}

TEST(WriteEllipse, WithoutAMajorAxisIsDrawnAtItsCentre) {
  const Ellipse ellipse({.cx = 1, .cy = 2, .majorX = 0, .majorY = 0, .ratio = 0.5});
  EXPECT_EQ(layoutOf(ellipse.script), repeated(kLayerWire, 128));
  for (const Point corner : ellipse.corners()) EXPECT_EQ(corner, (Point{1, 2}));
}

TEST(WriteEllipse, StepsFromItsStartAndEndsExactlyAtItsEnd) {
  const Ellipse ellipse({.majorX = 5, .majorY = 0, .startParam = 0.3, .endParam = 0.4});
  const std::vector<Point> corners = ellipse.corners();
  ASSERT_EQ(corners.size(), 4U);
  const double parameters[] = {0.3, 0.3 + kStep, 0.3 + 2 * kStep, 0.4};
  for (std::size_t i = 0; i < 4; ++i) {
    expectAt(corners[i], {5 * std::cos(parameters[i]), 5 * std::sin(parameters[i])});
  }
}

TEST(WriteEllipse, HasNoPieceLeftOverWhereAStepMeetsTheEnd) {
  for (const int quarters : {1, 2, 3, 4}) {
    const Ellipse ellipse({.majorX = 5, .majorY = 0, .endParam = quarters * kQuarter});
    EXPECT_EQ(countOf("Wire", ellipse.script), 32U * static_cast<unsigned>(quarters));
  }
}

TEST(WriteEllipse, TakesAPointWithinTheToleranceOfTheEndAsTheEnd) {
  const EllipseArc shape{.majorX = 5, .majorY = 0};
  EllipseArc within = shape;
  within.endParam = 2 * kStep + 0.5e-9;
  EXPECT_EQ(countOf("Wire", Ellipse(within).script), 2U);
  EllipseArc beyond = shape;
  beyond.endParam = 2 * kStep + 2e-9;
  EXPECT_EQ(countOf("Wire", Ellipse(beyond).script), 3U);
}

TEST(WriteEllipse, StartsATurnEarlierWhenItsEndIsSmallerThanItsStart) {
  const Ellipse ellipse(
      {.majorX = 5, .majorY = 0, .ratio = 0.5, .startParam = 3 * kQuarter, .endParam = kQuarter});
  EXPECT_EQ(countOf("Wire", ellipse.script), 64U);
  const std::vector<Point> corners = ellipse.corners();
  expectAt(corners.front(), {0, -2.5});
  expectAt(corners[32], {5, 0});
  expectAt(corners.back(), {0, 2.5});
}

TEST(WriteEllipse, WritesNothingWhenItsEndIsItsStart) {
  for (const double parameter : {0.0, 1.0, -2.0}) {
    const Ellipse ellipse({.majorX = 5, .startParam = parameter, .endParam = parameter});
    EXPECT_EQ(ellipse.script, "");
    EXPECT_EQ(ellipse.count, 0U);
  }
}

TEST(WriteEllipse, TakesMoreThanOneTurnAsItIs) {
  const Ellipse ellipse({.majorX = 5, .majorY = 0, .startParam = 0, .endParam = 6 * kQuarter});
  EXPECT_EQ(countOf("Wire", ellipse.script), 192U);
}

TEST(WriteEllipse, HasTheSamePointsInASecondTurnAndFromAnotherStart) {
  ScriptCapture capture;
  for (const double start : {0.0, -0.0, 0.25, -3.0, 1e-300}) {
    const EllipseArc shape{
        .majorX = 5, .majorY = 2, .ratio = 0.3, .startParam = start, .endParam = start + 13.0};
    writeEllipse(capture.context, shape, kEllipseSegments, 7, nullptr);
    const std::string script = capture.take();
    std::string expected;
    std::string last = pointText(capture, shape, start);
    for (int piece = 1; piece <= 265; ++piece) {
      const double t = piece == 265 ? start + 13.0 : start + piece * (kPi / 64.0);
      const std::string next = pointText(capture, shape, t);
      expected.append("Layer  7 ;\nWire 0.0000000 ").append(last).append(" ").append(next);
      expected += ";\n";
      last = next;
    }
    EXPECT_EQ(script, expected) << start;
  }
}

TEST(WriteEllipse, HasFourPiecesForEverySegmentOfAFullTurn) {
  const Ellipse ellipse({.cx = 1, .majorX = 5, .majorY = 0}, 1);
  EXPECT_EQ(layoutOf(ellipse.script), repeated(kLayerWire, 4));
  const std::vector<Point> corners = ellipse.corners();
  expectAt(corners[0], {6, 0});
  expectAt(corners[1], {1, 5});
  expectAt(corners[2], {-4, 0});
  expectAt(corners[3], {1, -5});
  expectAt(corners[4], {6, 0});
}

TEST(WriteEllipse, WritesNothingOnALayerThatIsNotConverted) {
  const Ellipse ellipse({.majorX = 5}, kEllipseSegments, 999);
  EXPECT_EQ(ellipse.script, "");
  EXPECT_EQ(ellipse.count, 0U);
}

TEST(WriteEllipse, NotesTheRangeAfterEveryPieceThatExceedsIt) {
  const Ellipse ellipse({.cx = 834, .majorX = 5, .majorY = 0}, 1);
  const std::string note(kRangeNote);
  EXPECT_EQ(layoutOf(ellipse.script),
            kLayerWire + note + kLayerWire + kLayerWire + kLayerWire + note);
  EXPECT_EQ(ellipse.count, 8U + 2U);
}

TEST(WriteEllipse, HasDashesOnEveryPiece) {
  ScriptCapture capture({}, {.dotted = true, .ltScale = 1.0});
  const DashPattern pattern = {50.0, -1000.0};
  writeEllipse(capture.context, {.majorX = 100, .majorY = 0}, 1, 7, &pattern);
  const std::string script = capture.take();
  EXPECT_EQ(layoutOf(script), repeated(kLayerWire, 4));
  // A dash of 50 along a chord that runs at 45 degrees.
  const double side = 50.0 * std::sqrt(0.5);
  expectPoints(script, {{100, 0},
                        {100 - side, side},
                        {0, 100},
                        {-side, 100 - side},
                        {-100, 0},
                        {-100 + side, -side},
                        {0, -100},
                        {side, -100 + side}});
}

TEST(WriteEllipse, StopsSoonAfterACancelHoweverFarItsEnd) {
  for (const double end : {1e9, 1e300}) {
    ScriptCapture capture;
    capture.monitor.cancelWhen = [&capture] { return capture.script.commandCount() > 2'000; };
    writeEllipse(capture.context, {.majorX = 5, .endParam = end}, kEllipseSegments, 7, nullptr);
    const std::size_t wires = countOf("Wire", capture.take());
    EXPECT_GE(wires, 1'000U);
    EXPECT_LT(wires, 1'100U);
  }
}

TEST(WriteEllipse, RefusesParametersThatAreNotFinite) {
  for (const double bad : {HUGE_VAL, -HUGE_VAL}) {
    EXPECT_THROW(Ellipse({.majorX = 5, .startParam = 0, .endParam = bad}), base::RunTimeError);
    EXPECT_THROW(Ellipse({.majorX = 5, .startParam = bad, .endParam = 1}), base::RunTimeError);
    EXPECT_EQ(Ellipse({.majorX = 5, .endParam = bad}, kEllipseSegments, 999).script, "");
  }
}

TEST(WriteEllipse, RefusesNumbersThatAreNotFinite) {
  EXPECT_THROW(Ellipse({.cx = HUGE_VAL, .majorX = 5}), base::RunTimeError);
  EXPECT_THROW(Ellipse({.majorX = HUGE_VAL}), base::RunTimeError);
  EXPECT_THROW(Ellipse({.majorX = 5, .ratio = HUGE_VAL}), base::RunTimeError);
  EXPECT_THROW(Ellipse({.majorX = 5, .endParam = HUGE_VAL}), base::RunTimeError);
}

}  // namespace
}  // namespace quillon::classic
