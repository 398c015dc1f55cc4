#include "geometry/path_tools.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstddef>
#include <limits>
#include <numbers>
#include <random>

#include "geometry/dense_path.h"
#include "geometry/vectors.h"

namespace quillon::geometry {
namespace {

using testing::DensePath;

constexpr double kResolution = 0.0001;

/// A square of side 2 with a half circle instead of its right side.
const Path kTombstone{
    {{{0.0, 0.0}, 0.0}, {{2.0, 0.0}, 180.0}, {{2.0, 2.0}, 0.0}, {{0.0, 2.0}, 0.0}}, true};

Path randomPath(unsigned seed, bool closed) {
  std::mt19937 random(seed);
  std::uniform_real_distribution<double> coordinate(-10.0, 10.0);
  std::uniform_real_distribution<double> curve(-350.0, 350.0);
  Path path{{}, closed};
  for (int i = 0; i < 7; ++i) {
    path.vertices.push_back(
        {{coordinate(random), coordinate(random)}, random() % 3 == 0 ? 0.0 : curve(random)});
  }
  if (!closed) path.vertices.back().curve = 0.0;
  return path;
}

TEST(ArcAt, LeadsBackToTheFirstVertexOfAClosedPath) {
  ASSERT_EQ(arcCount(kTombstone), 4u);
  EXPECT_EQ(arcAt(kTombstone, 1), (Arc{{2.0, 0.0}, {2.0, 2.0}, 180.0}));
  EXPECT_EQ(arcAt(kTombstone, 3), (Arc{{0.0, 2.0}, {0.0, 0.0}, 0.0}));
  EXPECT_EQ(arcCount(Path{kTombstone.vertices, false}), 3u);
  EXPECT_EQ(arcCount(Path{}), 0u);
  EXPECT_EQ(arcCount((Path{{{{1.0, 1.0}, 0.0}}, false})), 0u);
}

TEST(PathLength, IsThatOfItsLinesAndArcs) {
  EXPECT_NEAR(length(kTombstone), 6.0 + std::numbers::pi, 1e-14);
  EXPECT_EQ(length(Path{}), 0.0);
  for (unsigned seed = 0; seed < 10; ++seed) {
    const Path path = randomPath(seed, seed % 2 == 0);
    EXPECT_NEAR(length(path), DensePath(path, 3000).length(), 1e-5 * length(path));
  }
}

TEST(PathBounds, ReachAroundItsArcs) {
  const Box box = bounds(kTombstone);
  EXPECT_EQ(box.low, (Point{0.0, 0.0}));
  EXPECT_NEAR(box.high.x, 3.0, 1e-14);
  EXPECT_EQ(box.high.y, 2.0);
  EXPECT_NEAR(box.diagonal(), std::sqrt(13.0), 1e-14);
  EXPECT_TRUE(bounds(Path{}).empty());
  EXPECT_EQ(bounds(Path{}).diagonal(), 0.0);
}

TEST(Reverse, RunsTheOtherWayFromTheSameVertex) {
  Path path = kTombstone;
  reverse(path);
  EXPECT_EQ(path,
            (Path{{{{0.0, 0.0}, 0.0}, {{0.0, 2.0}, 0.0}, {{2.0, 2.0}, -180.0}, {{2.0, 0.0}, 0.0}},
                  true}));
  Path open{{{{0.0, 0.0}, 90.0}, {{1.0, 0.0}, -30.0}, {{1.0, 5.0}, 0.0}}, false};
  reverse(open);
  EXPECT_EQ(open, (Path{{{{1.0, 5.0}, 30.0}, {{1.0, 0.0}, -90.0}, {{0.0, 0.0}, 0.0}}, false}));
}

TEST(Reverse, TwiceIsItself) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    const Path path = randomPath(seed, seed % 2 == 0);
    Path twice = path;
    reverse(twice);
    EXPECT_NE(twice, path);
    reverse(twice);
    EXPECT_EQ(twice, path);
  }
  Path none;
  reverse(none);
  EXPECT_EQ(none, Path{});
}

TEST(Transform, TurnsCurvesRoundUnderMirroring) {
  Path path = kTombstone;
  EXPECT_TRUE(transform(path, {0.0, 3.0, 3.0, 0.0, 1.0, 0.0}, kResolution));
  EXPECT_EQ(path.vertices[1], (Vertex{{1.0, 6.0}, -180.0}));
  EXPECT_FALSE(std::signbit(path.vertices[0].curve));
  EXPECT_NEAR(length(path), 3.0 * length(kTombstone), 1e-13);
}

TEST(Transform, MirroredTwiceIsItself) {
  for (unsigned seed = 0; seed < 20; ++seed) {
    const Path path = randomPath(seed, seed % 2 == 0);
    Path twice = path;
    EXPECT_TRUE(transform(twice, Affine::scaling(1.0, -1.0), kResolution));
    EXPECT_NE(twice, path);
    EXPECT_TRUE(transform(twice, Affine::scaling(1.0, -1.0), kResolution));
    EXPECT_EQ(twice, path);
  }
}

