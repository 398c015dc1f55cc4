#include "geometry/near_arc.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <random>
#include <utility>
#include <vector>

#include "geometry/arc.h"
#include "geometry/biarcs.h"
#include "geometry/cubic_points.h"
#include "geometry/degrees.h"
#include "geometry/ellipse.h"
#include "geometry/fine_settings.h"
#include "geometry/path_tools.h"
#include "geometry/spline.h"

namespace quillon::geometry {
namespace {

using testing::kFine;

constexpr double kAllowed = 0.01;
constexpr double kArcResolution = 1e-5;

struct Counts {
  int nearby = 0;
  int distant = 0;
  int unclear = 0;
};

/// Compares with the distance, at places all around the arc and just at the limit.
void compare(const NearArc& nearArc, const Arc& arc, std::mt19937& random, Counts& counts) {
  std::uniform_real_distribution<double> number(-1.0, 1.0);
  const ArcDistance distance(arc);
  for (int i = 0; i < 20; ++i) {
    const double fraction = 0.5 + 0.6 * number(random);
    const Point beside = leftOf(tangentAt(arc, std::clamp(fraction, 0.0, 1.0)));
    const double away =
        kAllowed * (i % 2 == 0 ? 3.0 * number(random) : 1.0 + 1e-7 * number(random));
    const Point p = pointAt(arc, fraction) + beside * away;
    switch (nearArc(p)) {
      case Nearness::Near:
        EXPECT_LE(distance(p), kAllowed);
        ++counts.nearby;
        break;
      case Nearness::Far:
        EXPECT_GT(distance(p), kAllowed);
        ++counts.distant;
        break;
      case Nearness::Unclear:
        EXPECT_NEAR(distance(p), kAllowed, 3e-6 * kAllowed);
        ++counts.unclear;
    }
  }
}

/// How far the ends of an arc are from where its tangents meet.
double reachOf(const Arc& arc) {
  return 0.5 * chord(arc) / std::fabs(unitVector(0.5 * arc.curve).x);
}

std::optional<NearArc> nearArcOf(const Arc& arc, const NearLimits& limits) {
  return NearArc::between(arc.start, arc.end, {tangentAt(arc, 0.0), tangentAt(arc, 1.0)},
                          reachOf(arc), kArcResolution, limits);
}

TEST(NearArc, AgreesWithTheDistance) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> number(-1.0, 1.0);
  const NearLimits limits = *NearLimits::around(kAllowed, 2.0);
  Counts counts;
  for (int i = 0; i < 4000; ++i) {
    const Point start{number(random), number(random)};
    const Point end{number(random), number(random)};
    // From all but straight to almost half a turn.
    const double curve = 171.0 * number(random) * (i % 3 == 0 ? 1e-3 : 1.0);
    Arc arc{start, end, curve};
    const auto nearArc = nearArcOf(arc, limits);
    if (isStraight(arc, kArcResolution)) arc.curve = 0.0;
    // Of arcs with a radius as small as the tolerance nothing is told.
    if (!(radius(arc) > 3.0 * kAllowed)) continue;
    ASSERT_TRUE(nearArc) << i;
    EXPECT_EQ(nearArc->isLine(), arc.curve == 0.0) << i;
    compare(*nearArc, arc, random, counts);
  }
  EXPECT_GT(counts.nearby, 5000);
  EXPECT_GT(counts.distant, 5000);
  EXPECT_GT(counts.unclear, 5000);
}

TEST(NearArc, PointsAreBesideWhereEachIsNearToTheArcOfItsHalfAndNoneBeyondAnEnd) {
  const NearLimits limits = *NearLimits::around(kAllowed, 2.0);
  for (const double curve : {80.0, -80.0}) {
    const Arc first{{0.0, 0.0}, {1.0, 0.0}, curve};
    const Point tangent = tangentAt(first, 1.0);
    const Arc second{first.end, first.end + turned(tangent, unitVector(-10.0)), -20.0};
    const auto isBeside = [&](const PartPoints& points) {
      return NearArc::areBeside(*nearArcOf(first, limits), *nearArcOf(second, limits), points);
    };
    const auto away = [](const Arc& arc, double fraction, double distance) {
      return pointAt(arc, fraction) + leftOf(tangentAt(arc, fraction)) * distance;
    };
    constexpr std::size_t kHalf = kPointsInPart / 2;
    PartPoints points;
    for (std::size_t i = 0; i < kPointsInPart; ++i) {
      const double distance = (i % 2 == 0 ? 0.9 : -0.9) * kAllowed;
      const double fraction = (static_cast<double>(i % (kHalf + 1)) + 0.5) / (kHalf + 1);
      points.set(i, away(i <= kHalf ? first : second, fraction, distance));
    }
    EXPECT_TRUE(isBeside(points));
    for (std::size_t i = 0; i < kPointsInPart; ++i) {
      const Arc& arc = i < kHalf ? first : second;
      const double nan = std::numeric_limits<double>::quiet_NaN();
      for (const Point& other :
           {away(arc, 0.5, 1.1 * kAllowed), away(arc, 0.5, -1.1 * kAllowed),
            arc.start - tangentAt(arc, 0.0) * 1e-3, arc.end + tangentAt(arc, 1.0) * 1e-3,
            Point{nan, 0.0}, Point{0.0, nan}}) {
        PartPoints changed = points;
        changed.set(i, other);
        // The one in the middle is not looked at.
        EXPECT_EQ(isBeside(changed), i == kHalf) << i << ' ' << other.x << ' ' << other.y;
      }
    }
  }
}

TEST(NearArc, TellsNothingOfHalfATurn) {
  const NearLimits limits = *NearLimits::around(kAllowed, 2.0);
  EXPECT_FALSE(nearArcOf({{0, 0}, {1, 0}, 180.0}, limits));
  EXPECT_FALSE(nearArcOf({{0, 0}, {1, 0}, -179.0}, limits));
}

TEST(NearArc, TellsNothingWhereItMayBeALineOrAnArc) {
  const NearLimits limits = *NearLimits::around(kAllowed, 2.0);
  // Twice the sagitta is the resolution at the curve in the middle.
  const double curve = 4.0 * degreesOf(kArcResolution);
  const auto nearArcWith = [&](double share) {
    return nearArcOf({{0, 0}, {1, 0}, share * curve}, limits);
  };
  EXPECT_TRUE(nearArcWith(0.99)->isLine());
  EXPECT_FALSE(nearArcWith(1.0));
  EXPECT_FALSE(nearArcWith(1.01)->isLine());
}

TEST(NearLimits, ThereAreNoneWhereRoundingMatters) {
  EXPECT_TRUE(NearLimits::around(0.001, 1e6));
  EXPECT_FALSE(NearLimits::around(0.001, 1e8));
  EXPECT_FALSE(NearLimits::around(0.001, std::numeric_limits<double>::infinity()));
}

/// Cubics and below, with knots that are equal, close and far apart.
std::vector<Spline> someSplines() {
  std::mt19937 random(2);
  std::uniform_real_distribution<double> place(-100.0, 100.0);
  std::uniform_int_distribution<int> step(0, 3);
  std::vector<Spline> splines;
  for (int i = 0; i < 60; ++i) {
    const int degree = 1 + i % 3;
    std::vector<Point> points(static_cast<std::size_t>(4 + i % 9));
    for (Point& p : points) p = {place(random), place(random)};
    std::vector<double> knots;
    double knot = 1000.0 * step(random);
    for (std::size_t k = 0; k < points.size() + static_cast<std::size_t>(degree) + 1; ++k) {
      knots.push_back(knot += step(random) * (k % 5 == 0 ? 0.01 : 1.0));
    }
    splines.emplace_back(degree, points, knots);
  }
  return splines;
}

TEST(CubicPoints, AreThoseOfTheSpline) {
  for (const Spline& spline : someSplines()) {
    CubicPoints points(spline);
    EXPECT_LE(points.size(), 100.0);
    for (int i = 0; i <= 100; ++i) {
      const double t = spline.first() + (spline.last() - spline.first()) * i / 100.0;
      // At a knot with a jump either side may be meant.
      const Point before = spline.sample(t, Side::kBefore).at;
      const Point after = spline.sample(t, Side::kAfter).at;
      EXPECT_LT(std::min(distance(points.at(t), before), distance(points.at(t), after)), 1e-10);
    }
  }
}

TEST(CubicPoints, DivideAPartWithinASpanOrAcrossSeveral) {
  for (const Spline& spline : someSplines()) {
    CubicPoints points(spline);
    const double width = spline.last() - spline.first();
    for (const auto& [from, to] : {std::pair(0.0, 1.0), {0.3, 0.9}, {0.5, 0.501}, {0.9, 1.0}}) {
      const double start = spline.first() + from * width;
      const double step = (to - from) * width / (kPointsInPart + 1);
      PartPoints divided;
      const double end = start + step * (kPointsInPart + 1);
      points.divide(start, end, {}, divided);
      EXPECT_LT(distance(points.middle(start, end, {}), divided[kPointsInPart / 2]), 1e-7);
      for (std::size_t i = 0; i < kPointsInPart; ++i) {
        const double t = start + step * static_cast<double>(i + 1);
        const Point before = spline.sample(t, Side::kBefore).at;
        const Point after = spline.sample(t, Side::kAfter).at;
        EXPECT_LT(std::min(distance(divided[i], before), distance(divided[i], after)), 1e-7);
      }
    }
  }
}

TEST(CubicPoints, LeaveThePathAsItIs) {
  for (const Spline& spline : someSplines()) {
    const Curve curve = [&](double t, Side side) { return spline.sample(t, side); };
    Path sampled;
    appendBiarcs(curve, spline.cuts(), spline.checks(), kFine, sampled);
    closeWhereEndsMeet(sampled, kFine.resolution);
    EXPECT_EQ(splinePath(spline, kFine).path, sampled);
  }
}

TEST(EllipsePath, PointsByTurnsLeaveThePathAsItIs) {
  std::mt19937 random(3);
  std::uniform_real_distribution<double> size(0.01, 100.0);
  for (int i = 0; i < 200; ++i) {
    const Ellipse ellipse{{size(random), size(random)}, {size(random), 0.0}, {0.0, size(random)}};
    const std::array<double, 5> cuts{0.0, 90.0, 180.0, 270.0, 360.0};
    const Curve curve = [&](double t, Side) -> CurveSample {
      const Point way = unitVector(t);
      return {ellipse.centre + ellipse.u * way.x + ellipse.v * way.y,
              ellipse.v * way.x - ellipse.u * way.y};
    };
    Path sampled;
    appendBiarcs(curve, cuts, {}, kFine, sampled);
    sampled.vertices.pop_back();
    sampled.closed = true;
    EXPECT_EQ(ellipsePath(ellipse, kFine).path, sampled);
  }
}

}  // namespace
}  // namespace quillon::geometry