TEST(Transform, LeavesArcsAloneThatWouldBecomeEllipses) {
  Path path = kTombstone;
  EXPECT_FALSE(transform(path, Affine::scaling(1.0, 2.0), kResolution));
  EXPECT_EQ(path, kTombstone);
  EXPECT_FALSE(transform(path, Affine::scaling(std::nan(""), 1.0), kResolution));
  // Half of the resolution on a radius of 1.
  EXPECT_FALSE(transform(path, Affine::scaling(1.0, 1.00006), kResolution));
  EXPECT_TRUE(transform(path, Affine::scaling(1.0, 1.00004), kResolution));
  Path lines{{{{0.0, 0.0}, 0.0}, {{2.0, 3.0}, 0.0}}, false};
  EXPECT_TRUE(transform(lines, Affine::scaling(1.0, 2.0), kResolution));
  EXPECT_EQ(lines.vertices[1].at, (Point{2.0, 6.0}));
}

TEST(Append, GoesOnFromTheEnd) {
  const Path tail{{{{2.00001, 0.0}, 90.0}, {{4.0, 0.0}, 0.0}}, false};
  Path path{{{{0.0, 0.0}, 45.0}, {{2.0, 0.0}, 0.0}}, false};
  append(path, tail, kResolution);
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 45.0}, {{2.0, 0.0}, 90.0}, {{4.0, 0.0}, 0.0}}, false}));
  append(path, tail, kResolution);
  ASSERT_EQ(path.vertices.size(), 5u);
  EXPECT_EQ(path.vertices[2], (Vertex{{4.0, 0.0}, 0.0}));
  EXPECT_EQ(path.vertices[3], tail.vertices[0]);
  Path empty;
  append(empty, tail, kResolution);
  EXPECT_EQ(empty, tail);
  append(empty, Path{}, kResolution);
  EXPECT_EQ(empty, tail);
}

TEST(Append, WritesOutTheLastArcOfAClosedPath) {
  Path path;
  append(path, kTombstone, kResolution);
  EXPECT_FALSE(path.closed);
  ASSERT_EQ(path.vertices.size(), 5u);
  EXPECT_EQ(path.vertices.back(), (Vertex{{0.0, 0.0}, 0.0}));
  EXPECT_NEAR(length(path), length(kTombstone), 1e-14);
}

TEST(SplitWideArcs, CutsThemAtTheirMiddle) {
  const double s = std::sin(0.25 * std::numbers::pi / 180.0);
  const double c = std::cos(0.25 * std::numbers::pi / 180.0);
  Path path{{{{c, s}, 359.5}, {{c, -s}, 0.0}, {{5.0, 0.0}, 359.0}, {{6.0, 0.0}, 359.9}}, false};
  splitWideArcs(path);
  ASSERT_EQ(path.vertices.size(), 5u);
  EXPECT_EQ(path.vertices[0].curve, 179.75);
  EXPECT_EQ(path.vertices[1].curve, 179.75);
  EXPECT_NEAR(path.vertices[1].at.x, -1.0, 1e-12);
  EXPECT_NEAR(path.vertices[1].at.y, 0.0, 1e-12);
  EXPECT_EQ(path.vertices[3].curve, 359.0);
  Path closed{{{{0.0, 0.0}, 0.0}, {{1.0, 0.0}, -359.4}}, true};
  splitWideArcs(closed);
  ASSERT_EQ(closed.vertices.size(), 3u);
  EXPECT_EQ(closed.vertices[2].curve, -179.7);
  EXPECT_TRUE(closed.closed);
}

TEST(StraightenFlatArcs, TakesTheCurveOfThoseWithoutSagitta) {
  Path path{{{{0.0, 0.0}, 0.002}, {{10.0, 0.0}, 1.0}, {{20.0, 0.0}, 0.0012}}, true};
  straightenFlatArcs(path, kResolution);
  EXPECT_EQ(path.vertices[0].curve, 0.0);
  EXPECT_EQ(path.vertices[1].curve, 1.0);
  EXPECT_EQ(path.vertices[2].curve, 0.0012);  // 0.000052 above its chord of 20
}

TEST(DropClosePoints, LeavesNoTwoInARow) {
  Path path{{{{0.0, 0.0}, 0.0},
             {{0.00005, 0.0}, 90.0},
             {{1.0, 0.0}, 0.0},
             {{1.00005, 0.0}, 0.0},
             {{1.00009, 0.0}, 30.0},
             {{2.0, 0.0}, 0.0}},
            false};
  dropClosePoints(path, kResolution);
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 90.0}, {{1.0, 0.0}, 30.0}, {{2.0, 0.0}, 0.0}}, false}));
}

TEST(DropClosePoints, KeepsBothEndsInPlace) {
  Path path{{{{0.0, 0.0}, 0.0}, {{1.0, 0.0}, 0.0}, {{1.00005, 0.0}, 0.0}}, false};
  dropClosePoints(path, kResolution);
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 0.0}, {{1.00005, 0.0}, 0.0}}, false}));
  Path creeping{
      {{{0.0, 0.0}, 0.0}, {{1.0, 0.0}, 0.0}, {{1.00011, 0.0}, 0.0}, {{1.00009, 0.0}, 0.0}}, false};
  dropClosePoints(creeping, kResolution);
  EXPECT_EQ(creeping, (Path{{{{0.0, 0.0}, 0.0}, {{1.00009, 0.0}, 0.0}}, false}));
}

TEST(DropClosePoints, EndsAClosedPathOnItsFirstVertex) {
  Path path = kTombstone;
  path.vertices.push_back({{0.00005, 0.00005}, 0.0});
  path.vertices.push_back({{0.0, 0.00001}, 0.0});
  dropClosePoints(path, kResolution);
  EXPECT_EQ(path, kTombstone);
}

TEST(DropClosePoints, CutsArcsThatComeBackInTwo) {
  // All but a whole circle of radius 0.001.
  Path path{{{{0.001, 0.0}, 359.0}, {{0.001, -0.00001745}, 0.0}, {{1.0, 0.0}, 0.0}}, false};
  dropClosePoints(path, kResolution);
  ASSERT_EQ(path.vertices.size(), 4u);
  EXPECT_NEAR(path.vertices[1].at.x, -0.001, 1e-6);
  EXPECT_EQ(path.vertices[1].curve, 179.5);
}

TEST(DropClosePoints, MakesOneVertexOfAPathWithoutLength) {
  for (const bool closed : {false, true}) {
    Path path{{{{1.0, 1.0}, 20.0}, {{1.00001, 1.0}, 30.0}, {{1.0, 1.00001}, 40.0}}, closed};
    dropClosePoints(path, kResolution);
    EXPECT_EQ(path, (Path{{{{1.0, 1.0}, 0.0}}, closed}));
  }
  Path none;
  dropClosePoints(none, kResolution);
  EXPECT_EQ(none, Path{});
}

TEST(DropClosePoints, LeavesNoTwoInARowOfRandomOnes) {
  std::mt19937 random(14);
  std::uniform_real_distribution<double> step(-0.0002, 0.0002);
  for (int i = 0; i < 200; ++i) {
    Path path{{{{0.0, 0.0}, 0.0}}, i % 2 == 0};
    for (int k = 0; k < 30; ++k) {
      const Point last = path.vertices.back().at;
      path.vertices.push_back({{last.x + step(random), last.y + step(random)}, 0.0});
    }
    const Path before = path;
    dropClosePoints(path, kResolution);
    EXPECT_EQ(path.vertices.front().at, before.vertices.front().at);
    if (path.vertices.size() < 2) continue;
    if (!path.closed) {
      EXPECT_EQ(path.vertices.back().at, before.vertices.back().at);
    }
    const std::size_t count = arcCount(path);
    // Both ends of an open path stay, however close.
    for (std::size_t k = 0; count > 1 && k < count; ++k) {
      EXPECT_GE(chord(arcAt(path, k)), kResolution);
    }
  }
}

TEST(CloseWhereEndsMeet, EndsOnTheFirstVertex) {
  Path path{{{{0.0, 0.0}, 0.0}, {{2.0, 0.0}, 0.0}, {{2.0, 2.0}, 60.0}, {{0.00005, 0.0}, 0.0}},
            false};
  closeWhereEndsMeet(path, kResolution);
  EXPECT_EQ(path, (Path{{{{0.0, 0.0}, 0.0}, {{2.0, 0.0}, 0.0}, {{2.0, 2.0}, 60.0}}, true}));
  Path open{{{{0.0, 0.0}, 0.0}, {{2.0, 0.0}, 0.0}, {{0.0002, 0.0}, 0.0}}, false};
  closeWhereEndsMeet(open, kResolution);
  EXPECT_FALSE(open.closed);
  Path point{{{{0.0, 0.0}, 0.0}, {{0.00001, 0.0}, 0.0}}, false};
  closeWhereEndsMeet(point, kResolution);
  EXPECT_FALSE(point.closed);
}

TEST(PathTools, TakeHostileNumbers) {
  const double numbers[] = {0.0, 1e300, -1e-320, std::numeric_limits<double>::infinity(),
                            std::nan("")};
  for (const double x : numbers) {
    for (const double curve : numbers) {
      for (const bool closed : {false, true}) {
        Path path{{{{x, 0.0}, curve}, {{0.0, x}, curve}, {{1.0, 1.0}, 0.0}}, closed};
        length(path);
        bounds(path);
        reverse(path);
        transform(path, Affine::scaling(x, 1.0), kResolution);
        splitWideArcs(path);
        straightenFlatArcs(path, kResolution);
        dropClosePoints(path, kResolution);
        closeWhereEndsMeet(path, kResolution);
        EXPECT_LE(path.vertices.size(), 12u);
        EXPECT_GE(path.vertices.size(), 1u);
      }
    }
  }
}

}  // namespace
}  // namespace quillon::geometry
